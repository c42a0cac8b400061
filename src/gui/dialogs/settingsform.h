// The data set fields shared by the chart settings dialog and the
// single-series dialog: the same widgets by name in both forms.
#pragma once

#include "core/settings/settingsrules.h"
#include "gui/dialogs/colorwidgets.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QSpinBox>

class QWidget;

namespace qv {

template <class Form> SeriesFields g_readSeriesForm(const Form &form, const ColorButtonClass *button)
{
    SeriesFields f;
    f.color = button->m_getColor();
    f.enabled = form.checkEnabled->isChecked();
    f.axis = form.checkAxis->isChecked();
    f.right = form.checkRight->isChecked();
    f.size = form.spinSize->value();
    f.name = form.editName->text();
    f.unit = form.editUnit->text();
    f.minimum = form.spinMin->value();
    f.maximum = form.spinMax->value();
    f.decimals = form.spinDecimals->value();
    return f;
}

// The limit boxes take the stored decimals, so a change of decimals shows in
// them only once the data set has been stored and shown again.
template <class Form> void g_showSeriesForm(Form &form, ColorButtonClass *button, const SeriesFields &f)
{
    form.checkEnabled->setChecked(f.enabled);
    form.checkAxis->setChecked(f.axis);
    form.checkRight->setChecked(f.right);
    form.spinSize->setValue(f.size);
    button->m_setColor(f.color);
    form.editName->setText(f.name);
    form.editUnit->setText(f.unit);
    for (QDoubleSpinBox *box : {form.spinMin, form.spinMax}) {
        box->setDecimals(f.decimals);
        box->setRange(-1000000.0, 1000000.0);
    }
    form.spinMin->setValue(f.minimum);
    form.spinMax->setValue(f.maximum);
    form.spinDecimals->setValue(f.decimals);
}

// Opens the colour chooser on the button's colour; a picked colour goes onto
// the button. True when one was picked.
bool g_pickSeriesColor(QWidget *parent, ColorButtonClass *button);
// A refusal of OK: critical box titled "Error"; the dialog stays open.
void g_settingsRefusal(QWidget *parent, SeriesCheck check);

}  // namespace qv

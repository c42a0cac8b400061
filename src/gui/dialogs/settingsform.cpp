#include "gui/dialogs/settingsform.h"

#include "core/base/coretexts.h"
#include "gui/ui/dialogseam.h"

#include <QColorDialog>
#include <QCoreApplication>

namespace qv {

bool g_pickSeriesColor(QWidget *parent, ColorButtonClass *button)
{
    QColorDialog chooser(QColor::fromRgba(button->m_getColor()), parent);
    chooser.setWindowTitle(QCoreApplication::translate("SettingsDialogClass", "Select Color"));
    if (g_execDialog(chooser) != QDialog::Accepted || !chooser.selectedColor().isValid())
        return false;
    button->m_setColor(chooser.selectedColor().rgba());
    return true;
}

void g_settingsRefusal(QWidget *parent, SeriesCheck check)
{
    g_critical(parent, QCoreApplication::translate("SettingsDialogClass", "Error"),
               g_coreText(g_seriesCheckText(check)));
}

}  // namespace qv

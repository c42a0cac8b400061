#include "gui/dialogs/settingsdialogclass.h"

#include "core/model/fixedstring.h"
#include "gui/dialogs/settingsform.h"
#include "ui_settingsdialog.h"

#include <QDateTime>
#include <QLocale>
#include <QPushButton>

#include <cstring>

namespace {

// The date boxes edit the day only: the time of day, to the millisecond,
// stays that of the stored value, so an untouched box gives it back exactly.
qint64 editedTime(const QDate &date, qint64 stored)
{
    return QDateTime(date, QDateTime::fromMSecsSinceEpoch(stored).time()).toMSecsSinceEpoch();
}

}  // namespace

SettingsDialogClass::SettingsDialogClass(QWidget *parent, settingsT *source)
    : QDialog(parent), form(std::make_unique<Ui_settingsDialog>())
{
    form->setupUi(this);
    std::memcpy(&settings, source, sizeof(settingsT));
    form->lineEditDescription->setText(qv::g_buffer2QString(settings.description, qv::kDescriptionWidth));
    form->labelChanged->setText(
        QLocale::system().toString(QDateTime::fromSecsSinceEpoch(settings.changedTime), QLocale::ShortFormat));
    form->checkTitle->setChecked(settings.flags & qv::kFlagShowTitle);
    (qv::LineType(settings.lineType) == qv::LineType::Spline ? form->radioSpline : form->radioLine)->setChecked(true);
    QRadioButton *const legend[5] = {form->radioTop, form->radioRight, form->radioBottom, form->radioLeft,
                                     form->radioNone};
    legend[qv::g_legendButton(qv::LegendPosition(settings.legendPosition))]->setChecked(true);
    const QDateTime begin = QDateTime::fromMSecsSinceEpoch(settings.rangeBegin);
    const QDateTime end = QDateTime::fromMSecsSinceEpoch(settings.rangeEnd);
    form->dateBegin->setDateTime(begin);
    form->timeBegin->setTime(begin.time());
    form->dateEnd->setDateTime(end);
    form->timeEnd->setTime(end.time());

    colorButton = new ColorButtonClass();
    form->lineLayout->insertWidget(1, colorButton, 2);
    form->spinIndex->setMaximum(qBound(0, int(settings.dataSetCount), qv::kMaxDataSets));
    currentIndex = -1;
    s_indexChanged(1);

    connect(form->spinIndex, QOverload<int>::of(&QSpinBox::valueChanged), this, &SettingsDialogClass::s_indexChanged);
    connect(colorButton, &QPushButton::clicked, this, &SettingsDialogClass::s_colorChanged);
    connect(form->buttonBox->button(QDialogButtonBox::Ok), &QPushButton::clicked, this,
            &SettingsDialogClass::s_okPressed);
    connect(form->buttonBox->button(QDialogButtonBox::Cancel), &QPushButton::clicked, this,
            &SettingsDialogClass::s_cancelPressed);
    connect(form->buttonBox->button(QDialogButtonBox::Help), &QPushButton::clicked, this,
            &SettingsDialogClass::s_helpPressed);
}

SettingsDialogClass::~SettingsDialogClass() = default;

// index is the 1-based number of the data set to show. The shown one is
// stored first. A number outside the data sets shows none and leaves the
// fields as they are.
void SettingsDialogClass::s_indexChanged(int index)
{
    if (currentIndex >= 0 && currentIndex < qv::kMaxDataSets)
        qv::g_storeSeries(settings, currentIndex, qv::g_readSeriesForm(*form, colorButton));
    const int shown = index - 1;
    if (shown < 0 || shown >= qv::kMaxDataSets) {
        currentIndex = -1;
        return;
    }
    qv::g_showSeriesForm(*form, colorButton, qv::g_loadSeries(settings, shown));
    currentIndex = shown;
}

void SettingsDialogClass::s_colorChanged()
{
    qv::g_pickSeriesColor(this, colorButton);
}

void SettingsDialogClass::s_okPressed()
{
    // The 0-based index goes to a slot that counts from 1: the shown data set
    // is stored, and the form moves one data set down (kept as it always was;
    // it shows only when the dialog stays open).
    s_indexChanged(currentIndex);
    const qv::SeriesCheck check = qv::g_checkSeries(settings);
    if (check != qv::SeriesCheck::Drawable) {
        qv::g_settingsRefusal(this, check);
        return;
    }
    qv::g_qString2Buffer(settings.description, form->lineEditDescription->text(), qv::kDescriptionWidth);
    settings.changedTime = quint32(QDateTime::currentSecsSinceEpoch());
    qv::g_applyRange(settings, editedTime(form->dateBegin->date(), settings.rangeBegin),
                     editedTime(form->dateEnd->date(), settings.rangeEnd));
    if (form->checkTitle->isChecked())
        settings.flags |= qv::kFlagShowTitle;
    else
        settings.flags &= ~qv::kFlagShowTitle;
    settings.lineType = quint8(form->radioLine->isChecked() ? qv::LineType::Straight : qv::LineType::Spline);
    QRadioButton *const legend[5] = {form->radioTop, form->radioRight, form->radioBottom, form->radioLeft,
                                     form->radioNone};
    for (int button = 0; button < 5; ++button) {
        if (legend[button]->isChecked())
            settings.legendPosition = quint8(qv::g_legendPosition(button));
    }
    accept();
}

void SettingsDialogClass::s_cancelPressed()
{
    reject();
}

void SettingsDialogClass::s_helpPressed()
{
    helpPage = QStringLiteral("settings.html");
    emit m_showHelp(this, &helpPage);
}

void SettingsDialogClass::s_showHelp(QWidget *parent, QString *page)
{
    emit m_showHelp(parent, page);
}

#include "gui/dialogs/settingssmalldialogclass.h"

#include "gui/dialogs/settingsform.h"
#include "ui_settingssmalldialog.h"

#include <QDateTime>
#include <QPushButton>

#include <cstring>

SettingsSmallDialogClass::SettingsSmallDialogClass(QWidget *parent, settingsT *source, qint64 dataSet)
    : QDialog(parent), form(std::make_unique<Ui_settingsSmallDialog>()),
      index(qBound<qint64>(0, dataSet, qv::kMaxDataSets - 1))
{
    form->setupUi(this);
    std::memcpy(&settings, source, sizeof(settingsT));
    colorButton = new ColorButtonClass();
    form->lineLayout->insertWidget(1, colorButton, 2);
    qv::g_showSeriesForm(*form, colorButton, qv::g_loadSeries(settings, int(index)));

    connect(colorButton, &QPushButton::clicked, this, &SettingsSmallDialogClass::s_colorChanged);
    connect(form->buttonBox->button(QDialogButtonBox::Ok), &QPushButton::clicked, this,
            &SettingsSmallDialogClass::s_okPressed);
    connect(form->buttonBox->button(QDialogButtonBox::Cancel), &QPushButton::clicked, this,
            &SettingsSmallDialogClass::s_cancelPressed);
    connect(form->buttonBox->button(QDialogButtonBox::Help), &QPushButton::clicked, this,
            &SettingsSmallDialogClass::s_helpPressed);
}

SettingsSmallDialogClass::~SettingsSmallDialogClass() = default;

void SettingsSmallDialogClass::s_colorChanged()
{
    qv::g_pickSeriesColor(this, colorButton);
}

// A refused record keeps what was stored; the next OK stores it again.
void SettingsSmallDialogClass::s_okPressed()
{
    qv::g_storeSeries(settings, int(index), qv::g_readSeriesForm(*form, colorButton));
    const qv::SeriesCheck check = qv::g_checkSeries(settings);
    if (check != qv::SeriesCheck::Drawable) {
        qv::g_settingsRefusal(this, check);
        return;
    }
    settings.changedTime = quint32(QDateTime::currentSecsSinceEpoch());
    accept();
}

void SettingsSmallDialogClass::s_cancelPressed()
{
    reject();
}

void SettingsSmallDialogClass::s_helpPressed()
{
    helpPage = QStringLiteral("settings.html");
    emit m_showHelp(this, &helpPage);
}

void SettingsSmallDialogClass::s_showHelp(QWidget *parent, QString *page)
{
    emit m_showHelp(parent, page);
}

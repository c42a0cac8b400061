// The settings of one data set, opened from the small button beside its row.
// It edits its own copy of the whole settings record and checks the whole
// record on OK; the caller copies it back when the dialog is accepted.
#pragma once

#include "core/model/chartmodel.h"

#include <QDialog>
#include <QString>

#include <memory>

class ColorButtonClass;
class Ui_settingsSmallDialog;

class SettingsSmallDialogClass : public QDialog
{
    Q_OBJECT

public:
    SettingsSmallDialogClass(QWidget *parent, settingsT *settings, qint64 index);
    ~SettingsSmallDialogClass() override;

    settingsT *m_getSettings() { return &settings; }

signals:
    void m_showHelp(QWidget *parent, QString *page);

public slots:
    void s_colorChanged();
    void s_okPressed();
    void s_cancelPressed();
    void s_helpPressed();
    void s_showHelp(QWidget *parent, QString *page);

private:
    std::unique_ptr<Ui_settingsSmallDialog> form;
    settingsT settings;
    ColorButtonClass *colorButton;
    qint64 index;
    QString helpPage;
};

// The chart settings dialog: title, line type, legend, time range and, one
// data set at a time, every series setting. It edits its own copy of the
// settings record; the caller copies it back when the dialog is accepted.
#pragma once

#include "core/model/chartmodel.h"

#include <QDialog>
#include <QString>

#include <memory>

class ColorButtonClass;
class Ui_settingsDialog;

class SettingsDialogClass : public QDialog
{
    Q_OBJECT

public:
    SettingsDialogClass(QWidget *parent, settingsT *settings);
    ~SettingsDialogClass() override;

    settingsT *m_getSettings() { return &settings; }
    // 0-based data set whose fields the form shows; -1 for none.
    int m_currentIndex() const { return currentIndex; }

signals:
    void m_showHelp(QWidget *parent, QString *page);

public slots:
    void s_indexChanged(int index);
    void s_colorChanged();
    void s_okPressed();
    void s_cancelPressed();
    void s_helpPressed();
    void s_showHelp(QWidget *parent, QString *page);

private:
    std::unique_ptr<Ui_settingsDialog> form;
    settingsT settings;
    ColorButtonClass *colorButton;
    int currentIndex = -1;
    QString helpPage;
};

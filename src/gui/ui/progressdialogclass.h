// The modal two-bar progress window of long operations (imports, project
// save and load). Every setter repaints and lets pending events through, so
// the window stays alive while the work runs on the GUI thread.
#pragma once

#include <QDialog>
#include <QString>

#include <memory>

class Ui_progressDialog;

class ProgressDialogClass : public QDialog
{
    Q_OBJECT

public:
    ProgressDialogClass(QWidget *parent, QString text, QString detail);
    ~ProgressDialogClass() override;

    void m_setProgress(int value);
    void m_setDetailProgress(int value);
    void m_setProgressText(QString text);
    void m_setDetailProgressText(QString text);

private:
    void m_refresh();

    std::unique_ptr<Ui_progressDialog> ui;
};

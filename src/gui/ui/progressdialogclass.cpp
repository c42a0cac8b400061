#include "gui/ui/progressdialogclass.h"

#include "ui_progressdialog.h"

#include <QCoreApplication>

ProgressDialogClass::ProgressDialogClass(QWidget *parent, QString text, QString detail)
    : QDialog(parent), ui(std::make_unique<Ui_progressDialog>())
{
    ui->setupUi(this);
    ui->progressBar->setValue(0);
    ui->progressBarDetail->setValue(0);
    ui->labelProgress->setText(text);
    ui->labelProgressDetail->setText(detail);
    show();
    QCoreApplication::processEvents();
}

ProgressDialogClass::~ProgressDialogClass() = default;

void ProgressDialogClass::m_setProgress(int value)
{
    ui->progressBar->setValue(value);
    m_refresh();
}

void ProgressDialogClass::m_setDetailProgress(int value)
{
    ui->progressBarDetail->setValue(value);
    m_refresh();
}

void ProgressDialogClass::m_setProgressText(QString text)
{
    ui->labelProgress->setText(text);
    m_refresh();
}

void ProgressDialogClass::m_setDetailProgressText(QString text)
{
    ui->labelProgressDetail->setText(text);
    m_refresh();
}

void ProgressDialogClass::m_refresh()
{
    repaint();
    QCoreApplication::processEvents();
}

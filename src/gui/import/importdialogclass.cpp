#include "gui/import/importdialogclass.h"

#include "ui_importdialog.h"

ImportDialogClass::ImportDialogClass(QWidget *parent) : QDialog(parent), ui(std::make_unique<Ui_importDialog>())
{
    ui->setupUi(this);
    connect(ui->buttonImportBIN, &QToolButton::clicked, this, &ImportDialogClass::s_datPressed);
    connect(ui->buttonImportCSV, &QToolButton::clicked, this, &ImportDialogClass::s_csvPressed);
    connect(ui->buttonImportVAPIX, &QToolButton::clicked, this, &ImportDialogClass::s_vapixPressed);
    type = kNone;
}

ImportDialogClass::~ImportDialogClass() = default;

qv::InputKind ImportDialogClass::m_getKind() const
{
    switch (type) {
    case kControllerLog:
        return qv::InputKind::ControllerLog;
    case kControllerCsv:
        return qv::InputKind::ControllerCsv;
    case kVisCsv:
        return qv::InputKind::VisCsv;
    default:
        return qv::InputKind::Unknown;
    }
}

void ImportDialogClass::s_datPressed()
{
    m_choose(kControllerLog);
}

void ImportDialogClass::s_csvPressed()
{
    m_choose(kControllerCsv);
}

void ImportDialogClass::s_vapixPressed()
{
    m_choose(kVisCsv);
}

void ImportDialogClass::m_choose(int code)
{
    type = code;
    accept();
}

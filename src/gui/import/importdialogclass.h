// The chooser that starts a new project: which kind of sampling file to import.
#pragma once

#include "core/import/inputkind.h"

#include <QDialog>

#include <memory>

class Ui_importDialog;

class ImportDialogClass : public QDialog
{
    Q_OBJECT

public:
    // Type codes returned by m_getType().
    static constexpr int kNone = 0;
    static constexpr int kControllerLog = 51;
    static constexpr int kControllerCsv = 85;
    static constexpr int kVisCsv = 119;

    explicit ImportDialogClass(QWidget *parent);
    ~ImportDialogClass() override;

    int m_getType() const { return type; }
    // The chosen kind of sampling file; Unknown when none was chosen.
    qv::InputKind m_getKind() const;

public slots:
    void s_datPressed();
    void s_csvPressed();
    void s_vapixPressed();

private:
    void m_choose(int code);

    std::unique_ptr<Ui_importDialog> ui;
    qint32 type = kNone;
};

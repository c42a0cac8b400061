// The data selection dialog: a table of every sample of the recording, one
// row per sample, in which the user selects the block of rows that the chart
// shows. It works on its own copy of the settings record; the caller copies
// it back when the dialog is accepted.
#pragma once

#include "core/chart/choosetable.h"
#include "core/model/chartmodel.h"

#include <QDialog>
#include <QString>

#include <memory>

class QResizeEvent;
class Ui_chooseDialog;

class ChooseDialogClass : public QDialog
{
    Q_OBJECT

public:
    ChooseDialogClass(QWidget *parent, settingsT *settings);
    ~ChooseDialogClass() override;

    // Borrows the store of data set index; call for every data set in use.
    void m_setData(int index, const _chartDataType *data);
    // Fills the table and selects the rows of the stored range.
    void m_fillTable();
    settingsT *m_getSettings() { return &settings; }

signals:
    void m_showHelp(QWidget *parent, QString *page);

public slots:
    void s_okPressed();
    void s_cancelPressed();
    void s_helpPressed();

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    // The selected rows as one block; an empty block when nothing or more
    // than one block is selected.
    qv::RowBlock m_selectedRows() const;

    std::unique_ptr<Ui_chooseDialog> ui;
    settingsT settings;
    const _chartDataType *base = nullptr;
    qv::ChooseTableModel table;
    QString helpPage;
};

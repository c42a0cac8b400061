#include "gui/chart/choosedialogclass.h"

#include "gui/ui/charttexts.h"
#include "gui/ui/dialogseam.h"
#include "gui/ui/progresssession.h"
#include "gui/ui/waitcursor.h"
#include "ui_choosedialog.h"

#include <QPushButton>
#include <QResizeEvent>
#include <QScrollBar>

#include <algorithm>
#include <cstring>

ChooseDialogClass::ChooseDialogClass(QWidget *parent, settingsT *source)
    : QDialog(parent), ui(std::make_unique<Ui_chooseDialog>()), table(&settings)
{
    std::memcpy(&settings, source, sizeof(settingsT));
    ui->setupUi(this);
    ui->tableChoose->setModel(&table);
    connect(ui->buttonBox->button(QDialogButtonBox::Ok), &QPushButton::clicked, this, &ChooseDialogClass::s_okPressed);
    connect(ui->buttonBox->button(QDialogButtonBox::Cancel), &QPushButton::clicked, this,
            &ChooseDialogClass::s_cancelPressed);
    connect(ui->buttonBox->button(QDialogButtonBox::Help), &QPushButton::clicked, this,
            &ChooseDialogClass::s_helpPressed);
}

ChooseDialogClass::~ChooseDialogClass() = default;

void ChooseDialogClass::m_setData(int index, const _chartDataType *data)
{
    table.m_setStore(index, data);
    if (index == 0)
        base = data;
}

void ChooseDialogClass::m_fillTable()
{
    qv::WaitCursor cursor;
    qv::ProgressSession progress(parentWidget(), tr("Creating Table..."), tr("Chart Data..."), [&] { cursor.set(); });
    progress.set(1, 1);
    table.m_refill();
    progress.release();
    cursor.restore();

    if (!base || table.rowCount() == 0)
        return;
    const qv::RowBlock rows = qv::g_rangeRows(*base, settings);
    QItemSelectionModel *selection = ui->tableChoose->selectionModel();
    selection->select(QItemSelection(table.index(rows.top, 0), table.index(rows.bottom, table.columnCount() - 1)),
                      QItemSelectionModel::ClearAndSelect);
    selection->setCurrentIndex(table.index(rows.top, 0), QItemSelectionModel::NoUpdate);
    ui->tableChoose->scrollTo(table.index(rows.top, 0), QAbstractItemView::PositionAtTop);
}

qv::RowBlock ChooseDialogClass::m_selectedRows() const
{
    // Whole rows are selected; ranges that touch or overlap make one block.
    QVector<qv::RowBlock> ranges;
    for (const QItemSelectionRange &range : ui->tableChoose->selectionModel()->selection())
        ranges.append(qv::RowBlock{range.top(), range.bottom()});
    std::sort(ranges.begin(), ranges.end(), [](const qv::RowBlock &a, const qv::RowBlock &b) { return a.top < b.top; });
    qv::RowBlock block;
    for (const qv::RowBlock &range : ranges) {
        if (block.bottom < block.top) {
            block = range;
        } else if (range.top <= block.bottom + 1) {
            block.bottom = qMax(block.bottom, range.bottom);
        } else {
            return qv::RowBlock();  // several blocks
        }
    }
    return block;
}

void ChooseDialogClass::s_okPressed()
{
    if (!base) {
        accept();
        return;
    }
    if (qv::g_chooseRows(settings, *base, m_selectedRows()) == qv::ChooseOutcome::TooFewRows) {
        qv::g_critical(this, qv::g_chartText(qv::kTextErrorTitle), tr("Please select at least 16 rows !"));
        return;
    }
    accept();
}

void ChooseDialogClass::s_cancelPressed()
{
    reject();
}

void ChooseDialogClass::s_helpPressed()
{
    helpPage = QStringLiteral("choose.html");
    emit m_showHelp(this, &helpPage);
}

// Spreads the columns evenly over the table; the last one takes the rest.
void ChooseDialogClass::resizeEvent(QResizeEvent *event)
{
    QTableView *view = ui->tableChoose;
    int left = 0, top = 0, right = 0, bottom = 0;
    ui->verticalLayout->getContentsMargins(&left, &top, &right, &bottom);
    int available = event->size().width() - 2 * view->lineWidth() - 1 - left - right;
    if (view->verticalScrollBar()->isVisible())
        available -= view->verticalScrollBar()->width();
    const QVector<int> widths = qv::g_chooseColumnWidths(available, table.columnCount());
    for (int column = 0; column < widths.size(); ++column)
        view->setColumnWidth(column, widths[column]);
    event->accept();
}

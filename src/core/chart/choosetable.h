// The table of the data selection dialog without a window: one row per
// sample of data set 0, the time in column 0 and every shown data set's
// value in the columns after it. Cells are formatted when they are asked for,
// so a table of 262,144 rows opens at once and costs no memory per cell.
// Also the rules of the dialog: the rows of the stored range, what OK does
// with a block of rows, and the column widths.
#pragma once

#include "core/model/chartmodel.h"

#include <QAbstractTableModel>
#include <QString>
#include <QVector>

namespace qv {

// Selecting fewer rows than this is refused.
constexpr int kMinChosenRows = 16;

// A plain model (no signals or slots of its own), so the core needs no moc.
class ChooseTableModel : public QAbstractTableModel
{
public:
    // settings stays owned by the caller and is read again by m_refill().
    explicit ChooseTableModel(const settingsT *settings, QObject *parent = nullptr);

    // Borrows the store of data set index (0..15); data set 0 is the time base.
    void m_setStore(int index, const _chartDataType *data);
    // Takes the columns (shown data sets in slot order) from the settings.
    void m_refill();

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    int columnCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

    // The text of one cell, as the table shows it.
    QString m_cellText(int row, int column) const;

private:
    struct Column {
        int slot;
        QString name;
        QString unit;
        int decimals;
    };
    const settingsT *settings;
    const _chartDataType *stores[kMaxDataSets] = {};
    QVector<Column> columns;
    int rows = 0;
};

// The row of the last sample of base at or before time; -1 if there is none.
int g_rowAtOrBefore(const _chartDataType &base, qint64 time);

// The rows that show the stored range: the last sample at or before its
// begin (row 0 when none is) to the last at or before its end.
struct RowBlock {
    int top = 0;
    int bottom = -1;
};
RowBlock g_rangeRows(const _chartDataType &base, const settingsT &settings);

enum class ChooseOutcome { Unchanged, Chosen, TooFewRows };

// OK on a block of rows: at least 16 rows make their first and last sample
// times the new range, and only the side that changed resets its side of the
// zoom window. Fewer rows change nothing. An empty block keeps the range.
ChooseOutcome g_chooseRows(settingsT &settings, const _chartDataType &base, RowBlock block);

// The widths of columns 0..columns-2 for an available width: a 16.16 step of
// (65536 / columns) x width each; the last column stretches.
QVector<int> g_chooseColumnWidths(int availableWidth, int columns);

}  // namespace qv

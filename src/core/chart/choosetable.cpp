#include "core/chart/choosetable.h"

#include "core/model/fixedstring.h"

#include <QCoreApplication>
#include <QDateTime>

#include <algorithm>

namespace qv {

ChooseTableModel::ChooseTableModel(const settingsT *settings, QObject *parent)
    : QAbstractTableModel(parent), settings(settings)
{
}

void ChooseTableModel::m_setStore(int index, const _chartDataType *data)
{
    if (index >= 0 && index < kMaxDataSets)
        stores[index] = data;
}

void ChooseTableModel::m_refill()
{
    beginResetModel();
    columns.clear();
    const int used = qBound(0, settings->dataSetCount, kMaxDataSets);
    for (int slot = 0; slot < used; ++slot) {
        if (!(settings->lineFlags[slot] & kLineShown) || !stores[slot])
            continue;
        columns.append(Column{slot, g_buffer2QString(settings->name[slot], kNameWidth),
                              g_buffer2QString(settings->unit[slot], kUnitWidth), settings->decimals[slot]});
    }
    rows = stores[0] ? g_sampleCount(stores[0]->count) : 0;
    endResetModel();
}

int ChooseTableModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : rows;
}

int ChooseTableModel::columnCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : 1 + columns.size();
}

QString ChooseTableModel::m_cellText(int row, int column) const
{
    if (row < 0 || row >= rows || column < 0 || column > columns.size())
        return QString();
    if (column == 0)
        return QDateTime::fromMSecsSinceEpoch(stores[0]->time[row]).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
    const Column &c = columns[column - 1];
    const _chartDataType *store = stores[c.slot];
    // A data set shorter than data set 0 has no sample in the rows past its end.
    if (!store || row >= g_sampleCount(store->count) || g_isMissing(store->value[row]))
        return QCoreApplication::translate("QuorvantaCore", "Invalid Data");
    return QStringLiteral("%1 %2").arg(QString::number(store->value[row], 'f', c.decimals), c.unit);
}

QVariant ChooseTableModel::data(const QModelIndex &index, int role) const
{
    if (!index.isValid())
        return QVariant();
    if (role == Qt::DisplayRole)
        return m_cellText(index.row(), index.column());
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignCenter);
    return QVariant();
}

QVariant ChooseTableModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation == Qt::Horizontal && role == Qt::DisplayRole) {
        if (section == 0)
            return QCoreApplication::translate("QuorvantaCore", "Date/Time");
        return section > 0 && section <= columns.size() ? QVariant(columns[section - 1].name) : QVariant();
    }
    if (role == Qt::TextAlignmentRole)
        return int(Qt::AlignCenter);
    return QAbstractTableModel::headerData(section, orientation, role);
}

Qt::ItemFlags ChooseTableModel::flags(const QModelIndex &index) const
{
    return index.isValid() ? Qt::ItemIsSelectable | Qt::ItemIsEnabled : Qt::NoItemFlags;
}

int g_rowAtOrBefore(const _chartDataType &base, qint64 time)
{
    const qint64 *first = base.time;
    const qint64 *last = base.time + g_sampleCount(base.count);
    return int(std::upper_bound(first, last, time) - first) - 1;
}

RowBlock g_rangeRows(const _chartDataType &base, const settingsT &settings)
{
    if (g_sampleCount(base.count) == 0)
        return RowBlock();
    return RowBlock{qMax(0, g_rowAtOrBefore(base, settings.rangeBegin)),
                    qMax(0, g_rowAtOrBefore(base, settings.rangeEnd))};
}

ChooseOutcome g_chooseRows(settingsT &settings, const _chartDataType &base, RowBlock block)
{
    const int count = g_sampleCount(base.count);
    if (block.top < 0 || block.bottom < block.top || block.bottom >= count)
        return ChooseOutcome::Unchanged;
    if (block.bottom - block.top < kMinChosenRows - 1)
        return ChooseOutcome::TooFewRows;
    const qint64 begin = base.time[block.top];
    const qint64 end = base.time[block.bottom];
    if (begin != settings.rangeBegin)
        settings.rangeBegin = settings.viewBegin = begin;
    if (end != settings.rangeEnd)
        settings.rangeEnd = settings.viewEnd = end;
    return ChooseOutcome::Chosen;
}

QVector<int> g_chooseColumnWidths(int availableWidth, int columns)
{
    QVector<int> widths;
    if (columns < 2)
        return widths;
    const qint64 step = qint64(65536 / columns) * qMax(0, availableWidth);
    widths.fill(int(step >> 16), columns - 1);
    return widths;
}

}  // namespace qv

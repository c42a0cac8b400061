#include "core/chart/chartplan.h"

#include "core/model/fixedstring.h"

#include <QDateTime>

namespace qv {

ChartCheck g_checkChartData(const ChartModel &model)
{
    const int dataSets = model.usedDataSets();
    if (dataSets == 0)
        return ChartCheck::NoDataSets;
    for (int i = 0; i < dataSets; ++i) {
        if (model.data(i)->count < kMinSamplesForChart)
            return ChartCheck::TooFewSamples;
    }
    if (g_leadDataSet(model) < 0)
        return ChartCheck::NothingShown;
    return ChartCheck::Drawable;
}

const char *g_chartCheckText(ChartCheck check)
{
    switch (check) {
    case ChartCheck::NoDataSets:
        return QT_TRANSLATE_NOOP("QuorvantaCore", "No data to draw: the project holds no data sets.");
    case ChartCheck::TooFewSamples:
        return QT_TRANSLATE_NOOP("QuorvantaCore", "Too few samples to draw a chart (at least 8 per data set).");
    case ChartCheck::NothingShown:
        return QT_TRANSLATE_NOOP("QuorvantaCore", "No data set is shown: tick a row to draw it.");
    case ChartCheck::Drawable:
        break;
    }
    return nullptr;
}

int g_leadDataSet(const ChartModel &model)
{
    const int dataSets = model.usedDataSets();
    for (int i = 0; i < dataSets; ++i) {
        if (model.settings.lineFlags[i] & kLineShown)
            return i;
    }
    return -1;
}

FontSizes g_fontSizes(int viewWidth)
{
    FontSizes sizes;
    sizes.legend = qMax(9, viewWidth / 148);
    sizes.title = qMax(1, viewWidth / 80);
    sizes.axis = qMax(7, viewWidth / 140);
    return sizes;
}

bool g_legendAlignment(LegendPosition legendPosition, Qt::Alignment &alignment)
{
    switch (legendPosition) {
    case LegendPosition::Top:
        alignment = Qt::AlignTop;
        return true;
    case LegendPosition::Right:
        alignment = Qt::AlignRight;
        return true;
    case LegendPosition::Bottom:
        alignment = Qt::AlignBottom;
        return true;
    case LegendPosition::Left:
        alignment = Qt::AlignLeft;
        return true;
    default:
        return false;
    }
}

namespace {

// Whether format gives every tick a label different from its neighbour's.
bool labelsDiffer(qint64 begin, qint64 end, int tickCount, const QString &format)
{
    QString previous;
    for (int k = 0; k < tickCount; ++k) {
        const qint64 t = begin + qint64(double(end - begin) * k / (tickCount - 1));
        const QString label = QDateTime::fromMSecsSinceEpoch(t).toString(format);
        if (k > 0 && label == previous)
            return false;
        previous = label;
    }
    return true;
}

}  // namespace

QString g_timeAxisFormat(qint64 begin, qint64 end, int tickCount)
{
    static const char *const kOneDay[] = {"hh:mm ", "hh:mm:ss ", "hh:mm:ss.zzz "};
    static const char *const kDays[] = {"dd.MM.yyyy ", "dd.MM. hh:mm ", "dd.MM. hh:mm:ss ", "dd.MM. hh:mm:ss.zzz "};
    if (tickCount < 2 || end <= begin)
        return QString::fromLatin1(kDays[0]);
    const bool oneDay = QDateTime::fromMSecsSinceEpoch(begin).date() == QDateTime::fromMSecsSinceEpoch(end).date();
    const char *const *formats = oneDay ? kOneDay : kDays;
    const int count = oneDay ? 3 : 4;
    for (int j = 0; j < count - 1; ++j) {
        if (labelsDiffer(begin, end, tickCount, QString::fromLatin1(formats[j])))
            return QString::fromLatin1(formats[j]);
    }
    return QString::fromLatin1(formats[count - 1]);
}

int g_legendRows(const QVector<qreal> &entryWidths, qreal lineWidth)
{
    int rows = entryWidths.isEmpty() ? 0 : 1;
    qreal x = 0;
    for (int k = 0; k < entryWidths.size(); ++k) {
        x += entryWidths[k];
        if (x + entryWidths[k] > lineWidth && k + 1 < entryWidths.size()) {
            x = 0;
            ++rows;
        }
    }
    return rows;
}

int g_penWidth(quint8 lineWidth, bool forPrint)
{
    return forPrint ? lineWidth * 4 : lineWidth;
}

QString g_valueLabelFormat(quint8 decimals)
{
    return QStringLiteral(" %.%1f").arg(decimals);
}

QString g_provisionalSeriesName(const settingsT &settings, int dataSet)
{
    return g_buffer2QString(settings.name[dataSet], kNameWidth) + QStringLiteral(" (D=)");
}

}  // namespace qv

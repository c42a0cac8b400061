#include "core/chart/statistics.h"

#include "core/model/missingfilter.h"

#include "core/model/fixedstring.h"

#include <cmath>
#include <limits>

namespace qv {

const char *const kLongStatisticsText = QT_TRANSLATE_NOOP("QuorvantaCore", " (min %1 / ⌀ %2 / max %3 %4)");
const char *const kShortStatisticsText = QT_TRANSLATE_NOOP("QuorvantaCore", " (%1 / %2 / %3 %4)");

namespace {

constexpr double kLargest = std::numeric_limits<double>::max();
constexpr double kUntouched = 1e-7;

}  // namespace

SampleWindow g_statisticsWindow(const _chartDataType &timeBase, qint64 from, qint64 to)
{
    const int n = g_sampleCount(timeBase.count);
    int lastBeforeFrom = -1;
    int lastBeforeTo = -1;
    for (int k = 0; k < n; ++k) {
        if (timeBase.time[k] < from)
            lastBeforeFrom = k;
        if (timeBase.time[k] < to)
            lastBeforeTo = k;
    }
    SampleWindow window;
    window.first = lastBeforeFrom >= 0 ? lastBeforeFrom : 0;
    window.end = lastBeforeTo >= 0 ? lastBeforeTo : n;
    return window;
}

SeriesStatistics g_seriesStatistics(const _chartDataType &data, SampleWindow window)
{
    const int first = qMax(0, window.first);
    const int end = qMin(window.end, g_sampleCount(data.count));
    double minimum = kLargest;
    double maximum = -kLargest;
    double sum = 0.0;
    int count = 0;
    for (int k = first; k < end; ++k) {
        const double v = data.value[k];
        if (g_isMissingSample(v))
            continue;
        if (v < minimum)
            minimum = v;
        if (v > maximum)
            maximum = v;
        sum += v;
        ++count;
    }
    SeriesStatistics stats;
    stats.valid = !(std::fabs(minimum - kLargest) < kUntouched || std::fabs(maximum + kLargest) < kUntouched);
    stats.minimum = minimum;
    stats.maximum = maximum;
    stats.average = count > 0 ? sum / count : 0.0;
    return stats;
}

QString g_statisticsText(const QString &format, const SeriesStatistics &stats, const QString &unit)
{
    return format.arg(QString::number(stats.minimum, 'f', 2), QString::number(stats.average, 'f', 2),
                      QString::number(stats.maximum, 'f', 2), unit);
}

int g_firstDataSeriesIndex(const settingsT &settings)
{
    return (settings.flags & kFlagShowModeTrack) ? 2 : 0;
}

QVector<SeriesName> g_seriesNames(const ChartModel &model, qint64 from, qint64 to, const QString &longText,
                                  const QString &shortText)
{
    QVector<SeriesName> names;
    const int dataSets = model.usedDataSets();
    if (dataSets == 0)
        return names;
    const settingsT &s = model.settings;
    const SampleWindow window = g_statisticsWindow(*model.data(0), from, to);
    int seriesIndex = g_firstDataSeriesIndex(s);
    bool firstWithStatistics = true;
    for (int i = 0; i < dataSets; ++i) {
        if (!(s.lineFlags[i] & kLineShown))
            continue;
        SeriesName entry;
        entry.seriesIndex = seriesIndex++;
        entry.name = g_buffer2QString(s.name[i], kNameWidth);
        const SeriesStatistics stats = g_seriesStatistics(*model.data(i), window);
        if (stats.valid) {
            entry.name += g_statisticsText(firstWithStatistics ? longText : shortText, stats,
                                           g_buffer2QString(s.unit[i], kUnitWidth));
            firstWithStatistics = false;
        }
        names.append(entry);
    }
    return names;
}

}  // namespace qv

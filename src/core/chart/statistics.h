// Minimum, average and maximum of every shown data set over the visible time
// window, written into the legend entries of the chart's series.
#pragma once

#include "core/model/chartmodel.h"

#include <QString>
#include <QVector>

namespace qv {

// Legend texts (context "QuorvantaCore"): the first data set that gets
// statistics uses the long form, every later one the short form.
// %1 minimum, %2 average, %3 maximum (2 decimals each), %4 unit.
extern const char *const kLongStatisticsText;
extern const char *const kShortStatisticsText;

// Sample indices [first, end) on data set 0's time base for the window
// from..to: first is the last sample with t < from (0 if none), end the last
// sample with t < to (count if none). The window thus starts one sample
// before `from` and ends two samples before the last one not after `to`; the
// shift is kept on purpose, so the whole range leaves out the last two samples.
struct SampleWindow {
    int first = 0;
    int end = 0;
};
SampleWindow g_statisticsWindow(const _chartDataType &timeBase, qint64 from, qint64 to);

struct SeriesStatistics {
    bool valid = false;  // false: no valid value in the window
    double minimum = 0.0;
    double average = 0.0;
    double maximum = 0.0;
};
// Over the valid values of data inside window (clamped to data's own count).
SeriesStatistics g_seriesStatistics(const _chartDataType &data, SampleWindow window);

// format with %1..%3 as fixed 2-decimal numbers and %4 = unit.
QString g_statisticsText(const QString &format, const SeriesStatistics &stats, const QString &unit);

// Position of the first data set's series in the chart's series list: the two
// state-band areas come first in vaporix mode.
int g_firstDataSeriesIndex(const settingsT &settings);

struct SeriesName {
    int seriesIndex = 0;
    QString name;
};

// The legend names of the shown data sets, in slot order, for the window
// from..to. longText and shortText are the (translated) statistics texts.
QVector<SeriesName> g_seriesNames(const ChartModel &model, qint64 from, qint64 to, const QString &longText,
                                  const QString &shortText);

}  // namespace qv

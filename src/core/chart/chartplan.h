// The rules that decide what a chart build shows, free of any widget: whether
// the model can be drawn at all, which data set leads, the font sizes for a
// view width, the legend side, pen widths and axis label formats.
#pragma once

#include "core/model/chartmodel.h"

#include <QString>
#include <QVector>
#include <Qt>

namespace qv {

enum class ChartCheck {
    Drawable,
    NoDataSets,     // dataSetCount is 0
    TooFewSamples,  // a data set in use holds fewer than 8 samples
    NothingShown,   // no data set has its shown bit set
};

ChartCheck g_checkChartData(const ChartModel &model);

// Why nothing can be drawn, as the English source text (context
// "QuorvantaCore") that the chart area shows instead of a chart; null for
// Drawable.
const char *g_chartCheckText(ChartCheck check);

// The first shown data set in use (it carries the time axis and the state
// bands), or -1.
int g_leadDataSet(const ChartModel &model);

// Fonts scale with the view width W by integer division: legend W/148, title
// W/80, axis labels and titles W/140; the legend never below 9 points and
// the axes never below 7, so that small windows stay legible.
struct FontSizes {
    int legend = 1;
    int title = 1;
    int axis = 1;
};
FontSizes g_fontSizes(int viewWidth);

// The alignment of the legend at a position; false (legend hidden) for
// Hidden or any value that is no position.
bool g_legendAlignment(LegendPosition legendPosition, Qt::Alignment &alignment);

// Date-time format of a time axis whose tickCount ticks are spread evenly
// over begin..end (local time): "dd.MM.yyyy " while every tick falls on a
// day of its own; within one day the time alone ("hh:mm ", with seconds or
// milliseconds where minutes would repeat); otherwise day and time
// ("dd.MM. hh:mm ", likewise finer where needed).
QString g_timeAxisFormat(qint64 begin, qint64 end, int tickCount);

// Rows that a legend laid out left to right needs for entries of the given
// widths in a line of the given width. An entry starts a new row after one
// whose end, plus its own width again, would pass the line's end (the way
// the chart's free-standing legend wraps).
int g_legendRows(const QVector<qreal> &entryWidths, qreal lineWidth);

// Pen width of a data set's series; printing uses four times the width.
int g_penWidth(quint8 lineWidth, bool forPrint);

// printf-style label format of a value axis: " %.<decimals>f".
QString g_valueLabelFormat(quint8 decimals);

// Series name until the statistics replace it: "<name> (D=)".
QString g_provisionalSeriesName(const settingsT &settings, int dataSet);

// Whether the state bands are drawn (the vaporix-mode flag).
inline bool g_showsStateBands(const settingsT &settings)
{
    return (settings.flags & kFlagShowModeTrack) != 0;
}

}  // namespace qv

// Builds a whole chart of the model for a chart view: the data series with
// their reduced points, the state bands, the time and value axes, fonts and
// legend. Needs no chart widget, so a plain QChartView (a print view or a
// test) can show the result.
#pragma once

#include "core/model/chartmodel.h"

#include <QString>
#include <QVector>
#include <QtCharts/QChartGlobal>

namespace QtCharts {
class QChart;
class QChartView;
class QLineSeries;
class QXYSeries;
}  // namespace QtCharts

namespace qv {

struct ChartBuild {
    QtCharts::QChart *chart = nullptr;  // null when the model cannot be drawn
    // The two state-band lines (vaporix mode only, else null). The area
    // series do not own them: whoever keeps them releases them.
    QtCharts::QLineSeries *upperBand = nullptr;
    QtCharts::QLineSeries *lowerBand = nullptr;
    // The series of the shown data sets in slot order; the first is the
    // lead data set's series, which carries the time axis.
    QVector<QtCharts::QXYSeries *> dataSeries;
};

// Creates a new chart for a view of viewWidth pixels. Reduces through the
// model's work buffers (displayData, displayModeCodes). Returns an empty
// build, creating nothing, when the model has no drawable data.
ChartBuild g_buildChart(ChartModel &model, int viewWidth, bool forPrint);

// A chart without series that says, centred, why nothing can be drawn.
QtCharts::QChart *g_buildMessageChart(const QString &text, int viewWidth);

// The time axis labels suit the visible window from..to (see
// g_timeAxisFormat); runs with every build and every zoom step.
void g_applyTimeWindow(QtCharts::QChart *chart, qint64 from, qint64 to);

// The view takes chart; its previous chart is released by deferred deletion.
void g_installChart(QtCharts::QChartView *view, QtCharts::QChart *chart);

// Re-applies the model's zoom window (viewBegin..viewEnd) to an installed
// chart through the plot-area mapping of the lead series. Returns false when
// the chart is not zoomed (the window equals the selected range).
bool g_restoreZoom(QtCharts::QChart *chart, QtCharts::QXYSeries *lead, const settingsT &settings);

// Writes the legend statistics of the window from..to into the series names
// of chart (built from model).
void g_applySeriesStatistics(QtCharts::QChart *chart, const ChartModel &model, qint64 from, qint64 to);

}  // namespace qv

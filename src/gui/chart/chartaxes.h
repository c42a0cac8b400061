// The axes of a chart build: the date-time axis of the lead series, one value
// axis per shown data set and the hidden axis of the state bands.
#pragma once

#include "core/model/chartmodel.h"

#include <QVector>
#include <QtCharts/QChartGlobal>

namespace QtCharts {
class QAbstractSeries;
class QChart;
class QXYSeries;
}  // namespace QtCharts

namespace qv {

struct AxisStyle {
    int fontSize = 1;       // point size of labels and titles
    bool forPrint = false;  // thicker grid (and time axis line) on paper
};

// Bottom date-time axis (format as the visible window needs) with 31 ticks turned by 270 degrees,
// attached to every series in attachTo.
void g_addTimeAxis(QtCharts::QChart *chart, const QVector<QtCharts::QAbstractSeries *> &attachTo,
                   const AxisStyle &style);

// One value axis per entry of series (the shown data sets in slot order,
// matching dataSets): label format, unit title, fixed range, 21 ticks, grid
// only on the first, no axis line, labels and title in the series' colour, hidden unless its axis bit is set, left
// or right as its side bit says.
void g_addValueAxes(QtCharts::QChart *chart, const settingsT &settings, const QVector<int> &dataSets,
                    const QVector<QtCharts::QXYSeries *> &series, const AxisStyle &style);

// The hidden 0..8200 axis on the right that scales the two band areas.
void g_addBandAxis(QtCharts::QChart *chart, const QVector<QtCharts::QAbstractSeries *> &bands, const AxisStyle &style);

}  // namespace qv

// Reduction of a data set's samples to the points that are drawn: groups of
// g consecutive samples become one point, so that a series never carries more
// than about 2048 points on screen (4096 in print) whatever its sample count.
#pragma once

#include "core/model/chartmodel.h"

#include <QPointF>
#include <QVector>

namespace qv {

constexpr int kScreenPointLimit = 2048;
constexpr int kPrintPointLimit = 4096;
constexpr int kSplineGroupFactor = 4;  // spline curves get a quarter of the points

// Number of samples averaged into one drawn point: the smallest g with
// samplesInRange / g (integer division) at most the point limit, times 4 for
// spline charts. Always at least 1.
int g_groupSize(qint32 samplesInRange, bool forPrint, LineType lineType);

// Reduces the samples of source into out (time and value per point) and the
// state codes into outModes, both working copies of the model. A group starts
// at every sample k whose time lies in [begin, end] and covers k..k+g-1: time
// = integer mean of the times, value = mean of the values or the missing
// marker if any of them is missing, state = modes.code[k + g/2]. Samples
// outside the range advance by one. Walking stops at count - g, so the last
// g samples are never drawn. Returns the number of points, also written to
// out.count and outModes.count.
int g_reduceSamples(const _chartDataType &source, const modeCodesT &modes, qint64 begin, qint64 end, int groupSize,
                    _chartDataType &out, modeCodesT &outModes);

// The points handed to a series (x = time in ms, y = value): missing points
// are left out, except that a missing first or last point is drawn at 0.0.
// Replaces the contents of points; one allocation at most.
void g_drawnPoints(const _chartDataType &reduced, QVector<QPointF> &points);

}  // namespace qv

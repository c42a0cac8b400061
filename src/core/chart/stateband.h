// The device-state background of vaporix recordings: two polylines over the
// lead data set's drawn points. The area under the upper line is filled
// green while the state code is 11 or more, the area under the lower line red
// while it is below 11; with a hidden 0..8200 axis each band fills nearly the
// whole plot height.
#pragma once

#include "core/model/chartmodel.h"
#include "core/model/devicestate.h"

#include <QPointF>
#include <QVector>

namespace qv {

constexpr int kFirstGreenState = int(DeviceState::ManualOn);
constexpr double kBandHeight = 8192.0;
constexpr double kBandAxisMax = 8200.0;
constexpr quint32 kGreenBandColor = 0xFFC0FFC0;
constexpr quint32 kRedBandColor = 0xFFFFC0C0;

struct StateBands {
    QVector<QPointF> upper;  // bounds the green area
    QVector<QPointF> lower;  // bounds the red area
};

// Builds both lines from the reduced times and the matching reduced state
// codes. Every change of band (and the last point, which closes the band in
// progress by switching to the other one) adds a vertical step to each line.
void g_buildStateBands(const _chartDataType &reduced, const modeCodesT &reducedModes, StateBands &bands);

}  // namespace qv

#include "core/chart/stateband.h"

namespace qv {

namespace {

enum Band { kNoBand = -1, kRedBand = 0, kGreenBand = 1 };

}  // namespace

void g_buildStateBands(const _chartDataType &reduced, const modeCodesT &reducedModes, StateBands &bands)
{
    const int n = g_sampleCount(reduced.count);
    bands.upper.clear();
    bands.lower.clear();
    bands.upper.reserve(2 * n);
    bands.lower.reserve(2 * n);

    int previous = kNoBand;
    for (int j = 0; j < n; ++j) {
        const double t = double(reduced.time[j]);
        const int state = reducedModes.code[j];
        const double low = state;
        const double high = state + kBandHeight;
        const bool last = j == n - 1;
        int band = state >= kFirstGreenState ? kGreenBand : kRedBand;
        if (band == previous && !last)
            continue;
        if (last)
            band = previous == kGreenBand ? kRedBand : kGreenBand;
        if (band == kRedBand) {
            bands.upper << QPointF(t, high) << QPointF(t, low);
            bands.lower << QPointF(t, low) << QPointF(t, high);
        } else {
            bands.upper << QPointF(t, low) << QPointF(t, high);
            bands.lower << QPointF(t, high) << QPointF(t, low);
        }
        previous = band;
    }
}

}  // namespace qv

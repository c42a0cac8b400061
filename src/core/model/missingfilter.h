// A cheap first test before the exact missing-value test, for loops over
// whole stores: a missing value truncates to an integer whose low 32 bits are
// 0xBAADF00D, which no value of magnitude below 1163005939 (= 2^32 minus the
// marker) can do. Measured values are far below that, so the exact test runs
// only for the marker itself and for absurd values.
#pragma once

#include "core/model/chartmodel.h"

#include <cmath>

namespace qv {

constexpr double kSmallestMissingMagnitude = 4294967296.0 - double(kMissingMarker);

inline bool g_isMissingSample(double value)
{
    return !(std::fabs(value) < kSmallestMissingMagnitude) && g_isMissing(value);
}

}  // namespace qv

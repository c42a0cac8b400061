// Plain figures about a data set over the selected range, for the
// command-line tool's look inside a project.
#pragma once

#include "core/model/chartmodel.h"

namespace qv {

struct RangeFigures {
    int samplesInRange = 0;  // samples with rangeBegin <= time <= rangeEnd
    int validInRange = 0;    // of those, the ones with a value
    double minimum = 0.0;
    double average = 0.0;
    double maximum = 0.0;
};

RangeFigures g_rangeFigures(const _chartDataType &store, qint64 begin, qint64 end);

}  // namespace qv

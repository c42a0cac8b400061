#include "core/project/modelsummary.h"

namespace qv {

RangeFigures g_rangeFigures(const _chartDataType &store, qint64 begin, qint64 end)
{
    RangeFigures f;
    const int n = g_sampleCount(store.count);
    double sum = 0.0;
    for (int k = 0; k < n; ++k) {
        if (store.time[k] < begin || store.time[k] > end)
            continue;
        ++f.samplesInRange;
        const double v = store.value[k];
        if (g_isMissing(v))
            continue;
        if (f.validInRange == 0 || v < f.minimum)
            f.minimum = v;
        if (f.validInRange == 0 || v > f.maximum)
            f.maximum = v;
        sum += v;
        ++f.validInRange;
    }
    if (f.validInRange > 0)
        f.average = sum / f.validInRange;
    return f;
}

}  // namespace qv

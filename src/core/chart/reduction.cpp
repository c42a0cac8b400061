#include "core/chart/reduction.h"

#include "core/model/missingfilter.h"

namespace qv {

int g_groupSize(qint32 samplesInRange, bool forPrint, LineType lineType)
{
    const qint64 limit = forPrint ? kPrintPointLimit : kScreenPointLimit;
    // The smallest g with samples / g <= limit is samples / (limit + 1) + 1.
    const qint64 samples = samplesInRange > 0 ? samplesInRange : 0;
    int group = int(samples / (limit + 1) + 1);
    if (lineType == LineType::Spline)
        group *= kSplineGroupFactor;
    return group;
}

int g_reduceSamples(const _chartDataType &source, const modeCodesT &modes, qint64 begin, qint64 end, int groupSize,
                    _chartDataType &out, modeCodesT &outModes)
{
    const int n = g_sampleCount(source.count);
    const int g = groupSize > 0 ? groupSize : 1;
    int points = 0;
    int k = 0;
    // k + g < n keeps every index of a group, and k + g/2, inside the stores.
    while (k < n - g) {
        const qint64 first = source.time[k];
        if (first < begin || first > end) {
            ++k;
            continue;
        }
        // Times are summed with 64-bit wrap-around, as plain integer sums do.
        quint64 timeSum = 0;
        double valueSum = 0.0;
        bool missing = false;
        for (int i = k; i < k + g; ++i) {
            timeSum += quint64(source.time[i]);
            const double v = source.value[i];
            if (g_isMissingSample(v))
                missing = true;
            else
                valueSum += v;
        }
        out.time[points] = qint64(timeSum) / g;
        out.value[points] = missing ? kMissingValue : valueSum / g;
        outModes.code[points] = modes.code[k + g / 2];
        ++points;
        k += g;
    }
    out.count = points;
    outModes.count = points;
    return points;
}

void g_drawnPoints(const _chartDataType &reduced, QVector<QPointF> &points)
{
    const int n = g_sampleCount(reduced.count);
    points.resize(n);
    QPointF *p = points.data();
    int drawn = 0;
    for (int j = 0; j < n; ++j) {
        const double v = reduced.value[j];
        if (!g_isMissing(v))
            p[drawn++] = QPointF(double(reduced.time[j]), v);
        else if (j == 0 || j == n - 1)
            p[drawn++] = QPointF(double(reduced.time[j]), 0.0);
    }
    points.resize(drawn);
}

}  // namespace qv

// Synthetic but plausible climate recordings (daily temperature cycles,
// humidity that follows them, sensor noise, occasional gaps) for the bundled
// sample and the benchmarks.
#pragma once

#include "core/model/chartmodel.h"

namespace qv {

struct SynthOptions {
    int dataSets = 6;                // 1..16
    int samples = 4032;              // per data set
    qint64 startMs = 1761955200000;  // 2025-11-01 00:00 UTC
    int intervalSeconds = 600;
    quint32 seed = 20251101;
    double gapRate = 0.001;  // share of samples without a value
};

// Fills names, units, decimals, axis ranges, times and values of the model.
void g_synthesiseRecording(ChartModel &model, const SynthOptions &options);

// The largest recording a project holds: 16 data sets of `samples` samples
// (all a store takes by default), one a minute. What the benchmarks measure.
void g_synthesiseMaximum(ChartModel &model, int samples = kMaxSamples);

}  // namespace qv

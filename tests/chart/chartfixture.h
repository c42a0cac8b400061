// Crafted projects for the chart tests: regular time stamps one minute
// apart, values that are easy to reason about, optional state codes.
#pragma once

#include "project/chartmodel.h"

#include <QVector>

namespace chartfixture {

constexpr qint64 kStart = 1700000000000;  // ms
constexpr qint64 kStep = 60000;           // one sample per minute

inline qint64 timeOf(int k) { return kStart + k * kStep; }

// value of data set i at sample k: 10 i + (k mod 20) / 2
inline double valueOf(int i, int k) { return 10.0 * i + (k % 20) * 0.5; }

// Fills data sets 0..dataSets-1 with `samples` samples each and gives them
// names "Set <i>", units "u<i>", decimals i mod 3, axis range
// [-i, 100 + i]; selects the whole range (zoom window = range) and counts it.
// Line flags keep the construction defaults.
void fill(qv::ChartModel &model, int dataSets, int samples);

// Stores state codes for every sample (repeating codes) and switches the
// vaporix mode on.
void setModes(qv::ChartModel &model, const QVector<int> &codes);

// Sets exactly the shown bits listed.
void showOnly(qv::ChartModel &model, const QVector<int> &dataSets);

}  // namespace chartfixture

// The printed page: one A4 landscape sheet at 600 dots per inch with the
// chart above a band of the device parameters. Everything here is in device
// pixels of that page, origin top left, so it can be checked without a
// printer.
#pragma once

#include "core/model/chartmodel.h"

#include <QRect>
#include <QString>
#include <QVector>

namespace qv {

constexpr int kPageDpi = 600;
constexpr int kPageMarginX = 192;     // left and right of the chart
constexpr int kPageMarginTop = 96;    // above the chart
constexpr int kPageBandHeight = 288;  // below the chart, for the parameters

// Where the chart goes on a page of width x height pixels.
QRect g_pageChartRect(int width, int height);

// One entry of the parameter band: a label (source text, translated when
// drawn) at labelX and its value at valueX, both on the baseline y.
struct PageBandEntry {
    int labelX;
    int valueX;
    int y;
    const char *label;
    QString value;
};

// A number right-aligned in five digit places (the decimal point takes no
// place of its own), then a blank and the unit: 1.5 with 2 decimals in g/kg
// gives "  1.50 g/kg", 60 with none in sec gives "   60 sec".
QString g_bandValue(double value, int decimals, const QString &unit);

// The band's entries for a page of the given height, column by column and
// top to bottom; empty when the model carries no device parameter block.
QVector<PageBandEntry> g_pageBand(const settingsT &settings, const modeParametersT &parameters, int pageHeight);

}  // namespace qv

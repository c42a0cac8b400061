#include "core/chart/pagelayout.h"

#include <QtGlobal>

namespace qv {

namespace {

// The parameter a band entry shows.
enum Source { Double, ControlTime, Interval, None };

struct BandField {
    const char *label;
    Source source;
    int index;  // into the doubles
    int decimals;
    const char *unit;
};

constexpr int kBandColumns = 5;
constexpr int kBandLines = 3;
constexpr int kLabelX[kBandColumns] = {592, 1798, 3004, 4210, 5416};
constexpr int kValueOffset = 680;  // value x = label x + 680
constexpr int kLineFromBottom[kBandLines] = {240, 144, 48};

// clang-format off
const BandField kBand[kBandColumns][kBandLines] = {
    {{QT_TRANSLATE_NOOP("QuorvantaCore", "min. Humidity In:"), Double, 0, 0, "%"},
     {QT_TRANSLATE_NOOP("QuorvantaCore", "max. Humidity In:"), Double, 1, 0, "%"},
     {QT_TRANSLATE_NOOP("QuorvantaCore", "Frost Protection:"), Double, 4, 1, "\xC2\xB0" "C"}},
    {{QT_TRANSLATE_NOOP("QuorvantaCore", "min. Temp In:"), Double, 2, 1, "\xC2\xB0" "C"},
     {QT_TRANSLATE_NOOP("QuorvantaCore", "max. Temp In:"), Double, 3, 1, "\xC2\xB0" "C"},
     {QT_TRANSLATE_NOOP("QuorvantaCore", "Intervall:"), Interval, 0, 0, "sec"}},
    {{QT_TRANSLATE_NOOP("QuorvantaCore", "Offset Temp In:"), Double, 7, 1, "\xC2\xB0" "C"},
     {QT_TRANSLATE_NOOP("QuorvantaCore", "Offset Temp Out:"), Double, 8, 1, "\xC2\xB0" "C"},
     {QT_TRANSLATE_NOOP("QuorvantaCore", "control Time:"), ControlTime, 0, 0, "min"}},
    {{QT_TRANSLATE_NOOP("QuorvantaCore", "Offset Humidity In:"), Double, 9, 1, "%"},
     {QT_TRANSLATE_NOOP("QuorvantaCore", "Offset Humidity Out:"), Double, 10, 1, "%"},
     {nullptr, None, 0, 0, nullptr}},
    {{QT_TRANSLATE_NOOP("QuorvantaCore", "Hysteresis On:"), Double, 5, 2, "g/kg"},
     {QT_TRANSLATE_NOOP("QuorvantaCore", "Hysteresis Off:"), Double, 6, 2, "g/kg"},
     {nullptr, None, 0, 0, nullptr}},
};
// clang-format on

}  // namespace

QRect g_pageChartRect(int width, int height)
{
    return QRect(kPageMarginX, kPageMarginTop, width - 2 * kPageMarginX, height - kPageMarginTop - kPageBandHeight);
}

QString g_bandValue(double value, int decimals, const QString &unit)
{
    const int width = decimals > 0 ? 6 : 5;
    return QStringLiteral("%1 ").arg(value, width, 'f', decimals) + unit;
}

QVector<PageBandEntry> g_pageBand(const settingsT &settings, const modeParametersT &parameters, int pageHeight)
{
    QVector<PageBandEntry> band;
    if (!settings.hasModeData)
        return band;
    for (int column = 0; column < kBandColumns; ++column) {
        for (int line = 0; line < kBandLines; ++line) {
            const BandField &f = kBand[column][line];
            if (f.source == None)
                continue;
            const double value = f.source == Double        ? parameters.parameter[f.index]
                                 : f.source == ControlTime ? double(parameters.intParameter[0])
                                                           : double(parameters.interval);
            band.append({kLabelX[column], kLabelX[column] + kValueOffset, pageHeight - kLineFromBottom[line], f.label,
                         g_bandValue(value, f.decimals, QString::fromUtf8(f.unit))});
        }
    }
    return band;
}

}  // namespace qv

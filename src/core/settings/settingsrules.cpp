#include "core/settings/settingsrules.h"

#include "core/model/fixedstring.h"

#include <QCoreApplication>

namespace qv {

SeriesFields g_loadSeries(const settingsT &settings, int index)
{
    SeriesFields f;
    if (index < 0 || index >= kMaxDataSets)
        return f;
    const quint32 flags = settings.lineFlags[index];
    f.color = settings.color[index];
    f.enabled = flags & kLineShown;
    f.axis = flags & kLineOwnAxis;
    f.right = flags & kLineAxisRight;
    f.size = settings.lineWidth[index];
    f.name = g_buffer2QString(settings.name[index], kNameWidth);
    f.unit = g_buffer2QString(settings.unit[index], kUnitWidth);
    f.minimum = settings.axisMin[index];
    f.maximum = settings.axisMax[index];
    f.decimals = settings.decimals[index];
    return f;
}

void g_storeSeries(settingsT &settings, int index, const SeriesFields &f)
{
    if (index < 0 || index >= kMaxDataSets)
        return;
    settings.color[index] = f.color;
    settings.lineFlags[index] =
        (f.enabled ? kLineShown : 0) | (f.axis ? kLineOwnAxis : 0) | (f.right ? kLineAxisRight : 0);
    settings.lineWidth[index] = quint8(qBound(0, f.size, 255));
    g_qString2Buffer(settings.name[index], f.name, kNameWidth);
    g_qString2Buffer(settings.unit[index], f.unit, kUnitWidth);
    const double low = f.minimum;
    const double high = qMax(f.minimum, f.maximum);
    // An axis needs some height: a span below 1.0 grows by half a unit each way.
    if (high - low < 1.0) {
        settings.axisMin[index] = low - 0.5;
        settings.axisMax[index] = high + 0.5;
    } else {
        settings.axisMin[index] = low;
        settings.axisMax[index] = high;
    }
    settings.decimals[index] = quint8(qBound(0, f.decimals, 255));
}

SeriesCheck g_checkSeries(const settingsT &settings)
{
    const int count = qBound(0, settings.dataSetCount, kMaxDataSets);
    int shown = 0, axes = 0;
    for (int i = 0; i < count; ++i) {
        if (!(settings.lineFlags[i] & kLineShown))
            continue;
        ++shown;
        if (settings.lineFlags[i] & kLineOwnAxis)
            ++axes;
    }
    if (shown == 0)
        return SeriesCheck::NoData;
    if (axes == 0)
        return SeriesCheck::NoAxis;
    if (axes > 6)
        return SeriesCheck::TooManyAxes;
    return SeriesCheck::Drawable;
}

const char *g_seriesCheckText(SeriesCheck check)
{
    switch (check) {
    case SeriesCheck::NoData:
        return QT_TRANSLATE_NOOP("QuorvantaCore", "At least 1 set of data must be displayed !");
    case SeriesCheck::NoAxis:
        return QT_TRANSLATE_NOOP("QuorvantaCore", "At least 1 axis must be displayed !");
    case SeriesCheck::TooManyAxes:
        return QT_TRANSLATE_NOOP("QuorvantaCore", "It's not possible displaying more than 6 axis !");
    case SeriesCheck::Drawable:
        break;
    }
    return "";
}

bool g_applyRange(settingsT &settings, qint64 begin, qint64 end)
{
    const bool changed = settings.rangeBegin != begin || settings.rangeEnd != end;
    settings.rangeBegin = qMax(begin, settings.firstTime);
    settings.rangeEnd = qMin(end, settings.lastTime);
    if (settings.rangeBegin >= settings.rangeEnd) {
        settings.rangeBegin = settings.firstTime;
        settings.rangeEnd = settings.lastTime;
    }
    // A zoom survives an OK that leaves the range alone.
    if (changed) {
        settings.viewBegin = settings.rangeBegin;
        settings.viewEnd = settings.rangeEnd;
    }
    return changed;
}

int g_legendButton(LegendPosition position)
{
    switch (position) {
    case LegendPosition::Top:
        return 0;
    case LegendPosition::Right:
        return 1;
    case LegendPosition::Bottom:
        return 2;
    case LegendPosition::Left:
        return 3;
    default:
        return 4;
    }
}

LegendPosition g_legendPosition(int button)
{
    static const LegendPosition positions[5] = {LegendPosition::Top, LegendPosition::Right, LegendPosition::Bottom,
                                                LegendPosition::Left, LegendPosition::Hidden};
    return button >= 0 && button < 5 ? positions[button] : LegendPosition::Hidden;
}

}  // namespace qv

// The exact rules of the living chart, without a window: the time window
// after a wheel step (in pixels of the plot area, mapped to time by the
// caller's chart) or a pan step, the state under the pointer, and the spike of
// the hover callout.
#pragma once

#include <QPointF>
#include <QRectF>
#include <QtGlobal>

#include <functional>

namespace qv {

// Maps a pixel column of the chart to its time stamp (the x of the chart
// value at that column, truncated to whole milliseconds).
using PixelToTime = std::function<qint64(int pixel)>;

struct PixelWindow {
    enum Outcome { Ignore, ResetZoom, Zoom } outcome = Ignore;
    int left = 0;  // pixel columns of the new window
    int right = 0;
    qint64 begin = 0;  // their time stamps
    qint64 end = 0;
};

// One wheel step over a plot area starting at plotX, plotWidth wide, with the
// pointer at pointerX; delta > 0 zooms in, < 0 out, 0 is ignored. The
// window is kept inside rangeBegin..rangeEnd by walking it a pixel at a time;
// a zoom out that would pass both ends shows the whole range (ResetZoom).
PixelWindow g_wheelWindow(double plotX, double plotWidth, double pointerX, int delta, qint64 rangeBegin,
                          qint64 rangeEnd, const PixelToTime &timeAt);

// The window begin..end moved by `pixels` of a plot plotWidth wide (positive:
// toward later times) and kept inside rangeBegin..rangeEnd: a step that would
// pass an end stops with the window exactly at that end. moved is false when
// the window stays where it is (at that end already, or as wide as the range).
struct PanWindow {
    bool moved = false;
    qint64 begin = 0;
    qint64 end = 0;
};
PanWindow g_panWindow(qint64 begin, qint64 end, double pixels, double plotWidth, qint64 rangeBegin, qint64 rangeEnd);

// A pointer coordinate to a whole pixel, halves away from zero.
int g_pointerPixel(double x);

// Index of the device state shown at time t: the recording starts at
// firstTime, one sample every intervalSeconds (0: taken as milliseconds).
// Rounded half away from zero; may be negative or past the codes.
qint64 g_stateIndex(qint64 t, qint64 firstTime, qint32 intervalSeconds);

// The spike from the balloon (in item coordinates, starting at 0, 0) to the
// anchor: none when the anchor lies inside the balloon.
struct CalloutSpike {
    bool drawn = false;
    QPointF foot1;
    QPointF foot2;
};
CalloutSpike g_calloutSpike(const QRectF &balloon, const QPointF &anchor);

}  // namespace qv

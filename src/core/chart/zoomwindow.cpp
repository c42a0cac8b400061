#include "core/chart/zoomwindow.h"

#include <QtGlobal>

#include <cmath>

namespace qv {

namespace {

// Walks the window of w one pixel at a time by step (-1 or +1) until its
// outer side is back inside the range. The inner side leaving the range on
// the way ends the step: a zoom out then shows the whole built range.
bool walkInside(PixelWindow &w, int step, int maxSteps, bool zoomOut, qint64 rangeBegin, qint64 rangeEnd,
                const PixelToTime &timeAt)
{
    auto outside = [&] { return step < 0 ? w.end > rangeEnd : w.begin < rangeBegin; };
    for (int steps = 0; outside(); ++steps) {
        if (steps >= maxSteps) {
            w.outcome = PixelWindow::Ignore;
            return false;
        }
        w.left += step;
        w.right += step;
        w.begin = timeAt(w.left);
        w.end = timeAt(w.right);
        if (step < 0 ? w.begin < rangeBegin : w.end > rangeEnd) {
            w.outcome = zoomOut ? PixelWindow::ResetZoom : PixelWindow::Ignore;
            return false;
        }
    }
    return true;
}

}  // namespace

PixelWindow g_wheelWindow(double plotX, double plotWidth, double pointerX, int delta, qint64 rangeBegin,
                          qint64 rangeEnd, const PixelToTime &timeAt)
{
    PixelWindow w;
    if (delta == 0)
        return w;
    // The window narrows or widens by 5 % and is pulled a twentieth of the
    // pointer's distance from the centre toward the pointer.
    const double pull = (double(int(pointerX)) - (plotX + 0.5 * plotWidth)) * 0.05;
    const bool zoomOut = delta < 0;
    const double left = zoomOut ? plotX - pull - 0.025 * plotWidth : plotX + pull + 0.025 * plotWidth;
    const double width = zoomOut ? plotWidth / 0.95 : plotWidth * 0.95;
    w.left = int(left) + 1;
    w.right = int(left + width) - 1;
    w.begin = timeAt(w.left);
    w.end = timeAt(w.right);
    if (w.end > rangeEnd) {
        if (w.begin < rangeBegin) {
            // Wider than the whole range: a zoom out shows the range whole
            // (else a window a pixel narrower than the range would stay).
            w.outcome = zoomOut ? PixelWindow::ResetZoom : PixelWindow::Ignore;
            return w;
        }
        if (!walkInside(w, -1, 4096, zoomOut, rangeBegin, rangeEnd, timeAt))
            return w;
    }
    if (w.begin < rangeBegin && !walkInside(w, +1, 4097, zoomOut, rangeBegin, rangeEnd, timeAt))
        return w;
    w.outcome = w.end > rangeEnd ? PixelWindow::Ignore : PixelWindow::Zoom;
    return w;
}

PanWindow g_panWindow(qint64 begin, qint64 end, double pixels, double plotWidth, qint64 rangeBegin, qint64 rangeEnd)
{
    PanWindow w;
    w.begin = begin;
    w.end = end;
    if (!(plotWidth > 0) || end - begin >= rangeEnd - rangeBegin)
        return w;
    // Time stamps are whole milliseconds far below 2^53, exact as doubles.
    const double shift = pixels * double(end - begin) / plotWidth;
    const qint64 step = std::llround(qBound(double(rangeBegin) - double(begin), shift, double(rangeEnd) - double(end)));
    w.moved = step != 0;
    w.begin += step;
    w.end += step;
    return w;
}

int g_pointerPixel(double x)
{
    return int(std::round(x));
}

qint64 g_stateIndex(qint64 t, qint64 firstTime, qint32 intervalSeconds)
{
    double samples = double(t - firstTime);
    if (intervalSeconds != 0)
        samples /= intervalSeconds;
    return qint64(std::round(samples / 1000.0 - 1.5));
}

CalloutSpike g_calloutSpike(const QRectF &r, const QPointF &a)
{
    CalloutSpike spike;
    if (r.contains(a))
        return spike;
    const double cx = r.center().x(), cy = r.center().y();
    const int above = a.y() <= r.top(), aboveCentre = a.y() > r.top() && a.y() <= cy;
    const int belowCentre = a.y() > cy && a.y() <= r.bottom(), below = a.y() > r.bottom();
    const int onLeft = a.x() <= r.left(), leftOfCentre = a.x() > r.left() && a.x() <= cx;
    const int rightOfCentre = a.x() > cx && a.x() <= r.right(), onRight = a.x() > r.right();
    // The nearest corner; off a corner the spike leaves the side it points along.
    const double x = (onRight + rightOfCentre) * r.width();
    const double y = (below + belowCentre) * r.height();
    const int corner = (above || below) && (onLeft || onRight);
    const int vertical = std::abs(a.x() - x) > std::abs(a.y() - y);
    const int horizontal = !vertical;
    spike.drawn = true;
    spike.foot1 =
        QPointF(x + leftOfCentre * 10 - rightOfCentre * 20 + corner * horizontal * (onLeft * 10 - onRight * 20),
                y + aboveCentre * 10 - belowCentre * 20 + corner * vertical * (above * 10 - below * 20));
    spike.foot2 =
        QPointF(x + leftOfCentre * 20 - rightOfCentre * 10 + corner * horizontal * (onLeft * 20 - onRight * 10),
                y + aboveCentre * 20 - belowCentre * 10 + corner * vertical * (above * 20 - below * 10));
    return spike;
}

}  // namespace qv

#include "core/chart/displaysize.h"

namespace qv {

qint32 g_zoomIn(qint32 zoom)
{
    if (g_isFitMode(zoom))
        return 150;
    if (zoom > 999)
        return zoom;
    return zoom >= 100 ? zoom + 50 : zoom + 10;
}

qint32 g_zoomOut(qint32 zoom)
{
    if (g_isFitMode(zoom))
        return 90;
    if (zoom == 0)
        return zoom;
    return zoom <= 100 ? zoom - 10 : zoom - 50;
}

DisplaySize g_displaySize(qint32 zoom, QSize available, QSize fittedSize)
{
    const int aw = available.width();
    const int ah = available.height();
    int w = 0;
    int h = 0;
    switch (zoom) {
    case kZoomFitWidth:
        w = aw;
        h = int(w / kSqrt2);
        if (h > ah) {  // leave room for the vertical scroll bar
            w = aw - 20;
            h = int(w / kSqrt2);
        }
        return {QSize(w, h), true};
    case kZoomFitHeight:
        h = ah;
        w = int(h * kSqrt2);
        if (w > aw) {
            h = ah - 20;
            w = int(h * kSqrt2);
        }
        return {QSize(w, h), true};
    case kZoomFitPage:
        if (ah > 0 && double(aw) / double(ah) > kSqrt2) {
            w = int(ah * kSqrt2);
            h = ah;
        } else {
            w = aw;
            h = int(w / kSqrt2);
        }
        return {QSize(w, h), true};
    default:
        break;
    }
    w = int(qint64(zoom) * fittedSize.width() / 100);
    h = int(w / kSqrt2);
    return {QSize(w, h), false};
}

QSize g_firstWindowSize(QSize designed, QSize available)
{
    // Room for a title bar and frame that the free area does not count.
    constexpr int kFrameWidth = 16;
    constexpr int kFrameHeight = 48;
    return QSize(qBound(1, available.width() - kFrameWidth, designed.width()),
                 qBound(1, available.height() - kFrameHeight, designed.height()));
}

}  // namespace qv

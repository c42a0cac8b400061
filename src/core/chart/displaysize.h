// Size of the chart widget in the main window's scroll area: three fit
// modes and a percentage of the last fitted width, always in the page
// proportion 1 : sqrt(2).
#pragma once

#include <QSize>
#include <QtGlobal>

namespace qv {

constexpr qint32 kZoomFitWidth = qint32(0x80000001u);
constexpr qint32 kZoomFitHeight = qint32(0x80000002u);
constexpr qint32 kZoomFitPage = qint32(0x80000003u);
constexpr double kSqrt2 = 1.4142135623730951;

constexpr bool g_isFitMode(qint32 zoom)
{
    return zoom < 0;
}

// The display size mode after "Zoom In" / "Zoom Out".
qint32 g_zoomIn(qint32 zoom);
qint32 g_zoomOut(qint32 zoom);

struct DisplaySize {
    QSize size;
    bool fitted;  // a fit mode: the size becomes the new fitted size
};

// available: the central area minus the data set panel and the margins.
DisplaySize g_displaySize(qint32 zoom, QSize available, QSize fittedSize);

// The main window's size on a first start (no stored place): the designed
// size, made smaller where the screen's free area (less room for the window
// frame) cannot hold it.
QSize g_firstWindowSize(QSize designed, QSize available);

}  // namespace qv

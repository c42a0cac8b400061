// The living chart: wheel zoom and drag pan of the time axis inside the
// selected range, the same by keyboard, the device state under the pointer
// and the hover callout.
#include "document/qvchartclass.h"

#include "core/base/coretexts.h"
#include "core/chart/zoomwindow.h"
#include "core/model/devicestate.h"
#include "gui/chart/tooltipclass.h"

#include <QDateTime>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QTimer>
#include <QWheelEvent>
#include <QtCharts/QAbstractAxis>
#include <QtCharts/QChart>
#include <QtCharts/QDateTimeAxis>
#include <QtCharts/QXYSeries>

namespace {

// How long a gesture rests before the chart is drawn smooth again.
constexpr int kSettleMs = 150;
// While a gesture runs, one drawn point in this many is kept.
constexpr int kThinning = 8;

// A chart x (milliseconds) as a time stamp; a plot without size can give
// anything, which must not overflow the conversion.
qint64 toTime(double x)
{
    return x > -9.2e18 && x < 9.2e18 ? qint64(x) : 0;
}

// The time stamp at a pixel column of the chart (any y will do).
qv::PixelToTime timeAtPixel(QtCharts::QChart *chart)
{
    return [chart](int pixel) { return toTime(chart->mapToValue(QPointF(pixel, 128.0)).x()); };
}

bool hasSeries(QtCharts::QChart *chart)
{
    return chart && !chart->series().isEmpty();
}

}  // namespace

void QVChartClass::m_takeWindow(qint64 begin, qint64 end)
{
    m_setMinMaxAvg(chart(), begin, end);
    settings.viewBegin = begin;
    settings.viewEnd = end;
    // Another time lies under the pointer now; the next move names its state.
    infoLabel->clear();
}

bool QVChartClass::m_wheelStep(double x, int delta)
{
    QtCharts::QChart *view = chart();
    if (!hasSeries(view) || delta == 0)
        return false;
    const QRectF area = view->plotArea();
    const qv::PixelWindow w =
        qv::g_wheelWindow(area.x(), area.width(), x, delta, settings.rangeBegin, settings.rangeEnd, timeAtPixel(view));
    if (w.outcome == qv::PixelWindow::ResetZoom) {
        // The window would pass both ends: the whole range is shown, and the
        // legend and the stored window say so too.
        view->zoomReset();
        m_takeWindow(settings.rangeBegin, settings.rangeEnd);
        return true;
    }
    if (w.outcome != qv::PixelWindow::Zoom)
        return false;
    m_fastFrame();
    m_takeWindow(w.begin, w.end);
    view->zoomIn(QRectF(w.left, area.top(), w.right - w.left, area.height()));
    return true;
}

bool QVChartClass::m_panStep(double pixels)
{
    QtCharts::QChart *view = chart();
    if (!hasSeries(view))
        return false;
    const qv::PanWindow w = qv::g_panWindow(settings.viewBegin, settings.viewEnd, pixels, view->plotArea().width(),
                                            settings.rangeBegin, settings.rangeEnd);
    if (!w.moved)
        return false;
    m_fastFrame();
    m_takeWindow(w.begin, w.end);
    // The axis takes the window itself, not a scroll by whole pixels, so that
    // it ends exactly where the range ends.
    for (QtCharts::QAbstractAxis *axis : view->axes(Qt::Horizontal)) {
        if (auto *time = qobject_cast<QtCharts::QDateTimeAxis *>(axis))
            time->setRange(QDateTime::fromMSecsSinceEpoch(w.begin), QDateTime::fromMSecsSinceEpoch(w.end));
    }
    return true;
}

void QVChartClass::m_dragStep(int x)
{
    // Past an end the window stays there; dragging back moves it at once.
    m_panStep(lastX - x);
    lastX = x;
}

void QVChartClass::m_fastFrame()
{
    if (!settleTimer) {
        settleTimer = new QTimer(this);
        settleTimer->setSingleShot(true);
        settleTimer->setInterval(kSettleMs);
        connect(settleTimer, &QTimer::timeout, this, &QVChartClass::m_settle);
    }
    if (!settleTimer->isActive() && chart()) {
        // Every eighth point (and the last) while the gesture runs: the
        // chart lays out and paints an eighth of the points per step.
        thinnedChart = chart();
        fullPoints.clear();
        for (QtCharts::QAbstractSeries *series : thinnedChart->series()) {
            auto *line = qobject_cast<QtCharts::QXYSeries *>(series);
            if (!line)
                continue;
            const QVector<QPointF> all = line->pointsVector();
            QVector<QPointF> few;
            few.reserve(all.size() / kThinning + 2);
            for (int k = 0; k < all.size(); k += kThinning)
                few << all[k];
            if (!all.isEmpty() && (all.size() - 1) % kThinning != 0)
                few << all.last();
            fullPoints << all;
            line->replace(few);
        }
    }
    // A callout would point at where its line was before the step.
    if (tooltip)
        tooltip->hide();
    setRenderHint(QPainter::Antialiasing, false);
    settleTimer->start();
}

void QVChartClass::m_settle()
{
    // A rebuild during the gesture brought full lines of its own.
    if (thinnedChart && thinnedChart == chart()) {
        int j = 0;
        for (QtCharts::QAbstractSeries *series : thinnedChart->series()) {
            auto *line = qobject_cast<QtCharts::QXYSeries *>(series);
            if (line && j < fullPoints.size())
                line->replace(fullPoints[j++]);
        }
    }
    thinnedChart = nullptr;
    fullPoints.clear();
    setRenderHint(QPainter::Antialiasing, true);
    viewport()->update();
}

void QVChartClass::wheelEvent(QWheelEvent *event)
{
    m_wheelStep(event->position().x(), event->angleDelta().y());
}

void QVChartClass::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        lastX = qv::g_pointerPixel(event->localPos().x());
}

// A flick may bring its release without a move at the same place: the
// release takes the last step.
void QVChartClass::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton && !(event->buttons() & Qt::LeftButton))
        m_dragStep(qv::g_pointerPixel(event->localPos().x()));
    QtCharts::QChartView::mouseReleaseEvent(event);
}

void QVChartClass::mouseMoveEvent(QMouseEvent *event)
{
    if (event->buttons() == Qt::LeftButton) {
        m_dragStep(qv::g_pointerPixel(event->localPos().x()));
        return;
    }
    if (settings.flags & qv::kFlagShowModeTrack)
        m_showState(event->localPos());
    QtCharts::QChartView::mouseMoveEvent(event);
}

void QVChartClass::keyPressEvent(QKeyEvent *event)
{
    QtCharts::QChart *view = chart();
    if (!hasSeries(view)) {
        QtCharts::QChartView::keyPressEvent(event);
        return;
    }
    const QRectF area = view->plotArea();
    const int centre = int(area.center().x());
    switch (event->key()) {
    case Qt::Key_Plus:
        m_wheelStep(centre, 120);
        break;
    case Qt::Key_Minus:
        m_wheelStep(centre, -120);
        break;
    case Qt::Key_Left:
    case Qt::Key_Right:
        // A tenth of the plot; near an edge the window stops at it.
        m_panStep((event->key() == Qt::Key_Left ? -0.1 : 0.1) * area.width());
        break;
    case Qt::Key_Home:
        view->zoomReset();
        m_takeWindow(settings.rangeBegin, settings.rangeEnd);
        break;
    default:
        QtCharts::QChartView::keyPressEvent(event);
    }
}

void QVChartClass::m_showState(QPointF position)
{
    QtCharts::QChart *view = m_callout()->m_getChart();
    if (!hasSeries(view))
        return;
    const QPointF pixel(qv::g_pointerPixel(position.x()), qv::g_pointerPixel(position.y()));
    const qint64 t = toTime(view->mapToValue(pixel).x());
    const qint64 index = qv::g_stateIndex(t, settings.firstTime, settings.sampleInterval);
    const modeCodesT &codes = *model().modeCodes();
    if (index < 0 || index >= codes.count) {
        infoLabel->clear();
        return;
    }
    infoLabel->setText(tr("State: ") + qv::g_coreText(qv::g_stateName(codes.code[index])) + QLatin1String("<center>") +
                       QDateTime::fromMSecsSinceEpoch(t).toString(QStringLiteral("dd.MM.yyyy hh:mm")));
}

ToolTipClass *QVChartClass::m_callout()
{
    // An item of the view's scene rather than of one chart, so that a
    // rebuild, which releases the old chart, never takes it along.
    if (!tooltip) {
        tooltip = new ToolTipClass(nullptr);
        tooltip->hide();
        scene()->addItem(tooltip);
    }
    if (tooltip->m_getChart() != chart()) {
        tooltip->hide();
        tooltip->m_setChart(chart());
    }
    return tooltip;
}

void QVChartClass::s_tooltip(QPointF point, bool state)
{
    ToolTipClass *callout = m_callout();
    auto *series = qobject_cast<QtCharts::QXYSeries *>(sender());
    if (!state || !series ||
        (series->type() != QtCharts::QAbstractSeries::SeriesTypeLine &&
         series->type() != QtCharts::QAbstractSeries::SeriesTypeSpline)) {
        callout->hide();
        return;
    }
    const QDateTime time = QDateTime::fromMSecsSinceEpoch(toTime(point.x()));
    const QList<QtCharts::QAbstractAxis *> axes = series->attachedAxes();
    const QString unit = axes.size() == 1 ? axes[0]->titleText() : axes.size() == 2 ? axes[1]->titleText() : QString();
    QString value = QString::number(point.y(), 'f', 2);
    QtCharts::QChart *view = callout->m_getChart();
    if (!view) {
        callout->hide();
        return;
    }
    if (qv::g_isMissing(point.y()))
        value = tr("No Data");
    callout->m_setText(time.toString(QStringLiteral("dd.MM.yyyy hh:mm")) + QLatin1Char('\n') + value +
                           QLatin1Char(' ') + unit,
                       series->color());
    const QPointF position = view->mapToScene(view->mapToPosition(point, series));
    callout->m_setAnchor(position);
    callout->setPos(position + QPointF(10, -50));
    callout->setZValue(11.0);
    callout->show();
}

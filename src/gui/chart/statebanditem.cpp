#include "gui/chart/statebanditem.h"

#include <QPainter>
#include <QtCharts/QAbstractAxis>
#include <QtCharts/QAreaSeries>
#include <QtCharts/QChart>
#include <QtCharts/QDateTimeAxis>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>

using namespace QtCharts;

namespace qv {

namespace {

// Just below the data lines and above grid and axis lines, where the band
// areas themselves would be drawn.
constexpr qreal kBandZValue = 3.5;

}  // namespace

StateBandItem::StateBandItem(QChart *chart, const QVector<QAreaSeries *> &areas)
    : QGraphicsItem(chart), chart(chart), areas(areas)
{
    setZValue(kBandZValue);
    auto repaint = [this] { update(); };
    QObject::connect(chart, &QChart::plotAreaChanged, chart, [this] { prepareGeometryChange(); });
    for (QAreaSeries *area : areas) {
        // Still a series of the chart with its axes; only its painting moves here.
        area->setOpacity(0.0);
        QObject::connect(area->upperSeries(), &QXYSeries::pointsReplaced, chart, repaint);
        for (QAbstractAxis *axis : area->attachedAxes()) {
            if (auto *time = qobject_cast<QDateTimeAxis *>(axis))
                QObject::connect(time, &QDateTimeAxis::rangeChanged, chart, repaint);
            else if (auto *value = qobject_cast<QValueAxis *>(axis))
                QObject::connect(value, &QValueAxis::rangeChanged, chart, repaint);
        }
    }
}

QRectF StateBandItem::boundingRect() const
{
    return chart->plotArea();
}

void StateBandItem::paint(QPainter *painter, const QStyleOptionGraphicsItem *, QWidget *)
{
    const QRectF plot = chart->plotArea();
    for (QAreaSeries *area : areas) {
        if (!area->isVisible() || area->attachedAxes().size() < 2)
            continue;
        const QVector<QPointF> line = area->upperSeries()->pointsVector();
        const QColor colour = area->brush().color();
        // The area reaches down to the value 0 of the band axis.
        const qreal base = chart->mapToPosition(QPointF(0.0, 0.0), area).y();
        QPointF from = line.isEmpty() ? QPointF() : chart->mapToPosition(line[0], area);
        for (int j = 1; j < line.size(); ++j) {
            const QPointF to = chart->mapToPosition(line[j], area);
            // A horizontal piece of the step line: the rectangle under it.
            if (to.x() > from.x() && to.x() > plot.left() && from.x() < plot.right()) {
                const QRectF under = QRectF(QPointF(from.x(), from.y()), QPointF(to.x(), base)).normalized() & plot;
                if (!under.isEmpty())
                    painter->fillRect(under, colour);
            }
            from = to;
        }
    }
}

}  // namespace qv

// Paints the state-band areas of a chart. The two band area series keep
// their lines, colours and axes but are not painted themselves: their fill is
// a path of a full-height step at every change of state, which Qt's
// rasterizer fills in time that grows with the square of the steps (a
// recording that changes state every couple of hours took most of a second
// per frame). The lines are step lines, so the area under each is a row of
// rectangles, which this item fills directly.
#pragma once

#include <QGraphicsItem>
#include <QVector>

namespace QtCharts {
class QAreaSeries;
class QChart;
}  // namespace QtCharts

namespace qv {

class StateBandItem : public QGraphicsItem
{
public:
    // Takes over the painting of the band areas, in the order given (the
    // later one on top); a child of chart, drawn below the data lines.
    StateBandItem(QtCharts::QChart *chart, const QVector<QtCharts::QAreaSeries *> &areas);

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QtCharts::QChart *chart;
    QVector<QtCharts::QAreaSeries *> areas;
};

}  // namespace qv

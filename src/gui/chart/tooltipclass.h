// The hover callout: a white balloon with the value under the pointer, in
// the series' colour, with a spike to the point.
#pragma once

#include <QColor>
#include <QFont>
#include <QGraphicsItem>
#include <QRectF>
#include <QString>

namespace QtCharts {
class QChart;
}

class ToolTipClass : public QGraphicsItem
{
public:
    explicit ToolTipClass(QGraphicsItem *parent);
    ~ToolTipClass() override;

    void m_setText(const QString &text, const QColor &colour);
    // The pointed-at position, in the parent's coordinates.
    void m_setAnchor(QPointF position);
    void m_setChart(QtCharts::QChart *newChart) { chart = newChart; }
    QtCharts::QChart *m_getChart() const { return chart; }
    const QString &m_getText() const { return text; }

    QRectF boundingRect() const override;
    void paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget) override;

private:
    QString text;
    QRectF textRect;
    QRectF balloonRect;
    QPointF anchor;
    QFont font;
    QColor colour;
    QtCharts::QChart *chart = nullptr;
};

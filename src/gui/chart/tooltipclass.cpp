#include "gui/chart/tooltipclass.h"

#include "core/chart/zoomwindow.h"

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

ToolTipClass::ToolTipClass(QGraphicsItem *parent) : QGraphicsItem(parent) {}

ToolTipClass::~ToolTipClass() = default;

void ToolTipClass::m_setText(const QString &newText, const QColor &newColour)
{
    colour = newColour;
    text = newText;
    const QFontMetricsF metrics(font);
    textRect = metrics.boundingRect(QRectF(0, 0, 149, 149), Qt::AlignLeft, text).translated(5, 5);
    prepareGeometryChange();
    balloonRect = textRect.adjusted(-5, -5, 5, 5);
}

void ToolTipClass::m_setAnchor(QPointF position)
{
    prepareGeometryChange();
    anchor = position;
}

QRectF ToolTipClass::boundingRect() const
{
    const QPointF local = mapFromParent(anchor);
    QRectF rect;
    rect.setLeft(qMin(balloonRect.left(), local.x()));
    rect.setRight(qMax(balloonRect.right(), local.x()));
    rect.setTop(qMin(balloonRect.top(), local.y()));
    rect.setBottom(qMax(balloonRect.bottom(), local.y()));
    return rect;
}

void ToolTipClass::paint(QPainter *painter, const QStyleOptionGraphicsItem *option, QWidget *widget)
{
    Q_UNUSED(option)
    Q_UNUSED(widget)
    QPainterPath path;
    path.addRoundedRect(balloonRect, 5, 5);
    const QPointF local = mapFromParent(anchor);
    const qv::CalloutSpike spike = qv::g_calloutSpike(balloonRect, local);
    if (spike.drawn) {
        path.moveTo(spike.foot1);
        path.lineTo(local);
        path.lineTo(spike.foot2);
        path = path.simplified();
    }
    painter->setBrush(QColor(255, 255, 255, 255));
    painter->drawPath(path);
    painter->setPen(colour);
    painter->drawText(textRect, text);
}

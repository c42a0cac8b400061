#include "gui/dialogs/colorwidgets.h"

#include <QColor>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

ColorButtonClass::ColorButtonClass(QWidget *parent) : QPushButton(parent)
{
    setAutoFillBackground(true);
}

void ColorButtonClass::m_setColor(unsigned int rgba)
{
    color = rgba;
    update();
}

void ColorButtonClass::paintEvent(QPaintEvent *event)
{
    QPushButton::paintEvent(event);
    QPainter painter(this);
    // The button's own face stays visible as a 4-pixel border around the
    // swatch; a button under 9 pixels has no room for one.
    const QRect r = event->rect();
    const QRect swatch(QPoint(r.left() + 4, r.top() + 4), QPoint(r.right() - 4, r.bottom() - 4));
    if (swatch.isValid())
        painter.fillRect(swatch, QColor(QRgb(color | 0xFF000000u)));
    event->accept();
}

DrawColorClass::DrawColorClass(QWidget *parent) : QWidget(parent) {}

void DrawColorClass::paintEvent(QPaintEvent *event)
{
    event->accept();
    emit painted();
}

void DrawColorClass::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    if (event->button() == Qt::LeftButton)
        emit mousePressed(event);
}

void DrawColorClass::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
    if (event->buttons() == Qt::LeftButton)
        emit mouseMoved(event);
}

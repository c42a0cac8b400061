// The colour button of the settings dialogs, and a plain drawing surface that
// hands its paint and left-button mouse events to its owner as signals.
#pragma once

#include <QPushButton>
#include <QWidget>

class QMouseEvent;
class QPaintEvent;

// A push button showing a series colour as a swatch over its face. Clicking
// it only emits clicked(); the dialog opens the colour chooser.
class ColorButtonClass : public QPushButton
{
    Q_OBJECT

public:
    explicit ColorButtonClass(QWidget *parent = nullptr);

    // 0xAARRGGBB; the alpha is kept but the swatch is always opaque.
    void m_setColor(unsigned int rgba);
    unsigned int m_getColor() const { return color; }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    unsigned int color = 0;
};

class DrawColorClass : public QWidget
{
    Q_OBJECT

public:
    explicit DrawColorClass(QWidget *parent = nullptr);

signals:
    void painted();
    void mousePressed(QMouseEvent *event);
    void mouseMoved(QMouseEvent *event);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
};

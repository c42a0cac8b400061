// The start screen: a frameless picture with a progress bar, shown while
// the main window is built. It runs for 125 ticks of 5 ms.
#pragma once

#include <QPixmap>
#include <QWidget>

class QEventLoop;
class QProgressBar;
class QTimer;

class StartScreenClass : public QWidget
{
    Q_OBJECT

public:
    static constexpr int kTickMs = 5;
    static constexpr int kStep = 2;
    static constexpr int kBarFull = 100;
    static constexpr int kLastCount = 248;  // the tick that finds this count ends the screen

    explicit StartScreenClass(QWidget *parent = nullptr);
    ~StartScreenClass() override;

    // Runs a local event loop until the last tick, then hides the screen.
    void m_waitForStartScreen();

public slots:
    void s_tick();

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QPixmap picture;
    QProgressBar *bar;
    QTimer *timer;
    QEventLoop *loop = nullptr;
    int counter = 0;
    bool finished = false;
};

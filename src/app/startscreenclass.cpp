#include "app/startscreenclass.h"

#include "core/base/version.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QPainter>
#include <QProgressBar>
#include <QScreen>
#include <QTimer>

namespace {

constexpr int kWidth = 440;
constexpr int kHeight = 300;

}  // namespace

StartScreenClass::StartScreenClass(QWidget *parent)
    : QWidget(parent, Qt::FramelessWindowHint | Qt::SplashScreen),
      picture(QStringLiteral(":/new/prefix1/resources/startscreen.png")), bar(new QProgressBar(this)),
      timer(new QTimer(this))
{
    setFixedSize(kWidth, kHeight);
    bar->setRange(0, kBarFull);
    bar->setValue(0);
    bar->setTextVisible(false);
    bar->setGeometry(24, kHeight - 30, kWidth - 48, 10);
    if (const QScreen *screen = QGuiApplication::primaryScreen()) {
        const QRect area = screen->geometry();
        move(area.center() - QPoint(kWidth / 2, kHeight / 2));
    }
    connect(timer, &QTimer::timeout, this, &StartScreenClass::s_tick);
    timer->start(kTickMs);
}

StartScreenClass::~StartScreenClass() = default;

void StartScreenClass::s_tick()
{
    if (finished)
        return;
    if (counter >= kLastCount) {
        finished = true;
        timer->stop();
        if (loop)
            loop->quit();
        return;
    }
    counter += kStep;
    if (counter <= kBarFull)
        bar->setValue(counter);
}

void StartScreenClass::m_waitForStartScreen()
{
    if (!finished) {
        QEventLoop localLoop;
        loop = &localLoop;
        localLoop.exec();
        loop = nullptr;
    }
    hide();
}

void StartScreenClass::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.drawPixmap(rect(), picture);
    painter.setPen(QColor(0x1d, 0x3b, 0x53));
    QFont title = font();
    title.setPixelSize(34);
    title.setBold(true);
    painter.setFont(title);
    painter.drawText(QRect(28, 176, kWidth - 56, 44), Qt::AlignLeft | Qt::AlignVCenter, QStringLiteral("Quorvanta"));
    QFont small = font();
    small.setPixelSize(13);
    painter.setFont(small);
    painter.drawText(QRect(30, 218, kWidth - 60, 20), Qt::AlignLeft | Qt::AlignVCenter,
                     QStringLiteral("Version " QV_VERSION_STRING "  \u00B7  Merovin GmbH"));
}

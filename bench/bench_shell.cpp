// Desktop program timings: start to a shown main window with a project, and
// opening / saving a maximum-size project (16 data sets x 262144 samples
// with device modes) with how long the event loop is kept waiting.
// Run offscreen or under a display: QT_QPA_PLATFORM=offscreen bench_shell
#include "benchutil.h"
#include "climatesynth.h"

#include "app/quorvantaclass.h"
#include "core/project/projectfile.h"
#include "document/qvchartclass.h"
#include "gui/ui/progressdialogclass.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QSettings>
#include <QTemporaryDir>
#include <QTimer>

#include <memory>

namespace {

// Records the longest pause between ticks of a 10 ms timer (the time the
// user would wait for a repaint or a click to be taken) and whether a
// progress dialog was shown.
class Responsiveness : public QObject
{
public:
    Responsiveness()
    {
        timer.setInterval(10);
        connect(&timer, &QTimer::timeout, this, [this] { tick(); });
        qApp->installEventFilter(this);
    }
    void start()
    {
        longest = 0;
        ticks = 0;
        dialogs = 0;
        clock.start();
        last = 0;
        timer.start();
    }
    void stop() { timer.stop(); }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show && qobject_cast<ProgressDialogClass *>(watched))
            ++dialogs;
        return false;
    }

    qint64 longest = 0;
    int ticks = 0;
    int dialogs = 0;

private:
    void tick()
    {
        const qint64 now = clock.elapsed();
        longest = qMax(longest, now - last);
        last = now;
        ++ticks;
    }
    QTimer timer;
    QElapsedTimer clock;
    qint64 last = 0;
};

bool writeMaximumProject(const QString &path)
{
    auto model = std::make_unique<qv::ChartModel>();
    qv::g_synthesiseMaximum(*model);
    model->settings.hasModeData = 1;
    model->modeCodes()->count = qv::kMaxSamples;
    for (int k = 0; k < qv::kMaxSamples; ++k)
        model->modeCodes()->code[k] = qint8((k / 500) % 13);
    qv::SaveOptions options;
    options.changedTime = 1;
    return qv::g_saveProjectFile(*model, path, options).ok;
}

}  // namespace

int main(int argc, char *argv[])
{
    QElapsedTimer sinceStart;
    sinceStart.start();
    QApplication app(argc, argv);
    QTemporaryDir scratch;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, scratch.filePath(QStringLiteral("config")));
    const QString sample = argc > 1 ? QString::fromLocal8Bit(argv[1]) : QString();

    if (!sample.isEmpty()) {
        for (bool startScreen : {true, false}) {
            QElapsedTimer t;
            t.start();
            QuorvantaClass window(QCoreApplication::applicationDirPath(), nullptr, startScreen);
            const qint64 built = t.elapsed();
            window.s_openProject(sample);
            QCoreApplication::processEvents();
            std::printf("start %s start screen: window built %lld ms, project shown %lld ms (%s)\n",
                        startScreen ? "with" : "without", built, t.elapsed(), window.m_chart() ? "loaded" : "FAILED");
            window.setWindowModified(false);
        }
        std::printf("  (process start to here: %lld ms)\n", sinceStart.elapsed());
    }

    const QString big = scratch.filePath(QStringLiteral("maximum.qvj"));
    if (!writeMaximumProject(big)) {
        std::printf("cannot write the maximum project\n");
        return 1;
    }
    Responsiveness watch;
    QuorvantaClass window(QCoreApplication::applicationDirPath(), nullptr, false);
    watch.start();
    const double open = qvbench::seconds([&] { window.s_openProject(big); });
    watch.stop();
    std::printf("open maximum project: %.3f s, progress dialog shown %d time(s), longest wait for the event "
                "loop %lld ms (%d timer ticks served)\n",
                open, watch.dialogs, watch.longest, watch.ticks);
    if (!window.m_chart())
        return 1;
    watch.start();
    const double save = qvbench::seconds([&] { window.m_chart()->s_saveProject(); });
    watch.stop();
    std::printf("save maximum project: %.3f s, progress dialog shown %d time(s), longest wait %lld ms\n", save,
                watch.dialogs, watch.longest);
    window.setWindowModified(false);
    return 0;
}

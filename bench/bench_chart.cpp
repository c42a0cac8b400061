// Chart rebuild times of a maximum project: 16 shown data sets x 262144
// samples, 6 visible value axes, device-state bands. Prints the median and
// the slowest of several runs for each step a click goes through.
#include "benchutil.h"
#include "maximumchart.h"

#include "core/chart/reduction.h"
#include "document/qvchartclass.h"

#include <QApplication>
#include <QCheckBox>
#include <QGridLayout>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QtCharts/QChart>
#include <QtCharts/QXYSeries>

#include <algorithm>
#include <ctime>
#include <memory>
#include <vector>

namespace {

constexpr int kRuns = 9;

// State codes that hold for a while, as a controller records them: runs of
// 100 to 3000 samples, switching between "off" codes and the running ones.
void synthesiseStates(qv::ChartModel &model)
{
    static const qint8 kStates[] = {5, 12, 3, 11, 6, 12, 2, 5};
    modeCodesT &m = *model.modeCodes();
    m.count = model.data(0)->count;
    quint32 random = 12345;
    int k = 0;
    for (int run = 0; k < m.count; ++run) {
        random = random * 1103515245u + 12345u;
        const int length = 100 + int((random >> 8) % 2900);
        for (int j = 0; j < length && k < m.count; ++j)
            m.code[k++] = kStates[run % 8];
    }
    model.settings.hasModeData = 1;
    model.showModeBox();
}

double cpuMs()
{
    timespec t;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &t);
    return double(t.tv_sec) * 1e3 + double(t.tv_nsec) / 1e6;
}

// Wall time and processor time of this process: on a machine shared with
// builds the processor time tells what the step itself costs.
template <typename F> void report(const char *label, F &&work, int runs = kRuns)
{
    std::vector<double> wall, cpu;
    for (int i = 0; i < runs; ++i) {
        const double c0 = cpuMs();
        wall.push_back(qvbench::seconds(work) * 1000.0);
        cpu.push_back(cpuMs() - c0);
    }
    std::sort(wall.begin(), wall.end());
    std::sort(cpu.begin(), cpu.end());
    std::printf("  %-46s median %8.2f ms (cpu %8.2f ms)   slowest %8.2f ms\n", label, wall[wall.size() / 2],
                cpu[cpu.size() / 2], wall.back());
}

struct PaintCounter : QObject {
    int count = 0;
    bool eventFilter(QObject *, QEvent *event) override
    {
        count += event->type() == QEvent::Paint;
        return false;
    }
};

void releaseDeferred()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace

int main(int argc, char *argv[])
{
    qvbench::preferOffscreen();
    QApplication app(argc, argv);

    qvbench::MaximumChart maximum;
    QWidget &panel = maximum.panel;
    std::unique_ptr<QVChartClass> &widget = maximum.widget;
    qv::ChartModel &model = widget->model();
    synthesiseStates(model);
    auto box = [&](int i) { return panel.findChild<QCheckBox *>(QStringLiteral("enableBox%1").arg(i)); };
    for (int i = 0; i < 16; ++i) {
        box(i)->setEnabled(true);
        box(i)->setChecked(true);
        QObject::connect(box(i), &QCheckBox::stateChanged, widget.get(), &QVChartClass::s_enableLine);
    }
    panel.findChild<QCheckBox *>(QStringLiteral("modeBox"))->setChecked(true);

    std::printf("maximum project: 16 shown data sets x %d samples, 6 value axes, state bands, view %dx%d\n",
                qv::kMaxSamples, widget->width(), widget->height());

    // QV_BENCH_GESTURES=1 measures the gestures only (for a profiler).
    const bool gesturesOnly = qEnvironmentVariableIntValue("QV_BENCH_GESTURES") == 1;
    if (!gesturesOnly) {
        const int group =
            qv::g_groupSize(model.settings.rangeSampleCount, false, qv::LineType(model.settings.lineType));
        report("reduction of 16 data sets (core only)", [&] {
            for (int i = 0; i < 16; ++i)
                qv::g_reduceSamples(*model.data(i), *model.modeCodes(), model.settings.rangeBegin,
                                    model.settings.rangeEnd, group, *model.displayData(), *model.displayModeCodes());
        });
        report("rebuild (m_displayChart)", [&] { widget->m_displayChart(widget.get(), false); });
        report("rebuild + release of the previous chart", [&] {
            widget->m_displayChart(widget.get(), false);
            releaseDeferred();
        });
        report("paint of the built chart (grab)", [&] { widget->grab(); });
        report("toggle one row off and on (2 rebuilds)", [&] {
            box(7)->click();
            releaseDeferred();
            box(7)->click();
            releaseDeferred();
        });
        report("legend statistics (m_setMinMaxAvg)",
               [&] { widget->m_setMinMaxAvg(widget->chart(), model.settings.rangeBegin, model.settings.rangeEnd); });
        model.settings.lineType = quint8(qv::LineType::Spline);
        report("rebuild, spline chart", [&] {
            widget->m_displayChart(widget.get(), false);
            releaseDeferred();
        });
        report("paint, spline chart", [&] { widget->grab(); });
        model.settings.lineType = quint8(qv::LineType::Straight);
    }

    // The living chart, shown: real wheel and mouse events on the viewport,
    // then what the event loop does with them (layout of the chart, the
    // scene's index) and a synchronous paint of the viewport: event to frame.
    widget->m_displayChart(widget.get(), false);
    releaseDeferred();
    widget->show();
    QCoreApplication::processEvents();
    QWidget *viewport = widget->viewport();
    // A frame is painted the way the event loop paints it: the scene's
    // dirty region only, once the chart's layout has run.
    PaintCounter painted;
    viewport->installEventFilter(&painted);
    auto frame = [&] {
        const int before = painted.count;
        for (int loop = 0; loop < 8 && painted.count == before; ++loop)
            QCoreApplication::processEvents();
    };
    auto wheel = [&](double fraction, int delta) {
        const QRectF area = widget->chart()->plotArea();
        const QPointF at(area.x() + fraction * area.width(), area.center().y());
        QWheelEvent event(at, viewport->mapToGlobal(at.toPoint()), QPoint(), QPoint(0, delta), Qt::NoButton,
                          Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(viewport, &event);
    };
    auto mouse = [&](QEvent::Type type, double x, Qt::MouseButtons buttons) {
        QMouseEvent event(type, QPointF(x, widget->chart()->plotArea().center().y()),
                          type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(viewport, &event);
    };
    frame();
    report("paint of the whole viewport, nothing changed", [&] { viewport->repaint(); });
    int step = 0;
    const double places[] = {0.5, 0.2, 0.8, 0.35, 0.65, 0.5};
    report(
        "wheel step in, event to painted frame",
        [&] {
            wheel(places[step++ % 6], 120);
            frame();
        },
        24);
    report(
        "wheel step out, event to painted frame",
        [&] {
            wheel(places[step++ % 6], -120);
            frame();
        },
        12);
    for (int k = 0; k < 12; ++k)
        wheel(0.5, 120);
    frame();
    const double centre = widget->chart()->plotArea().center().x();
    mouse(QEvent::MouseButtonPress, centre, Qt::LeftButton);
    step = 0;
    report(
        "drag step of 4 pixels, event to painted frame",
        [&] {
            // Back and forth: 10 steps one way, 10 back.
            const int k = step++ % 20;
            mouse(QEvent::MouseMove, centre + 4.0 * (k < 10 ? k + 1 : 19 - k), Qt::LeftButton);
            frame();
        },
        40);
    report(
        "of it: the handler alone, before the loop paints",
        [&] {
            const int k = step++ % 20;
            mouse(QEvent::MouseMove, centre + 4.0 * (k < 10 ? k + 1 : 19 - k), Qt::LeftButton);
        },
        40);
    report("of it: the chart's scroll alone (series geometry)",
           [&] { widget->chart()->scroll(step++ % 2 ? 4 : -4, 0); });
    report("of it: legend statistics and time axis format",
           [&] { widget->m_setMinMaxAvg(widget->chart(), model.settings.viewBegin, model.settings.viewEnd); });
    auto *lead = qobject_cast<QtCharts::QXYSeries *>(widget->chart()->series().at(2));
    const QPointF point = lead->at(lead->count() / 2);
    report(
        "callout: hover signal to shown item",
        [&] {
            emit lead->hovered(point, false);
            emit lead->hovered(point, true);
        },
        20);
    report(
        "callout: hover to painted frame",
        [&] {
            emit lead->hovered(point, false);
            emit lead->hovered(point, true);
            frame();
        },
        20);
    mouse(QEvent::MouseMove, centre, Qt::NoButton);
    report(
        "state label: move without a button to painted frame",
        [&] {
            mouse(QEvent::MouseMove, centre + (step++ % 7) * 3.0, Qt::NoButton);
            frame();
        },
        20);
    widget->hide();

    // States that change every 128 samples (about two hours at one sample a
    // minute): the bands get a step at nearly every drawn point, which Qt's
    // path filling pays for with every paint.
    modeCodesT &m = *model.modeCodes();
    for (int k = 0; k < m.count; ++k)
        m.code[k] = (k / 128) % 3 == 0 ? 12 : 5;
    widget->m_displayChart(widget.get(), false);
    releaseDeferred();
    report(
        "paint, state changing every 128 samples", [&] { widget->grab(); }, 1);
    synthesiseStates(model);

    QtCharts::QChartView printView;
    printView.resize(3507 / 2, 2480 / 2);
    report("print build (4096 points per series)", [&] {
        widget->m_displayChart(&printView, true);
        releaseDeferred();
    });
    report("print paint (grab)", [&] { printView.grab(); });
    widget->m_displayChart(widget.get(), false);
    releaseDeferred();
    return 0;
}

// The data selection dialog on a maximum project: 16 shown data sets x
// 262144 samples. Prints the time from the Choose Data command to the shown
// table with the range selected, the memory the open dialog adds, and the
// time of a full repaint of the visible rows at the top, middle and bottom.
#include "benchutil.h"
#include "maximumchart.h"

#include "document/qvchartclass.h"
#include "gui/ui/dialogseam.h"

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QGridLayout>
#include <QScrollBar>
#include <QTableView>

#include <algorithm>
#include <functional>
#include <memory>
#include <vector>

namespace {

// Stands in for the modal run: shows the dialog, paints it once, then hands
// it to the measurements and closes it.
class BenchHook : public qv::DialogHook
{
public:
    QElapsedTimer clock;
    double openMs = 0;
    double openMiB = 0;
    std::function<void(QDialog &)> measure;

    QMessageBox::StandardButton message(const qv::MessageRecord &) override { return QMessageBox::Ok; }
    QString fileName(const qv::FileDialogRecord &) override { return QString(); }
    int exec(QDialog &dialog) override
    {
        dialog.show();
        QCoreApplication::processEvents();
        dialog.repaint();
        openMs = double(clock.nsecsElapsed()) / 1e6;
        openMiB = qvbench::peakMiB();
        if (measure)
            measure(dialog);
        dialog.reject();
        return dialog.result();
    }
};

double repaintMs(QTableView *table, int runs)
{
    std::vector<double> times;
    for (int i = 0; i < runs; ++i)
        times.push_back(qvbench::seconds([&] { table->viewport()->repaint(); }) * 1000.0);
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

}  // namespace

int main(int argc, char *argv[])
{
    qvbench::preferOffscreen();
    QApplication app(argc, argv);

    qvbench::MaximumChart maximum;
    std::unique_ptr<QVChartClass> &widget = maximum.widget;
    qv::ChartModel &model = widget->model();
    for (int i = 0; i < qv::kMaxDataSets; ++i)
        model.settings.lineFlags[i] |= qv::kLineShown;
    // A range in the middle, so the table opens scrolled away from the top.
    model.settings.rangeBegin = model.settings.viewBegin = model.data(0)->time[100000];
    model.settings.rangeEnd = model.settings.viewEnd = model.data(0)->time[200000];
    model.recountRange();
    std::printf("maximum project: 16 shown data sets x %d samples, range rows 100000..200000\n", qv::kMaxSamples);

    BenchHook hook;
    qv::g_setDialogHook(&hook);
    hook.measure = [](QDialog &dialog) {
        auto *table = dialog.findChild<QTableView *>(QStringLiteral("tableChoose"));
        const int selected = table->selectionModel()->selectedRows().size();
        std::printf("  table: %d rows x %d columns, %d rows selected, first visible row %d\n",
                    table->model()->rowCount(), table->model()->columnCount(), selected, table->rowAt(0));
        QScrollBar *bar = table->verticalScrollBar();
        const int positions[] = {bar->minimum(), (bar->minimum() + bar->maximum()) / 2, bar->maximum()};
        const char *names[] = {"top", "middle", "bottom"};
        for (int i = 0; i < 3; ++i) {
            const double scrollMs = qvbench::seconds([&] {
                                        bar->setValue(positions[i]);
                                        table->viewport()->repaint();
                                    }) *
                                    1000.0;
            std::printf("  scroll to the %-6s and repaint %7.2f ms; full repaint of the visible rows %6.2f ms "
                        "(median of 15, target <= 16 ms)\n",
                        names[i], scrollMs, repaintMs(table, 15));
        }
    };
    for (int run = 0; run < 3; ++run) {
        qvbench::resetPeak();
        const double beforeMiB = qvbench::peakMiB();
        hook.clock.start();
        widget->s_chooseData();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        std::printf("run %d: Choose Data to the shown, selected table %7.1f ms (target <= 100 ms); "
                    "memory +%.1f MiB (target <= 64 MiB)\n",
                    run + 1, hook.openMs, hook.openMiB - beforeMiB);
        hook.measure = nullptr;
    }
    qv::g_setDialogHook(nullptr);
    return 0;
}

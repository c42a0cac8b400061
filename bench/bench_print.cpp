// The printed page of a maximum project: 16 shown data sets x 262144
// samples, state bands and the parameter band. Prints the time of one page
// drawn in this process (print chart build + render into a PDF), the time of
// quorvanta-cli pdf end to end, and the size of the PDF.
#include "benchutil.h"
#include "climatesynth.h"

#include "core/model/fixedstring.h"
#include "core/project/projectfile.h"
#include "gui/chart/pageprinterclass.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

// Processor time (user + system) of the finished child processes, in ms: on
// a machine shared with builds it tells what the command itself costs.
double childCpuMs()
{
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    return (double(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) * 1e3 +
            double(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) / 1e3);
}

}  // namespace

int main(int argc, char *argv[])
{
    qvbench::preferOffscreen();
    QApplication app(argc, argv);
    QTemporaryDir dir;

    auto model = std::make_unique<qv::ChartModel>();
    qv::g_synthesiseMaximum(*model);
    settingsT &s = model->settings;
    for (int i = 0; i < 16; ++i)
        s.lineFlags[i] |= 1;
    qv::g_char2Buffer(s.description, "Maximum project", qv::kDescriptionWidth);
    s.flags |= 3;  // title and state bands
    s.hasModeData = 1;
    modeCodesT &codes = *model->modeCodes();
    codes.count = model->data(0)->count;
    for (int k = 0; k < codes.count; ++k)
        codes.code[k] = (k / 1500) % 3 == 0 ? 12 : 5;
    modeParametersT &p = *model->modeParameters();
    const double parameters[11] = {55, 72, 5, 15, 2, 1.5, 0.5, -0.3, 0.2, 1.5, -2};
    std::copy(parameters, parameters + 11, p.parameter);
    p.intParameter[0] = 15;
    p.interval = 60;
    const QString project = dir.filePath(QStringLiteral("max.qvj"));
    if (!qv::g_saveProjectFile(*model, project, qv::SaveOptions()).ok)
        return 1;

    std::printf("maximum project: 16 shown data sets x %d samples, state bands, parameter band\n", qv::kMaxSamples);
    const QString pdf = dir.filePath(QStringLiteral("page.pdf"));
    std::vector<double> page;
    for (int run = 0; run < 5; ++run) {
        page.push_back(qvbench::seconds([&] {
                           QFile file(pdf);
                           if (file.open(QIODevice::WriteOnly))
                               qv::g_writePagePdf(*model, file);
                       }) *
                       1000.0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    std::sort(page.begin(), page.end());
    std::printf("  one page in process (build + render + PDF)   median %8.1f ms   slowest %8.1f ms\n",
                page[page.size() / 2], page.back());

    std::vector<double> cli, cliCpu;
    const QString cliPdf = dir.filePath(QStringLiteral("cli.pdf"));
    for (int run = 0; run < 3; ++run) {
        QElapsedTimer timer;
        const double cpu0 = childCpuMs();
        timer.start();
        QProcess process;
        process.start(QStringLiteral(QV_CLI_PATH), {QStringLiteral("pdf"), project, QStringLiteral("-o"), cliPdf});
        process.waitForFinished(-1);
        cli.push_back(double(timer.nsecsElapsed()) / 1e6);
        cliCpu.push_back(childCpuMs() - cpu0);
        if (process.exitCode() != 0)
            std::printf("  quorvanta-cli failed: %s\n", process.readAllStandardError().constData());
    }
    std::sort(cli.begin(), cli.end());
    std::sort(cliCpu.begin(), cliCpu.end());
    std::printf("  quorvanta-cli pdf, end to end (load + page)   median %8.1f ms (cpu %8.1f ms)   slowest %8.1f ms  "
                "(target 1500)\n",
                cli[cli.size() / 2], cliCpu[cliCpu.size() / 2], cli.back());
    std::printf("  PDF size %.2f MB (target 5 MB)\n", double(QFileInfo(cliPdf).size()) / (1024.0 * 1024.0));
    return 0;
}

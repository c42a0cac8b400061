// Project save and load of a maximum-size project (16 data sets x 262144
// samples of varied climate data) and of a small one (16 x 10000).
#include "benchutil.h"
#include "climatesynth.h"

#include "project/projectfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <memory>

namespace {

void run(const char *label, int samples, const QString &path, int level)
{
    auto model = std::make_unique<qv::ChartModel>();
    qv::SynthOptions synth;
    synth.dataSets = 16;
    synth.samples = samples;
    synth.intervalSeconds = 60;
    qv::g_synthesiseRecording(*model, synth);
    const double payloadMiB = double(qv::g_payloadSize(16, false)) / (1 << 20);

    qv::SaveOptions options;
    options.changedTime = 1;
    options.level = level;
    int progressCalls = 0;
    options.progress = [&](int, int) { ++progressCalls; };
    qvbench::resetPeak();
    const double before = qvbench::peakMiB();
    qv::FileResult saved;
    const double saveTime = qvbench::seconds([&] { saved = qv::g_saveProjectFile(*model, path, options); });
    const double savePeak = qvbench::peakMiB();
    model.reset();

    auto loaded = std::make_unique<qv::ChartModel>();
    qvbench::resetPeak();
    qv::FileResult read;
    const double loadTime = qvbench::seconds([&] { read = qv::g_loadProjectFile(*loaded, path, qv::ProgressFn()); });
    const double loadPeak = qvbench::peakMiB();

    std::printf("%s, zlib level %d: payload %.1f MiB, file %.2f MiB\n", label, level, payloadMiB,
                double(QFileInfo(path).size()) / (1 << 20));
    std::printf("  save %.3f s (%s, %d progress steps), peak %.0f MiB (%.0f MiB before)\n", saveTime,
                saved.ok ? "ok" : saved.message, progressCalls, savePeak, before);
    std::printf("  load %.3f s (%s), peak %.0f MiB\n", loadTime, read.ok ? "ok" : read.message, loadPeak);
}

}  // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    // The level the program writes with (6), and others for comparison.
    const int levels[] = {6, 4, 9};
    const int count = argc > 1 && QByteArray(argv[1]) == "--all-levels" ? 3 : 1;
    for (int i = 0; i < count; ++i) {
        run("maximum project (16 x 262144)", qv::kMaxSamples, dir.filePath(QStringLiteral("max.qvj")), levels[i]);
        run("small project (16 x 10000)", 10000, dir.filePath(QStringLiteral("small.qvj")), levels[i]);
    }
    return 0;
}

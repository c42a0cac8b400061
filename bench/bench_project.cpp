// Project save and load of a maximum-size project (16 data sets x 262144
// samples of varied climate data) and of a small one (16 x 10000).
// Targets for the maximum project: save <= 0.8 s, load <= 0.15 s, file within
// 1 % of a single zlib level 6 stream of the same payload, peak memory of
// either step <= 3 x the payload above what the model takes.
#include "benchutil.h"
#include "climatesynth.h"

#include "core/project/projectfile.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <sys/resource.h>

#include <memory>

namespace {

// CPU seconds this process has used: on a busy machine a steadier figure
// than the wall time (the save's deflate runs while the caller only waits).
double cpuSeconds()
{
    rusage u{};
    getrusage(RUSAGE_SELF, &u);
    return double(u.ru_utime.tv_sec + u.ru_stime.tv_sec) + double(u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e6;
}

// The size a single zlib stream at level 6 (qCompress) gives for the payload
// of the file at path.
qint64 zlib6Size(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray bytes = file.readAll();
    const QByteArray payload = qUncompress(bytes.mid(55 + 4));
    return payload.isEmpty() ? -1 : qCompress(payload, 6).size() - 4;
}

void run(const char *label, int samples, const QString &path, int level, bool compareZlib)
{
    auto model = std::make_unique<qv::ChartModel>();
    qv::g_synthesiseMaximum(*model, samples);
    const qint64 payloadBytes = qv::g_payloadSize(16, false);
    const double payloadMiB = double(payloadBytes) / (1 << 20);

    qv::SaveOptions options;
    options.changedTime = 1;
    options.level = level;
    int progressCalls = 0;
    options.progress = [&](int, int) { ++progressCalls; };
    qvbench::resetPeak();
    const double before = qvbench::peakMiB();
    const double modelMiB = before;
    qv::FileResult saved;
    const double saveCpuStart = cpuSeconds();
    const double saveTime = qvbench::seconds([&] { saved = qv::g_saveProjectFile(*model, path, options); });
    const double saveCpu = cpuSeconds() - saveCpuStart;
    const double savePeak = qvbench::peakMiB();
    model.reset();

    auto loaded = std::make_unique<qv::ChartModel>();
    qvbench::resetPeak();
    const double beforeLoad = qvbench::peakMiB();
    qv::FileResult read;
    const double loadCpuStart = cpuSeconds();
    const double loadTime = qvbench::seconds([&] { read = qv::g_loadProjectFile(*loaded, path, qv::ProgressFn()); });
    const double loadCpu = cpuSeconds() - loadCpuStart;
    const double loadPeak = qvbench::peakMiB();

    const qint64 fileBytes = QFileInfo(path).size();
    std::printf("%s, deflate level %d: payload %.1f MiB, file %.2f MiB\n", label, level, payloadMiB,
                double(fileBytes) / (1 << 20));
    if (compareZlib) {
        const qint64 zlib = zlib6Size(path);
        std::printf("  one zlib level 6 stream of the same payload: %.2f MiB, file %+.2f %%\n",
                    double(zlib) / (1 << 20), 100.0 * double(fileBytes - 59 - 4 - zlib) / double(zlib));
    }
    std::printf("  save %.3f s (cpu %.3f s; %s, %d progress steps), peak %.0f MiB = %.2f x payload above the %.0f MiB "
                "before\n",
                saveTime, saveCpu, saved.ok ? "ok" : saved.message, progressCalls, savePeak,
                (savePeak - modelMiB) / payloadMiB, modelMiB);
    std::printf("  load %.3f s (cpu %.3f s; %s), peak %.0f MiB = %.2f x payload above the %.0f MiB before\n", loadTime,
                loadCpu, read.ok ? "ok" : read.message, loadPeak, (loadPeak - beforeLoad) / payloadMiB, beforeLoad);
}

}  // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    // The level the program writes with (6), and others for comparison.
    const int levels[] = {6, 4, 9};
    const int count = argc > 1 && QByteArray(argv[1]) == "--all-levels" ? 3 : 1;
    std::printf("targets (maximum project): save <= 0.8 s, load <= 0.15 s, file within 1 %% of zlib level 6,\n"
                "  peak <= 3 x payload\n");
    for (int i = 0; i < count; ++i) {
        run("maximum project (16 x 262144)", qv::kMaxSamples, dir.filePath(QStringLiteral("max.qvj")), levels[i],
            i == 0);
        run("small project (16 x 10000)", 10000, dir.filePath(QStringLiteral("small.qvj")), levels[i], false);
    }
    return 0;
}

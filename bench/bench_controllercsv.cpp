// Import of a controller CSV file of the largest size (262,144 rows of 16
// values, one per minute over half a year, across the start of summer time)
// in UTC and in Europe/Berlin: the importer into a fresh model (as the
// desktop program and the command-line tool import) and into a reused one,
// against the straightforward readLine + split + QDateTime::fromString +
// toDouble import, whose times and values must be the same. In Europe/Berlin
// once more with Yes to reading the clock as standard time, which moves the
// times read before the skipped hour; its times must be one minute apart
// throughout.
#include "benchutil.h"

#include "core/import/controllercsv.h"
#include "core/model/chartmodel.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QTemporaryDir>

#include <cmath>
#include <ctime>
#include <cstdio>
#include <cstring>
#include <memory>

namespace {

QByteArray makeFile(int rows, int sets)
{
    QByteArray f = "Messung Halle 3\nDatum Uhrzeit";
    for (int i = 0; i < sets; ++i)
        f += ";Sensor " + QByteArray::number(i + 1);
    f += '\n';
    f.reserve(rows * (20 + sets * 7));
    QDate day(2021, 1, 1);
    QByteArray dayText = day.toString(QStringLiteral("dd.MM.yyyy ")).toLatin1();
    char buffer[32];
    for (int k = 0; k < rows; ++k) {
        const int minute = k % 1440;
        if (k > 0 && minute == 0) {
            day = day.addDays(1);
            dayText = day.toString(QStringLiteral("dd.MM.yyyy ")).toLatin1();
        }
        std::snprintf(buffer, sizeof buffer, "%02d:%02d:00", minute / 60, minute % 60);
        f += dayText;
        f += buffer;
        for (int i = 0; i < sets; ++i) {
            const double v = 15 + 8 * std::sin(k * 0.0043633 + i) + (k * 7 + i * 13) % 10 * 0.01;
            std::snprintf(buffer, sizeof buffer, ";%.2f", v);
            f += buffer;
        }
        f += '\n';
    }
    return f;
}

// The plain way: one QByteArray per line and field, QDateTime for every time.
int straightforwardImport(const QString &path, qv::ChartModel &model)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    file.readLine();
    const QList<QByteArray> header = file.readLine().trimmed().split(';');
    const int sets = header.size() - 1;
    model.clearStores();
    const QString format = QStringLiteral("dd.MM.yyyy hh:mm:ss");
    int rows = 0;
    for (;;) {
        QByteArray line = file.readLine();
        line.chop(1);
        const QList<QByteArray> fields = line.split(';');
        if (fields.size() != sets + 1 || rows == qv::kMaxSamples)
            break;
        const qint64 t = QDateTime::fromString(QString::fromLatin1(fields[0]), format).toMSecsSinceEpoch();
        for (int i = 0; i < sets; ++i) {
            _chartDataType &d = *model.data(i);
            bool ok = false;
            const double v = fields[i + 1].toDouble(&ok);
            d.time[rows] = t;
            d.value[rows] = ok ? v : qv::kMissingValue;
            d.count = rows + 1;
        }
        ++rows;
    }
    return rows;
}

// Processor time of this thread, kernel time (page faults) included: on a busy
// machine much steadier than the wall clock.
double cpuSeconds()
{
    timespec t{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
    return double(t.tv_sec) + double(t.tv_nsec) / 1e9;
}

struct Timing {
    double wall = 1e9;
    double cpu = 1e9;
};

// Best of `runs` imports; false when one fails.
bool timeImports(const QString &path, int runs, bool freshModel, bool standardTime,
                 std::unique_ptr<qv::ChartModel> &model, Timing *best)
{
    qv::FixedAnswerHost host(standardTime);
    for (int run = 0; run < runs; ++run) {
        qv::FileResult result;
        if (freshModel)
            model.reset();  // returning the old model's pages is not part of an import
        const double cpu = cpuSeconds();
        const double wall = qvbench::seconds([&] {
            if (freshModel)
                model = std::make_unique<qv::ChartModel>();
            result = qv::g_importControllerCsv(path, *model, host);
        });
        if (!result.ok || model->data(0)->count != qv::kMaxSamples) {
            std::printf("import failed: %s\n", result.message ? result.message : "wrong count");
            return false;
        }
        best->wall = std::min(best->wall, wall);
        best->cpu = std::min(best->cpu, cpuSeconds() - cpu);
    }
    return true;
}

// Both imports give the same times and values; on a mismatch, says where they part.
bool sameStores(const qv::ChartModel &plain, const qv::ChartModel &model, int rows, int sets)
{
    for (int i = 0; i < sets; ++i) {
        const _chartDataType &a = *plain.data(i), &b = *model.data(i);
        for (int k = 0; k < rows; ++k) {
            if (a.time[k] != b.time[k] || std::memcmp(&a.value[k], &b.value[k], sizeof(double)) != 0) {
                std::printf("first difference: set %d sample %d: %lld %.17g, importer %lld %.17g\n", i, k,
                            static_cast<long long>(a.time[k]), a.value[k], static_cast<long long>(b.time[k]),
                            b.value[k]);
                return false;
            }
        }
    }
    return true;
}

// The times of a clock read as standard time: one minute apart from the first to the last.
bool minuteApart(const qv::ChartModel &model, int rows)
{
    const _chartDataType &d = *model.data(0);
    for (int k = 1; k < rows; ++k) {
        if (d.time[k] - d.time[k - 1] != 60000)
            return false;
    }
    return model.clockReading == qv::ClockReading::StandardTime;
}

}  // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    constexpr int kRows = qv::kMaxSamples;
    constexpr int kSets = 16;

    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("halle3.csv"));
    QFile out(path);
    if (!out.open(QIODevice::WriteOnly) || out.write(makeFile(kRows, kSets)) < 0)
        return 1;
    out.close();
    std::printf("file: %d rows x %d values, %.1f MB\n", kRows, kSets, double(out.size()) / 1e6);

    bool allSame = true;
    for (const char *zone : {"UTC", "Europe/Berlin", "Europe/Berlin as standard time"}) {
        const bool standardTime = std::strstr(zone, "standard") != nullptr;
        // QDateTime asks the C library, which reads TZ again after tzset().
        qputenv("TZ", QByteArray(zone).left(13));
        tzset();
        std::unique_ptr<qv::ChartModel> model;
        Timing fresh, reused;
        if (!timeImports(path, 5, true, standardTime, model, &fresh) ||
            !timeImports(path, 3, false, standardTime, model, &reused))
            return 1;
        if (standardTime) {
            const bool steady = minuteApart(*model, kRows);
            allSame = allSame && steady;
            std::printf("%s: importer %.3f s (processor %.3f s) into a fresh model, best of 5; %.3f s (processor "
                        "%.3f s) into a reused one, best of 3; one minute apart throughout: %s\n",
                        zone, fresh.wall, fresh.cpu, reused.wall, reused.cpu, steady ? "yes" : "NO");
            continue;
        }
        auto plain = std::make_unique<qv::ChartModel>();
        int plainRows = 0;
        const double plainTime = qvbench::seconds([&] { plainRows = straightforwardImport(path, *plain); });
        const bool same = plainRows == kRows && sameStores(*plain, *model, kRows, kSets);
        allSame = allSame && same;
        std::printf("%s: importer %.3f s (processor %.3f s) into a fresh model, best of 5; %.3f s (processor "
                    "%.3f s) into a reused one, best of 3\n",
                    zone, fresh.wall, fresh.cpu, reused.wall, reused.cpu);
        std::printf("%s: straightforward %.3f s, %.1fx the importer; same times and values: %s\n", zone, plainTime,
                    plainTime / fresh.wall, same ? "yes" : "NO");
    }
    std::printf("peak memory %.0f MiB\n", qvbench::peakMiB());
    return allSame ? 0 : 1;
}

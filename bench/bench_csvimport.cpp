// Import of a controller CSV file of the largest size (262,144 rows of 16
// values, one per minute over half a year): the importer against the
// straightforward readLine + split + QDateTime::fromString + toDouble import,
// measured in the same run.
#include "benchutil.h"

#include "import/csvimport.h"
#include "project/chartmodel.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QTemporaryDir>

#include <cmath>
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
    std::printf("file: %d rows x %d values, %.1f MB, time zone %s\n", kRows, kSets, double(out.size()) / 1e6,
                QDateTime::currentDateTime().timeZoneAbbreviation().toLatin1().constData());

    auto model = std::make_unique<qv::ChartModel>();
    qv::FixedAnswerHost host(false);
    double best = 1e9;
    for (int run = 0; run < 3; ++run) {
        qv::FileResult result;
        const double s = qvbench::seconds([&] { result = qv::g_importControllerCsv(path, *model, host); });
        if (!result.ok || model->data(0)->count != kRows) {
            std::printf("import failed: %s\n", result.message ? result.message : "wrong count");
            return 1;
        }
        best = std::min(best, s);
    }

    auto plain = std::make_unique<qv::ChartModel>();
    int plainRows = 0;
    double plainBest = 1e9;
    for (int run = 0; run < 2; ++run)
        plainBest = std::min(plainBest, qvbench::seconds([&] { plainRows = straightforwardImport(path, *plain); }));
    bool same = plainRows == kRows;
    for (int i = 0; same && i < kSets; ++i) {
        same = std::memcmp(plain->data(i)->time, model->data(i)->time, sizeof(qint64) * kRows) == 0 &&
               std::memcmp(plain->data(i)->value, model->data(i)->value, sizeof(double) * kRows) == 0;
    }

    // On a mismatch, say where the two imports part.
    for (int i = 0; !same && i < kSets; ++i) {
        const _chartDataType &a = *plain->data(i), &b = *model->data(i);
        for (int k = 0; k < kRows; ++k) {
            if (a.time[k] != b.time[k] || std::memcmp(&a.value[k], &b.value[k], sizeof(double)) != 0) {
                std::printf("first difference: set %d sample %d: %lld %.17g, importer %lld %.17g\n", i, k,
                            static_cast<long long>(a.time[k]), a.value[k], static_cast<long long>(b.time[k]),
                            b.value[k]);
                break;
            }
        }
    }
    std::printf("importer:        %.3f s  %9.0f rows/s  (best of 3, whole import)\n", best, kRows / best);
    std::printf("straightforward: %.3f s  %9.0f rows/s  (best of 2, data rows only)\n", plainBest,
                kRows / plainBest);
    std::printf("speed-up: %.1fx; same times and values: %s; peak memory %.0f MiB\n", plainBest / best,
                same ? "yes" : "NO", qvbench::peakMiB());
    return same ? 0 : 1;
}

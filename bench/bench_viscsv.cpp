// Import of a vaporix-VIS file of the largest size without a warning
// (262,143 data lines, one every 10 minutes over five years).
// Target: at most 0.5 s.
#include "benchutil.h"

#include "core/import/viscsv.h"
#include "core/model/chartmodel.h"

#include <QCoreApplication>
#include <QDate>
#include <QTemporaryDir>

#include <cmath>
#include <cstdio>
#include <memory>

namespace {

QByteArray padded(const char *text, int width)
{
    return QByteArray(text).leftJustified(width, ' ', true);
}

QByteArray makeFile(int lines)
{
    QByteArray f = "\n" + padded("vaporix-VIS Benchmark", 48) + '\n' + padded("Keller", 16) + '\n' + padded("V", 83) +
                   '\n' + "8.0;16.0;2.0;55;70;1.5;1.0;00;0;0:10:00\n" + "x\n" + padded("a;b;c;d;e;f;g;h;i", 191) + '\n';
    f.reserve(f.size() + lines * 64);
    static const char *const states[] = {"OPTIMAL   ",
                                         "L\xDC"
                                         "FTEN EIN",
                                         "L\xDC"
                                         "FTEN AUS",
                                         "ZU KALT   "};
    QDate day(2019, 1, 1);
    char line[128];
    for (int k = 0; k < lines; ++k) {
        const int clock = k % 144 * 10;
        if (k > 0 && clock == 0)
            day = day.addDays(1);
        const double wave = std::sin(k * 0.0436);
        std::snprintf(line, sizeof line, "%02d.%02d.%04d;%02d:%02d;%5.1f;%3.0f;%4.1f;%5.1f;%3.0f;%4.1f;%s\n", day.day(),
                      day.month(), day.year(), clock / 60, clock % 60, 12 + wave, 62 + 5 * wave, 8.1 + wave,
                      4 + 6 * wave, 80 - 10 * wave, 5.2 + wave, states[k / 97 % 4]);
        f += line;
    }
    return f;
}

}  // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("bench.csv"));
    const int lines = qv::kMaxSamples - 1;
    {
        QFile f(path);
        if (!f.open(QIODevice::WriteOnly) || f.write(makeFile(lines)) < 0)
            return 1;
    }
    for (int run = 0; run < 3; ++run) {
        auto model = std::make_unique<qv::ChartModel>();
        qv::FixedAnswerHost host(false);
        qv::FileResult result;
        const double s = qvbench::seconds([&] { result = qv::g_importVisCsv(path, *model, host); });
        std::printf("vaporix-VIS import, %d lines: %.3f s (%s, %d samples, %d warnings; target <= 0.5 s)\n", lines, s,
                    result.ok ? "ok" : "failed", model->data(0)->count, host.warnings);
    }
    return 0;
}

// CSV export of a maximum project: 16 data sets x 262144 samples over the
// whole range, with the decimal point and with the decimal comma. Target:
// <= 1 s each. Prints the best of three runs of making the bytes alone and of
// the whole save to a file (which waits for the disk to hold it), and the
// file size.
#include "benchutil.h"
#include "climatesynth.h"

#include "core/project/csvexport.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QTemporaryDir>

#include <memory>

namespace {

// Takes the bytes and forgets them.
class Discard : public QIODevice
{
protected:
    qint64 readData(char *, qint64) override { return -1; }
    qint64 writeData(const char *, qint64 size) override { return size; }
};

}  // namespace

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("maximum.csv"));
    auto model = std::make_unique<qv::ChartModel>();
    qv::g_synthesiseMaximum(*model);

    for (const bool comma : {false, true}) {
        qv::CsvOptions options;
        qv::g_csvWindow(*model, qv::CsvRange::All, options);
        options.sets = qv::g_shownDataSets(*model);
        options.decimalComma = options.byteOrderMark = comma;
        Discard discard;
        discard.open(QIODevice::WriteOnly);
        double bytes = 1e9, save = 1e9;
        bool ok = true;
        for (int run = 0; run < 3; ++run) {
            bytes = qMin(bytes, qvbench::seconds([&] { ok = ok && qv::g_writeCsv(*model, discard, options).ok; }));
            save = qMin(save, qvbench::seconds([&] { ok = ok && qv::g_saveCsvFile(*model, path, options).ok; }));
        }
        std::printf("maximum project (%d x %d samples) as CSV, decimal %s: bytes %.3f s, saved file %.3f s, "
                    "%.1f MiB%s\n",
                    int(options.sets.size()), model->data(0)->count, comma ? "comma" : "point", bytes, save,
                    double(QFileInfo(path).size()) / (1 << 20), ok ? "" : "  WRITE FAILED");
    }
    return 0;
}

// libFuzzer target for the controller CSV import. The input is cut at the
// bytes 00 FF 00 FF into up to four files: the sampling (..._TS01.CSV) and its
// state log, parameter and card parameter siblings, so every section is
// reached. Every question is answered Yes.
#include "fuzzinput.h"
#include "import/csvimport.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <memory>

namespace {

struct Fixture {
    QTemporaryDir dir;
    QString path(int i) const { return dir.filePath(QStringLiteral("F_TS0%1.CSV").arg(i + 1)); }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_csvimport";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    static Fixture fixture;

    const QByteArray input = QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size));
    const QList<QByteArray> parts = qvfuzz::splitIntoFiles(input);
    for (int i = 0; i < 4; ++i) {
        QFile f(fixture.path(i));
        if (i >= parts.size())
            f.remove();
        else if (f.open(QIODevice::WriteOnly))
            f.write(parts[i]);
    }
    // A fresh model each time, so that no run depends on the one before.
    auto model = std::make_unique<qv::ChartModel>();
    qv::FixedAnswerHost host(true);
    qv::g_importControllerCsv(fixture.path(0), *model, host);
    return 0;
}

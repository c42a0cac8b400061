// libFuzzer target for the vaporix-VIS CSV import: the input is the whole
// file, imported into a fresh model.
#include "import/visimport.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

#include <cstdint>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_visimport";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    static QTemporaryDir dir;
    static const QString path = dir.filePath(QStringLiteral("vis.csv"));

    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return 0;
    f.write(reinterpret_cast<const char *>(data), qint64(size));
    f.close();
    auto model = std::make_unique<qv::ChartModel>();
    qv::FixedAnswerHost host(true);
    qv::g_importVisCsv(path, *model, host);
    return 0;
}

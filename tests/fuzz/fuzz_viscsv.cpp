// libFuzzer target for the vaporix-VIS CSV import: the input is the whole
// file.
#include "core/import/viscsv.h"
#include "fuzzinput.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_viscsv";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    static const QString path = qvfuzz::scratchPath(QStringLiteral("vis.csv"));

    QFile f(path);
    if (!f.open(QIODevice::WriteOnly | QIODevice::Truncate))
        return 0;
    f.write(reinterpret_cast<const char *>(data), qint64(size));
    f.close();
    qv::FixedAnswerHost host(true);
    qv::g_importVisCsv(path, qvfuzz::freshModel(), host);
    return 0;
}

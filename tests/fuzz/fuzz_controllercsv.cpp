// libFuzzer target for the controller CSV import. The input is cut at the
// bytes 00 FF 00 FF into up to four files: the sampling (..._TS01.CSV) and its
// state log, parameter and card parameter siblings, so every section is
// reached. Every question is answered Yes.
#include "core/import/controllercsv.h"
#include "fuzzinput.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>

#include <cstdint>

namespace {

QString path(int i)
{
    return qvfuzz::scratchPath(QStringLiteral("F_TS0%1.CSV").arg(i + 1));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_controllercsv";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);

    const QByteArray input = QByteArray::fromRawData(reinterpret_cast<const char *>(data), int(size));
    const QList<QByteArray> parts = qvfuzz::splitIntoFiles(input);
    for (int i = 0; i < 4; ++i) {
        QFile f(path(i));
        if (i >= parts.size())
            f.remove();
        else if (f.open(QIODevice::WriteOnly))
            f.write(parts[i]);
    }
    qv::FixedAnswerHost host(true);
    qv::g_importControllerCsv(path(0), qvfuzz::freshModel(), host);
    return 0;
}

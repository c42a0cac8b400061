// libFuzzer target for the binary sampling log import. The input is cut at
// the bytes 00 FF 00 FF into up to four logs: SV_SA_01.LOG and its three
// siblings. Byte 0 of the input holds the Yes/No answers (bit n for the n-th
// question). A part starting with 'R' is written as it is; any other part is
// packed: its bytes fill the header fields the importer reads (the first 0x38
// header bytes, the times block at 0xAC4 and the 16 descriptors), the rest is
// the data block, behind the right magic.
#include "core/import/controllerlog.h"
#include "fuzzinput.h"

#include <QByteArray>
#include <QCoreApplication>
#include <QFile>

#include <cstdint>
#include <cstring>

namespace {

class BitsHost : public qv::ImportHost
{
public:
    explicit BitsHost(quint8 bits) : answerBits(bits) {}
    bool askYesNo(const QString &, const QString &) override { return (answerBits >> (asked++ & 7)) & 1; }
    void warn(const QString &) override {}
    void progress(int, int) override {}

private:
    quint8 answerBits;
    int asked = 0;
};

QByteArray logFile(const QByteArray &part)
{
    if (part.startsWith('R'))
        return part.mid(1);
    QByteArray header(3008, '\0');
    int from = 0;
    auto take = [&](int at, int size) {
        const int n = qMax(0, qMin(size, part.size() - from));
        std::memcpy(header.data() + at, part.constData() + from, size_t(n));
        from += n;
    };
    take(0, 0x38);
    take(0xAC4, 0x1C);
    for (int i = 0; i < 16; ++i)
        take(0x100 + 128 * i, 0x1C);
    QByteArray magic("Solvanor SampleFile (C)2014 Merovin GmbH V40");
    magic.append(20, ' ');
    return magic + header + part.mid(from);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_controllerlog";
    static char *argv[] = {name, nullptr};
    static QCoreApplication app(argc, argv);
    if (size == 0)
        return 0;

    const QByteArray input = QByteArray::fromRawData(reinterpret_cast<const char *>(data) + 1, int(size - 1));
    const QList<QByteArray> parts = qvfuzz::splitIntoFiles(input);
    for (int i = 0; i < 4; ++i) {
        QFile f(qvfuzz::scratchPath(QStringLiteral("SV_SA_0%1.LOG").arg(i + 1)));
        if (i >= parts.size())
            f.remove();
        else if (f.open(QIODevice::WriteOnly))
            f.write(logFile(parts[i]));
    }
    BitsHost host{quint8(data[0])};
    qv::g_importControllerLog(qvfuzz::scratchPath(QStringLiteral("SV_SA_01.LOG")), qvfuzz::freshModel(), host);
    return 0;
}

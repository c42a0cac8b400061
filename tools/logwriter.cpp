#include "logwriter.h"

#include <QtEndian>

#include <cstring>
#include <vector>

namespace qvlog {

namespace {

// The fields are written into plain arrays rather than through
// QByteArray::data(): GCC cannot see that the byte array is never the shared
// empty one and reports writes past its end that cannot happen.
constexpr int kHeaderSize = 3008;

void put32(char *bytes, int at, quint32 value)
{
    qToLittleEndian(value, bytes + at);
}

void putText(char *bytes, int at, const QByteArray &text, int width)
{
    std::memcpy(bytes + at, text.constData(), size_t(qMin(text.size(), width)));
}

}  // namespace

QByteArray magic()
{
    return QByteArray("Solvanor SampleFile (C)2014 Merovin GmbH V40") + QByteArray(20, ' ');
}

QByteArray header(const LogLayout &layout)
{
    char h[kHeaderSize] = {};
    putText(h, 0x000, layout.title, 36);
    put32(h, 0x024, quint32(layout.count));
    put32(h, 0x02C, quint32(layout.capacity));
    put32(h, 0x030, quint32(layout.interval));
    put32(h, 0x034, quint32(layout.dataSize == kWordsSize ? layout.words.size() * 4 : layout.dataSize));
    for (int i = 0; i < 16; ++i) {
        const DataSetSpec &s = layout.sets[i];
        const int d = 0x100 + 128 * i;
        h[d + 0x00] = char(s.type);
        h[d + 0x03] = char(s.decimals);
        put32(h, d + 0x10, s.multiplier);
        put32(h, d + 0x14, quint32(s.divisor));
        put32(h, d + 0x18, s.offset);
    }
    // The descriptors of sets 14 and 15 reach into the name area; their read
    // bytes lie before it, so the names are written over the unused rest.
    for (int i = 0; i < 16; ++i)
        putText(h, 0x8C0 + 32 * i, layout.sets[i].name, 32);
    put32(h, 0xAC4, layout.timeCorrection);
    put32(h, 0xACC, quint32(layout.oldestOffset));
    put32(h, 0xAD4, layout.startTime);
    put32(h, 0xAD8, layout.endTime);
    put32(h, 0xADC, layout.rows);
    return QByteArray(h, kHeaderSize);
}

QByteArray file(const LogLayout &layout)
{
    std::vector<char> words(size_t(layout.words.size()) * 4);
    for (int k = 0; k < layout.words.size(); ++k)
        put32(words.data(), 4 * k, layout.words[k]);
    return (layout.magic.isNull() ? magic() : layout.magic) + header(layout) +
           QByteArray(words.data(), int(words.size()));
}

quint32 floatWord(float value)
{
    quint32 w;
    std::memcpy(&w, &value, sizeof w);
    return w;
}

}  // namespace qvlog

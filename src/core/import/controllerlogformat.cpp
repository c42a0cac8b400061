#include "core/import/controllerlogformat.h"

#include <QIODevice>

#include <cstring>

namespace qv {

namespace {

// Header offsets (relative to the header, which follows the magic).
constexpr int kCountAt = 0x024;
constexpr int kCapacityAt = 0x02C;
constexpr int kIntervalAt = 0x030;
constexpr int kDataSizeAt = 0x034;
constexpr int kDescriptorsAt = 0x100;
constexpr int kDescriptorSize = 128;
constexpr int kNamesAt = 0x8C0;
constexpr int kTimeCorrectionAt = 0xAC4;
constexpr int kOldestOffsetAt = 0xACC;
constexpr int kStartTimeAt = 0xAD4;
constexpr int kEndTimeAt = 0xAD8;
constexpr int kRowsAt = 0xADC;

// Descriptor offsets.
constexpr int kTypeAt = 0x00;
constexpr int kDecimalsAt = 0x03;
constexpr int kMultiplierAt = 0x10;
constexpr int kDivisorAt = 0x14;
constexpr int kOffsetAt = 0x18;

quint32 u32(const char *p)
{
    const auto *b = reinterpret_cast<const uchar *>(p);
    return quint32(b[0]) | quint32(b[1]) << 8 | quint32(b[2]) << 16 | quint32(b[3]) << 24;
}

qint32 s32(const char *p)
{
    return qint32(u32(p));
}

QByteArray upToZero(const char *p, int width)
{
    const void *zero = std::memchr(p, 0, size_t(width));
    return QByteArray(p, zero ? int(static_cast<const char *>(zero) - p) : width);
}

double applyDivisor(double value, qint32 divisor)
{
    if (divisor > 0)
        return value / double(divisor);
    if (divisor < 0)
        return value * -double(divisor);
    return value;
}

}  // namespace

QByteArray g_logMagic()
{
    QByteArray magic("Solvanor SampleFile (C)2014 Merovin GmbH V40");
    magic.append(kLogMagicSize - magic.size(), ' ');
    return magic;
}

LogHeader g_parseLogHeader(const char *h)
{
    LogHeader header;
    header.title = upToZero(h, kLogTitleSize);
    header.count = s32(h + kCountAt);
    header.capacity = s32(h + kCapacityAt);
    header.interval = s32(h + kIntervalAt);
    header.dataSize = s32(h + kDataSizeAt);
    for (int i = 0; i < 16; ++i) {
        const char *d = h + kDescriptorsAt + kDescriptorSize * i;
        LogDescriptor &set = header.sets[i];
        set.type = quint8(d[kTypeAt]);
        set.decimals = quint8(d[kDecimalsAt]);
        set.multiplier = u32(d + kMultiplierAt);
        set.divisor = s32(d + kDivisorAt);
        set.offset = u32(d + kOffsetAt);
        header.names[i] = upToZero(h + kNamesAt + kLogNameSize * i, kLogNameSize);
    }
    header.timeCorrection = u32(h + kTimeCorrectionAt);
    header.oldestOffset = s32(h + kOldestOffsetAt);
    header.startTime = u32(h + kStartTimeAt);
    header.endTime = u32(h + kEndTimeAt);
    header.rows = u32(h + kRowsAt);
    return header;
}

bool g_isUsableLogHeader(const LogHeader &header)
{
    return header.count >= 1 && header.count <= 16 && header.dataSize >= 0 && header.dataSize <= kLogMaxDataSize &&
           header.capacity >= 0 && header.oldestOffset >= 0;
}

bool g_readLogMagic(QIODevice &device)
{
    return device.read(kLogMagicSize) == g_logMagic();
}

bool g_readLogHeader(QIODevice &device, LogHeader *header)
{
    const QByteArray bytes = device.read(kLogHeaderSize);
    if (bytes.size() != kLogHeaderSize)
        return false;
    *header = g_parseLogHeader(bytes.constData());
    return true;
}

QByteArray g_readLogData(QIODevice &device, qint32 size, bool *complete)
{
    QByteArray data = device.read(qMax(0, size));
    *complete = data.size() >= size;
    if (data.size() % 4)
        data.append(4 - data.size() % 4, '\0');
    return data;
}

double g_decodeLogValue(const LogDescriptor &d, quint32 raw)
{
    switch (d.type) {
    case 2:
    case 4: {
        double v = double(raw) + double(d.offset);
        if (d.multiplier != 0)
            v *= double(d.multiplier);
        return applyDivisor(v, d.divisor);
    }
    case 3:
    case 5: {
        double v = double(qint32(raw)) + double(qint32(d.offset));
        if (d.multiplier != 0)
            v *= double(qint32(d.multiplier));
        return applyDivisor(v, d.divisor);
    }
    case 7:
        return double(qint32(raw));
    case 8: {
        float f;
        std::memcpy(&f, &raw, sizeof f);
        return double(f);
    }
    default:
        return double(raw);
    }
}

bool g_logTypeForcesIntegers(quint8 type)
{
    return type < 2 || type == 6 || type > 8;
}

LogWindow g_logWindow(const LogHeader &header)
{
    LogWindow w;
    w.start = (header.oldestOffset >> 2) / header.count;
    w.rows = header.rows;
    w.startTime = header.startTime;
    w.endTime = header.endTime;
    return w;
}

bool g_offersOverflowRepair(const LogWindow &window, qint32 capacity)
{
    return window.start != 0 && window.start + qint64(window.rows) <= capacity;
}

void g_repairOverflow(LogWindow &window, qint32 interval)
{
    const quint32 shift = quint32(window.start) * quint32(interval);
    window.rows += quint32(window.start);
    window.startTime -= shift;
    window.endTime -= shift;
    window.start = 0;
}

LogRing::LogRing(const QByteArray &data, int wordsPerRow, qint32 capacity)
    : bytes(reinterpret_cast<const uchar *>(data.constData())), words(data.size() / 4), wordsInRow(wordsPerRow),
      ringCapacity(capacity)
{
}

qint64 LogRing::advance(qint64 row, quint64 steps) const
{
    if (steps == 0)
        return row;
    const quint64 ring = quint64(ringCapacity) + 1;
    if (row >= ringCapacity)
        return qint64((steps - 1) % ring);
    const quint64 toLast = quint64(ringCapacity - row);
    if (steps <= toLast)
        return row + qint64(steps);
    return qint64((steps - toLast - 1) % ring);
}

}  // namespace qv

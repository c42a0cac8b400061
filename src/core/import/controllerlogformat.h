// The controller's binary sampling log: a 64-byte magic, a 3008-byte header
// and a data block of rows of 32-bit words kept as a ring buffer. The same
// container carries the sensor log and its sibling logs (state log,
// parameters, card parameters).
#pragma once

#include <QByteArray>
#include <QtGlobal>

class QIODevice;

namespace qv {

constexpr int kLogMagicSize = 64;
constexpr int kLogHeaderSize = 3008;
constexpr qint32 kLogMaxDataSize = 16 * 1024 * 1024;
constexpr int kLogTitleSize = 36;
constexpr int kLogNameSize = 32;

// "Solvanor SampleFile (C)2014 Merovin GmbH V40" and 20 blanks.
QByteArray g_logMagic();

// The part of a data set's descriptor that is read.
struct LogDescriptor {
    quint8 type = 0;
    quint8 decimals = 0;
    quint32 multiplier = 0;  // unsigned or signed by type
    qint32 divisor = 0;
    quint32 offset = 0;  // unsigned or signed by type
};

struct LogHeader {
    QByteArray title;     // up to its first zero byte
    qint32 count = 0;     // words per row, one per data set
    qint32 capacity = 0;  // highest row index of the ring
    qint32 interval = 0;  // seconds
    qint32 dataSize = 0;  // bytes
    LogDescriptor sets[16];
    QByteArray names[16];        // up to their first zero byte
    quint32 timeCorrection = 0;  // seconds added to the start time
    qint32 oldestOffset = 0;     // byte offset of the oldest row
    quint32 startTime = 0;       // seconds since 1970
    quint32 endTime = 0;
    quint32 rows = 0;
};

// The fields of a complete header of kLogHeaderSize bytes, by their offsets.
LogHeader g_parseLogHeader(const char *header);

// What a header must hold before any row is addressed: 1 to 16 words per row,
// a data size of 0 to 16 MiB, a capacity and an oldest-row offset that are
// not negative.
bool g_isUsableLogHeader(const LogHeader &header);

// The three reads of a log file. readLogMagic: the 64 bytes equal the magic.
// readLogHeader: all 3008 bytes arrived. readLogData: up to size bytes, fewer
// when the file ends early (then *complete is false); padded with zeros to
// whole words.
bool g_readLogMagic(QIODevice &device);
bool g_readLogHeader(QIODevice &device, LogHeader *header);
QByteArray g_readLogData(QIODevice &device, qint32 size, bool *complete);

// The value of a raw word by the data set's type code:
//   2, 4  unsigned: (raw + offset) x multiplier (unless 0), then the divisor
//   3, 5  the same, signed
//   7     signed raw
//   8     single-precision float
//   other unsigned raw (and the data set shows no decimals)
// Divisor d: d > 0 divides, d < 0 multiplies by -d, 0 leaves the value.
double g_decodeLogValue(const LogDescriptor &descriptor, quint32 raw);
bool g_logTypeForcesIntegers(quint8 type);

// The rows to read: from start row S, `rows` rows, with the times of the
// header (all seconds; the times wrap at 32 bits as the controller's do).
struct LogWindow {
    qint64 start = 0;
    quint32 rows = 0;
    quint32 startTime = 0;
    quint32 endTime = 0;
};

// S = (oldest-row offset >> 2) / words per row. The header must be usable.
LogWindow g_logWindow(const LogHeader &header);
// The firmware overflow repair is offered when S is not 0 and S + R <= C.
bool g_offersOverflowRepair(const LogWindow &window, qint32 capacity);
// Reads the ring from row 0 instead: R + S rows, the times S intervals earlier.
void g_repairOverflow(LogWindow &window, qint32 interval);

// Rows of a data block in ring order: after row C (or any row beyond it)
// comes row 0, so the ring holds C + 1 rows. Words are addressed as
// row x words per row + i over the whole block; a word outside the data that
// arrived reads as 0.
class LogRing
{
public:
    LogRing(const QByteArray &data, int wordsPerRow, qint32 capacity);

    quint32 word(qint64 row, int i) const
    {
        const qint64 at = row * wordsInRow + i;
        if (at < 0 || at >= words)
            return 0;
        const uchar *p = bytes + at * 4;
        return quint32(p[0]) | quint32(p[1]) << 8 | quint32(p[2]) << 16 | quint32(p[3]) << 24;
    }
    qint64 next(qint64 row) const { return row >= ringCapacity ? 0 : row + 1; }
    // The row reached from `row` after `steps` calls of next().
    qint64 advance(qint64 row, quint64 steps) const;

private:
    const uchar *bytes;
    qint64 words;
    int wordsInRow;
    qint32 ringCapacity;
};

}  // namespace qv

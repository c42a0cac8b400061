// Writes controller binary sampling logs byte by byte: the 64-byte magic,
// the 3008-byte header with its fields at their offsets and the data block of
// 32-bit little-endian words. Used by the tests, the sample generator and the
// benchmark; independent of the importer's own reading.
#pragma once

#include <QByteArray>
#include <QVector>
#include <QtGlobal>

namespace qvlog {

struct DataSetSpec {
    QByteArray name;
    quint8 type = 7;
    quint8 decimals = 0;
    quint32 multiplier = 0;
    qint32 divisor = 0;
    quint32 offset = 0;
};

// The data size field that names the size of the words given.
constexpr qint32 kWordsSize = -2147483647 - 1;

struct LogLayout {
    QByteArray magic;  // null: the right one
    QByteArray title;
    qint32 count = 1;  // words per row
    qint32 capacity = 0;
    qint32 interval = 60;
    qint32 dataSize = kWordsSize;
    DataSetSpec sets[16];
    quint32 timeCorrection = 0;
    qint32 oldestOffset = 0;
    quint32 startTime = 0;
    quint32 endTime = 0;
    quint32 rows = 0;
    QVector<quint32> words;  // the data block
};

QByteArray magic();
QByteArray header(const LogLayout &layout);  // exactly 3008 bytes
QByteArray file(const LogLayout &layout);    // magic + header + data block

// Bits of a float as a raw word.
quint32 floatWord(float value);

}  // namespace qvlog

// Raw lines and fields of a CSV file, read without a text codec and without
// a copy per line or field.
#pragma once

#include <QByteArray>
#include <QtGlobal>

#include <climits>
#include <vector>

class QIODevice;

namespace qv {

// A run of bytes inside a line buffer; valid until the next line is read.
struct ByteView {
    const char *data = nullptr;
    qsizetype size = 0;

    bool isEmpty() const { return size == 0; }
    bool contains(char c) const;
    bool equals(const char *text) const;  // the whole view equals the zero-terminated text
    ByteView upToZero() const;            // the bytes before the first zero byte
    qsizetype indexOf(char c) const;      // -1 when absent
    QByteArray toByteArray() const { return QByteArray(data, int(qMin<qsizetype>(size, INT_MAX))); }
};

// Lines as QIODevice::readLine() returns them (with their '\n', the last one
// possibly without), read in large blocks; the view returned stays valid until
// the next call. At the end of the data every further call returns an empty
// view, as readLine() does.
//
// Every line is read with a bound: a line longer than maxLineBytes (its '\n'
// included) is not buffered to its end. It reads as an empty view, tooLong()
// becomes true, and the reader is at its end from then on, so a file without
// line ends (a device, a huge single line) costs one block of memory and ends
// at once.
class LineReader
{
public:
    LineReader(QIODevice &device, qsizetype maxLineBytes);
    ByteView next();
    // next() with the last `cut` bytes removed (fewer when the line is shorter).
    ByteView next(int cut);
    // The bound for the lines read from now on.
    void setMaxLineBytes(qsizetype bytes) { maxLine = qMax<qsizetype>(1, bytes); }
    bool tooLong() const { return lineTooLong; }

private:
    bool fill();
    ByteView end();

    QIODevice &source;
    qsizetype maxLine;
    std::vector<char> buffer;
    qsizetype begin = 0;      // start of the unread data
    qsizetype bufferEnd = 0;  // end of the data in the buffer
    qsizetype scanned = 0;    // bytes after begin known to hold no '\n'
    bool atEnd = false;
    bool lineTooLong = false;
};

// Splits a line at every separator byte as QByteArray::split() does (n
// separators give n + 1 fields). Stores at most maxFields views in fields and
// returns the full number of fields.
qsizetype g_splitFields(ByteView line, char separator, ByteView *fields, int maxFields);

// The number of fields left after dropping the empty fields at the end of the
// split list (a run of trailing separators counts for nothing); 0 for a line
// of separators only.
qsizetype g_countFieldsWithoutTrailingEmpty(ByteView line, char separator);

}  // namespace qv

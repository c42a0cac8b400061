#include "core/import/csvlines.h"

#include <QIODevice>

#include <cstring>

namespace qv {

namespace {

constexpr qsizetype kBlockSize = 1 << 20;

}  // namespace

bool ByteView::contains(char c) const
{
    return indexOf(c) >= 0;
}

qsizetype ByteView::indexOf(char c) const
{
    if (size <= 0)
        return -1;
    const void *hit = std::memchr(data, c, std::size_t(size));
    return hit ? static_cast<const char *>(hit) - data : -1;
}

bool ByteView::equals(const char *text) const
{
    const std::size_t n = std::strlen(text);
    return std::size_t(size) == n && (n == 0 || std::memcmp(data, text, n) == 0);
}

ByteView ByteView::upToZero() const
{
    const qsizetype zero = indexOf('\0');
    return zero < 0 ? *this : ByteView{data, zero};
}

LineReader::LineReader(QIODevice &device, qsizetype maxLineBytes)
    : source(device), maxLine(qMax<qsizetype>(1, maxLineBytes))
{
}

// Moves the unread bytes (less than one line) to the front and reads the next
// block behind them. The buffer never grows beyond one block more than the
// longest line, whatever the input. False when nothing more arrives.
bool LineReader::fill()
{
    if (atEnd)
        return false;
    if (begin > 0) {
        std::memmove(buffer.data(), buffer.data() + begin, std::size_t(bufferEnd - begin));
        bufferEnd -= begin;
        begin = 0;
    }
    // One block more than the longest line, but no more than a file still
    // holds: a small file costs a small buffer.
    qsizetype room = maxLine + 1 + kBlockSize;
    if (!source.isSequential())
        room = qMin<qsizetype>(room, bufferEnd + qMax<qint64>(0, source.size() - source.pos()) + 1);
    if (qsizetype(buffer.size()) < room)
        buffer.resize(std::size_t(room));
    const qint64 got = source.read(buffer.data() + bufferEnd, qint64(buffer.size()) - bufferEnd);
    if (got <= 0) {
        atEnd = true;
        return false;
    }
    bufferEnd += qsizetype(got);
    return true;
}

// The state after a line over the bound: nothing more is read.
ByteView LineReader::end()
{
    lineTooLong = true;
    atEnd = true;
    begin = bufferEnd = scanned = 0;
    return ByteView{buffer.data(), 0};
}

ByteView LineReader::next()
{
    if (lineTooLong)
        return ByteView{buffer.data(), 0};
    for (;;) {
        const char *from = buffer.data() + begin + scanned;
        const qsizetype left = bufferEnd - begin - scanned;
        const void *newline = left > 0 ? std::memchr(from, '\n', std::size_t(left)) : nullptr;
        if (newline) {
            const char *start = buffer.data() + begin;
            const qsizetype size = static_cast<const char *>(newline) - start + 1;
            if (size > maxLine)
                return end();
            begin += size;
            scanned = 0;
            return ByteView{start, size};
        }
        scanned = bufferEnd - begin;
        if (scanned > maxLine)
            return end();
        if (!fill()) {
            // The last line without its '\n', or the empty read at the end.
            const ByteView rest{buffer.data() + begin, bufferEnd - begin};
            begin = bufferEnd;
            scanned = 0;
            return rest;
        }
    }
}

ByteView LineReader::next(int cut)
{
    ByteView line = next();
    line.size = qMax<qsizetype>(0, line.size - cut);
    return line;
}

qsizetype g_splitFields(ByteView line, char separator, ByteView *fields, int maxFields)
{
    qsizetype count = 0;
    const char *p = line.data;
    const char *const end = line.data + line.size;
    for (;;) {
        const void *hit = p < end ? std::memchr(p, separator, std::size_t(end - p)) : nullptr;
        const char *fieldEnd = hit ? static_cast<const char *>(hit) : end;
        if (count < maxFields)
            fields[count] = ByteView{p, fieldEnd - p};
        ++count;
        if (!hit)
            return count;
        p = fieldEnd + 1;
    }
}

qsizetype g_countFieldsWithoutTrailingEmpty(ByteView line, char separator)
{
    qsizetype size = line.size;
    while (size > 0 && line.data[size - 1] == separator)
        --size;
    if (size == 0)
        return 0;
    qsizetype count = 1;
    for (const char *p = line.data, *end = line.data + size;;) {
        const void *hit = std::memchr(p, separator, std::size_t(end - p));
        if (!hit)
            return count;
        ++count;
        p = static_cast<const char *>(hit) + 1;
    }
}

}  // namespace qv

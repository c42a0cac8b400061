// The compressed block of the project file: a 4-byte big-endian length of the
// uncompressed data, then a zlib stream (the framing of Qt's qCompress).
// Both directions stream in chunks, so no second copy of the payload is made
// and the caller can report progress between chunks.
#pragma once

#include <QByteArray>

#include <functional>
#include <memory>

namespace qv {

class DeflateWriter
{
public:
    // totalSize: the uncompressed size written into the 4-byte header.
    DeflateWriter(quint32 totalSize, int level);
    ~DeflateWriter();
    DeflateWriter(const DeflateWriter &) = delete;
    DeflateWriter &operator=(const DeflateWriter &) = delete;

    // Feeds uncompressed bytes; progress is called after each chunk with the
    // number of bytes consumed so far.
    bool write(const void *bytes, qint64 size);
    bool writeItemHeader(quint32 length);
    // Ends the stream; result() then holds header + zlib stream.
    bool finish();
    const QByteArray &result() const { return m_out; }

    std::function<void(qint64 consumed)> progress;

private:
    bool pump(int flush);
    struct State;
    std::unique_ptr<State> d;
    QByteArray m_out;
    qint64 m_consumed = 0;
    bool m_ok = true;
};

class InflateReader
{
public:
    // block: header + zlib stream. At most maxOutput bytes are ever produced;
    // a stream that would give more counts as damaged.
    InflateReader(const QByteArray &block, qint64 maxOutput);
    ~InflateReader();
    InflateReader(const InflateReader &) = delete;
    InflateReader &operator=(const InflateReader &) = delete;

    // Reads exactly size bytes of uncompressed data; false when the stream is
    // damaged or ends first.
    bool read(void *destination, qint64 size);
    // Reads a 32-bit big-endian item length.
    bool readItemHeader(quint32 *length);
    // Inflates the rest of the stream (discarding it) and reports whether the
    // whole stream was sound.
    bool finish();
    qint64 produced() const { return m_produced; }

private:
    struct State;
    std::unique_ptr<State> d;
    qint64 m_produced = 0;
    qint64 m_maxOutput;
    bool m_ok = true;
    bool m_ended = false;
};

}  // namespace qv

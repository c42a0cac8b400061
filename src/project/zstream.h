// The compressed block of the project file: a 4-byte big-endian length of the
// uncompressed data, then a zlib stream (the framing of Qt's qCompress, so
// qUncompress reads it).
//
// Writing compresses the payload in a few independent parts on worker
// threads and joins them into one zlib stream (each part starts with the
// 32 KiB before it as its dictionary, so the ratio stays that of a single
// stream). The caller's thread only reports progress meanwhile. Reading
// inflates in chunks straight into the caller's records.
#pragma once

#include <QByteArray>

#include <functional>
#include <memory>
#include <vector>

namespace qv {

struct ByteSpan {
    const void *data;
    qint64 size;
};

// Compresses the concatenation of spans. progress(consumed, total) is called
// on the calling thread while the work runs. Returns an empty array on failure.
QByteArray g_compressFramed(const std::vector<ByteSpan> &spans, int level,
                            const std::function<void(qint64, qint64)> &progress);

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

private:
    struct State;
    std::unique_ptr<State> d;
    qint64 m_produced = 0;
    qint64 m_maxOutput;
    bool m_ok = true;
    bool m_ended = false;
};

}  // namespace qv

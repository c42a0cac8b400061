// The compressed block of the project file: a 4-byte big-endian length of the
// uncompressed data, then a zlib stream (the framing of Qt's qCompress, so
// qUncompress and every zlib reader take our files).
//
// Both directions are single calls into libdeflate over whole buffers: the
// payload is small enough to hold in memory, and a whole-buffer deflate is
// several times faster than zlib's streaming one.
#pragma once

#include <QtGlobal>

#include <functional>

namespace qv {

// A scratch buffer for a whole payload, in pages of its own (g_allocatePages),
// or from the heap when the system refuses those. Its contents start
// undefined.
class PayloadBuffer
{
public:
    explicit PayloadBuffer(qint64 size);
    ~PayloadBuffer();
    PayloadBuffer(const PayloadBuffer &) = delete;
    PayloadBuffer &operator=(const PayloadBuffer &) = delete;

    char *data() const { return bytes; }
    qint64 size() const { return byteCount; }
    bool isNull() const { return bytes == nullptr; }

private:
    char *bytes = nullptr;
    qint64 byteCount = 0;
    bool mapped = false;
};

// Maps the pages of a large region in one go before it is read or written
// whole, rather than one fault per page. Only a hint: errors are ignored.
void g_populate(const void *data, qint64 size, bool forWriting);

// The most bytes a zlib stream of size input bytes can take at level.
qint64 g_zlibBound(qint64 size, int level);

// Compresses size bytes at data into a zlib stream at level (1..12) in
// out[0, capacity), where capacity is at least g_zlibBound(size, level). The
// work runs on a worker thread; meanwhile the calling thread calls waiting()
// about every 30 ms with the seconds spent so far, so a progress dialog stays
// live. Returns the length of the bare zlib stream; 0 on failure.
qint64 g_zlibCompress(const char *data, qint64 size, int level, char *out, qint64 capacity,
                      const std::function<void(double)> &waiting);

// Inflates the zlib stream in[0, inSize) into out[0, capacity). The capacity
// bounds what a hostile stream can make us produce: a stream that would give
// more, is damaged, or fails its checksum counts as a failure. On success
// *produced holds the number of bytes written. Bytes after the end of the
// stream are ignored.
bool g_zlibDecompress(const char *in, qint64 inSize, char *out, qint64 capacity, qint64 *produced);

}  // namespace qv

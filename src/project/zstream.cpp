#include "zstream.h"

#include <zlib.h>

#include <atomic>
#include <chrono>
#include <cstring>
#include <thread>

namespace qv {

namespace {

constexpr uInt kChunk = 1u << 20;  // bytes handed to zlib per call

QByteArray bigEndian32(quint32 v)
{
    const char b[4] = {char(v >> 24), char(v >> 16), char(v >> 8), char(v)};
    return QByteArray(b, 4);
}

}  // namespace

namespace {

// A read-only view of the spans as one byte sequence.
class Concatenation
{
public:
    explicit Concatenation(const std::vector<ByteSpan> &spans) : m_spans(spans)
    {
        for (const ByteSpan &s : spans)
            m_total += s.size;
    }
    qint64 total() const { return m_total; }

    // Calls sink(pointer, size) for the bytes in [begin, end), in order.
    template <typename Sink>
    bool forEach(qint64 begin, qint64 end, Sink &&sink) const
    {
        qint64 offset = 0;
        for (const ByteSpan &s : m_spans) {
            const qint64 from = qMax(begin, offset);
            const qint64 to = qMin(end, offset + s.size);
            if (from < to && !sink(static_cast<const Bytef *>(s.data) + (from - offset), to - from))
                return false;
            offset += s.size;
        }
        return true;
    }

private:
    const std::vector<ByteSpan> &m_spans;
    qint64 m_total = 0;
};

struct Part {
    qint64 begin = 0;
    qint64 end = 0;
    QByteArray out;  // raw deflate data of this part
    uLong adler = 1;
    bool ok = false;
};

constexpr qint64 kMinPartBytes = qint64(4) << 20;
constexpr int kMaxParts = 4;  // fixed, so the bytes written never depend on the machine
constexpr uInt kWindow = 32768;

bool growAndDeflate(z_stream &z, QByteArray &out, int flush)
{
    for (;;) {
        if (out.capacity() - out.size() < int(kChunk / 4))
            out.reserve(out.size() + qMax(out.size() / 2, int(kChunk)));
        const int before = out.size();
        const int room = out.capacity() - before;
        out.resize(out.capacity());
        z.next_out = reinterpret_cast<Bytef *>(out.data() + before);
        z.avail_out = uInt(room);
        const int rc = deflate(&z, flush);
        out.resize(before + room - int(z.avail_out));
        if (rc == Z_STREAM_ERROR)
            return false;
        if (flush == Z_FINISH ? rc == Z_STREAM_END : (z.avail_in == 0 && z.avail_out != 0))
            return true;
    }
}

void compressPart(const Concatenation &input, Part &part, bool last, int level, std::atomic<qint64> &consumed)
{
    z_stream z;
    std::memset(&z, 0, sizeof z);
    if (deflateInit2(&z, level, Z_DEFLATED, -15, 8, Z_DEFAULT_STRATEGY) != Z_OK)
        return;
    bool ok = true;
    if (part.begin > 0) {
        QByteArray dictionary;
        input.forEach(qMax<qint64>(0, part.begin - kWindow), part.begin, [&](const Bytef *p, qint64 n) {
            dictionary.append(reinterpret_cast<const char *>(p), int(n));
            return true;
        });
        ok = deflateSetDictionary(&z, reinterpret_cast<const Bytef *>(dictionary.constData()),
                                  uInt(dictionary.size())) == Z_OK;
    }
    part.out.reserve(int(qMin<qint64>((part.end - part.begin) / 4 + 1024, qint64(64) << 20)));
    ok = ok && input.forEach(part.begin, part.end, [&](const Bytef *p, qint64 n) {
        while (n > 0) {
            const uInt piece = uInt(qMin<qint64>(n, kChunk));
            part.adler = adler32(part.adler, p, piece);
            z.next_in = const_cast<Bytef *>(p);
            z.avail_in = piece;
            if (!growAndDeflate(z, part.out, Z_NO_FLUSH))
                return false;
            consumed += piece;
            p += piece;
            n -= piece;
        }
        return true;
    });
    z.next_in = nullptr;
    z.avail_in = 0;
    // Every part but the last ends on a byte boundary without closing the stream.
    part.ok = ok && growAndDeflate(z, part.out, last ? Z_FINISH : Z_SYNC_FLUSH);
    deflateEnd(&z);
}

QByteArray zlibHeader(int level)
{
    const int flevel = level < 2 ? 0 : level < 6 ? 1 : level == 6 ? 2 : 3;
    int header = (0x78 << 8) | (flevel << 6);
    header += 31 - header % 31;
    const char bytes[2] = {char(header >> 8), char(header & 0xFF)};
    return QByteArray(bytes, 2);
}

}  // namespace

QByteArray g_compressFramed(const std::vector<ByteSpan> &spans, int level,
                            const std::function<void(qint64, qint64)> &progress)
{
    const Concatenation input(spans);
    const qint64 total = input.total();
    if (total > qint64(0xFFFFFFFFu))
        return QByteArray();

    const int partCount = int(qBound<qint64>(1, total / kMinPartBytes, kMaxParts));
    std::vector<Part> parts(static_cast<std::size_t>(partCount));
    for (int i = 0; i < partCount; ++i) {
        parts[std::size_t(i)].begin = total * i / partCount;
        parts[std::size_t(i)].end = total * (i + 1) / partCount;
    }

    std::atomic<qint64> consumed{0};
    std::atomic<int> next{0};
    std::atomic<int> finished{0};
    auto worker = [&] {
        for (int i = next++; i < partCount; i = next++) {
            compressPart(input, parts[std::size_t(i)], i == partCount - 1, level, consumed);
            ++finished;
        }
    };
    const int threads = qBound(1, int(std::thread::hardware_concurrency()), partCount);
    std::vector<std::thread> pool;
    for (int t = 0; t < threads; ++t)
        pool.emplace_back(worker);
    // This thread keeps the progress moving until the workers are done.
    while (finished.load() < partCount) {
        if (progress)
            progress(consumed.load(), total);
        std::this_thread::sleep_for(std::chrono::milliseconds(25));
    }
    for (std::thread &t : pool)
        t.join();
    if (progress)
        progress(consumed.load(), total);

    QByteArray out;
    qint64 size = 4 + 2 + 4;
    for (const Part &p : parts) {
        if (!p.ok)
            return QByteArray();
        size += p.out.size();
    }
    if (size > qint64(0x7FFFFFFF) - 64)
        return QByteArray();
    out.reserve(int(size));
    out += bigEndian32(quint32(total));
    out += zlibHeader(level);
    uLong adler = 1;
    for (const Part &p : parts) {
        out += p.out;
        adler = adler32_combine(adler, p.adler, z_off_t(p.end - p.begin));
    }
    out += bigEndian32(quint32(adler));
    return out;
}

struct InflateReader::State {
    z_stream z;
    bool initialised = false;
};

InflateReader::InflateReader(const QByteArray &block, qint64 maxOutput)
    : d(new State), m_maxOutput(maxOutput)
{
    std::memset(&d->z, 0, sizeof d->z);
    if (block.size() < 4) {
        m_ok = false;
        return;
    }
    d->initialised = inflateInit(&d->z) == Z_OK;
    m_ok = d->initialised;
    // The 4-byte length is only a size hint; the stream itself decides.
    d->z.next_in = reinterpret_cast<Bytef *>(const_cast<char *>(block.constData() + 4));
    d->z.avail_in = uInt(block.size() - 4);
}

InflateReader::~InflateReader()
{
    if (d->initialised)
        inflateEnd(&d->z);
}

bool InflateReader::read(void *destination, qint64 size)
{
    auto *out = static_cast<Bytef *>(destination);
    while (m_ok && size > 0) {
        if (m_ended || m_produced + size > m_maxOutput) {
            m_ok = false;
            break;
        }
        const uInt n = uInt(qMin<qint64>(size, kChunk));
        d->z.next_out = out;
        d->z.avail_out = n;
        const int rc = inflate(&d->z, Z_NO_FLUSH);
        const uInt got = n - d->z.avail_out;
        out += got;
        size -= got;
        m_produced += got;
        if (rc == Z_STREAM_END)
            m_ended = true;
        else if (rc != Z_OK)
            m_ok = false;  // damaged data, or input ended before the stream
    }
    return m_ok;
}

bool InflateReader::readItemHeader(quint32 *length)
{
    unsigned char b[4];
    if (!read(b, 4))
        return false;
    *length = (quint32(b[0]) << 24) | (quint32(b[1]) << 16) | (quint32(b[2]) << 8) | b[3];
    return true;
}

bool InflateReader::finish()
{
    QByteArray sink(1 << 16, Qt::Uninitialized);
    while (m_ok && !m_ended) {
        d->z.next_out = reinterpret_cast<Bytef *>(sink.data());
        d->z.avail_out = uInt(sink.size());
        const int rc = inflate(&d->z, Z_NO_FLUSH);
        m_produced += qint64(sink.size()) - qint64(d->z.avail_out);
        if (m_produced > m_maxOutput)
            m_ok = false;
        else if (rc == Z_STREAM_END)
            m_ended = true;
        else if (rc != Z_OK)
            m_ok = false;
    }
    return m_ok;
}

}  // namespace qv

#include "zstream.h"

#include <zlib.h>

#include <cstring>

namespace qv {

namespace {

constexpr uInt kChunk = 1u << 20;  // bytes handed to zlib per call

void putBigEndian32(unsigned char *p, quint32 v)
{
    p[0] = uchar(v >> 24);
    p[1] = uchar(v >> 16);
    p[2] = uchar(v >> 8);
    p[3] = uchar(v);
}

}  // namespace

struct DeflateWriter::State {
    z_stream z;
    bool initialised = false;
};

DeflateWriter::DeflateWriter(quint32 totalSize, int level) : d(new State)
{
    std::memset(&d->z, 0, sizeof d->z);
    d->initialised = deflateInit(&d->z, level) == Z_OK;
    m_ok = d->initialised;
    // Room for a well-compressible payload; grows when needed.
    m_out.reserve(int(qMin<quint64>(quint64(totalSize) / 4 + 1024, 64u << 20)));
    m_out.resize(4);
    putBigEndian32(reinterpret_cast<unsigned char *>(m_out.data()), totalSize);
}

DeflateWriter::~DeflateWriter()
{
    if (d->initialised)
        deflateEnd(&d->z);
}

bool DeflateWriter::pump(int flush)
{
    for (;;) {
        if (m_out.capacity() - m_out.size() < int(kChunk / 4))
            m_out.reserve(m_out.size() + qMax(m_out.size() / 2, int(kChunk)));
        const int before = m_out.size();
        const int room = m_out.capacity() - before;
        m_out.resize(m_out.capacity());
        d->z.next_out = reinterpret_cast<Bytef *>(m_out.data() + before);
        d->z.avail_out = uInt(room);
        const int rc = deflate(&d->z, flush);
        m_out.resize(before + room - int(d->z.avail_out));
        if (rc == Z_STREAM_ERROR)
            return false;
        if (flush == Z_FINISH) {
            if (rc == Z_STREAM_END)
                return true;
            continue;
        }
        if (d->z.avail_in == 0 && d->z.avail_out != 0)
            return true;
    }
}

bool DeflateWriter::write(const void *bytes, qint64 size)
{
    const auto *p = static_cast<const Bytef *>(bytes);
    while (m_ok && size > 0) {
        const uInt n = uInt(qMin<qint64>(size, kChunk));
        d->z.next_in = const_cast<Bytef *>(p);
        d->z.avail_in = n;
        m_ok = pump(Z_NO_FLUSH);
        p += n;
        size -= n;
        m_consumed += n;
        if (m_ok && progress)
            progress(m_consumed);
    }
    return m_ok;
}

bool DeflateWriter::writeItemHeader(quint32 length)
{
    unsigned char header[4];
    putBigEndian32(header, length);
    return write(header, 4);
}

bool DeflateWriter::finish()
{
    if (!m_ok)
        return false;
    d->z.next_in = nullptr;
    d->z.avail_in = 0;
    m_ok = pump(Z_FINISH);
    return m_ok;
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

#include "core/project/compression.h"

#include "core/base/pages.h"

#include <libdeflate.h>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#include <unistd.h>
#endif

#include <chrono>
#include <cstdlib>
#include <future>
#include <memory>

namespace qv {

namespace {

struct CompressorFree {
    void operator()(libdeflate_compressor *c) const { libdeflate_free_compressor(c); }
};
struct DecompressorFree {
    void operator()(libdeflate_decompressor *d) const { libdeflate_free_decompressor(d); }
};

}  // namespace

PayloadBuffer::PayloadBuffer(qint64 size)
{
    if (size <= 0)
        return;
    if (void *p = g_allocatePages(size_t(size))) {
        bytes = static_cast<char *>(p);
        byteCount = size;
        mapped = true;
        return;
    }
    bytes = static_cast<char *>(std::malloc(size_t(size)));
    byteCount = bytes ? size : 0;
}

PayloadBuffer::~PayloadBuffer()
{
    if (mapped) {
        g_releasePages(bytes, size_t(byteCount));
        return;
    }
    std::free(bytes);
}

void g_populate(const void *data, qint64 size, bool forWriting)
{
#if defined(Q_OS_LINUX) && defined(MADV_POPULATE_WRITE)
    const auto page = quintptr(sysconf(_SC_PAGESIZE));
    if (size <= 0 || page == 0)
        return;
    const quintptr begin = quintptr(data) & ~(page - 1);
    const quintptr end = quintptr(data) + quintptr(size);
    madvise(reinterpret_cast<void *>(begin), size_t(end - begin),
            forWriting ? MADV_POPULATE_WRITE : MADV_POPULATE_READ);
#else
    Q_UNUSED(data);
    Q_UNUSED(size);
    Q_UNUSED(forWriting);
#endif
}

qint64 g_zlibBound(qint64 size, int level)
{
    std::unique_ptr<libdeflate_compressor, CompressorFree> compressor(
        libdeflate_alloc_compressor(qBound(1, level, 12)));
    return compressor ? qint64(libdeflate_zlib_compress_bound(compressor.get(), size_t(qMax<qint64>(size, 0)))) : -1;
}

qint64 g_zlibCompress(const char *data, qint64 size, int level, char *out, qint64 capacity,
                      const std::function<void(double)> &waiting)
{
    if (size < 0 || capacity <= 0 || level < 1 || level > 12)
        return 0;
    std::unique_ptr<libdeflate_compressor, CompressorFree> compressor(libdeflate_alloc_compressor(level));
    if (!compressor)
        return 0;
    const auto start = std::chrono::steady_clock::now();
    std::future<size_t> done = std::async(std::launch::async, [&] {
        return libdeflate_zlib_compress(compressor.get(), data, size_t(size), out, size_t(capacity));
    });
    while (done.wait_for(std::chrono::milliseconds(30)) != std::future_status::ready) {
        if (waiting)
            waiting(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    return qint64(done.get());
}

bool g_zlibDecompress(const char *in, qint64 inSize, char *out, qint64 capacity, qint64 *produced)
{
    if (inSize <= 0 || capacity < 0)
        return false;
    std::unique_ptr<libdeflate_decompressor, DecompressorFree> decompressor(libdeflate_alloc_decompressor());
    if (!decompressor)
        return false;
    size_t actual = 0;
    const libdeflate_result r =
        libdeflate_zlib_decompress(decompressor.get(), in, size_t(inSize), out, size_t(capacity), &actual);
    if (r != LIBDEFLATE_SUCCESS)
        return false;
    *produced = qint64(actual);
    return true;
}

}  // namespace qv

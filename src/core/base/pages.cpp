#include "core/base/pages.h"

#include <QtGlobal>

#include <cstdlib>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

namespace qv {

void *g_allocatePages(std::size_t size)
{
#ifdef Q_OS_LINUX
    void *p = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (p == MAP_FAILED)
        return nullptr;
    madvise(p, size, MADV_HUGEPAGE);
    return p;
#else
    return std::calloc(1, size);
#endif
}

void g_releasePages(void *pages, std::size_t size)
{
#ifdef Q_OS_LINUX
    munmap(pages, size);
#else
    Q_UNUSED(size);
    std::free(pages);
#endif
}

}  // namespace qv

// Large zero-filled blocks in pages of their own: the model's stores and the
// project file's payload buffers. On Linux they are private anonymous
// mappings, backed by memory only once written and with huge pages where the
// system offers them, so that filling 64 MiB costs a few dozen page faults
// instead of sixteen thousand.
#pragma once

#include <cstddef>

namespace qv {

// size bytes of zero-filled memory; nullptr when the system refuses them.
void *g_allocatePages(std::size_t size);
// Gives back a block of g_allocatePages of the same size.
void g_releasePages(void *pages, std::size_t size);

}  // namespace qv

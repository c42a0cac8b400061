// Feeds arbitrary bytes to the project loader: it must end in one of its
// messages or succeed, never crash, read out of bounds or allocate wildly.
#include "core/project/projectfile.h"
#include "fuzzinput.h"

#include <QBuffer>

#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    QBuffer buffer;
    buffer.setData(reinterpret_cast<const char *>(data), int(size));
    buffer.open(QIODevice::ReadOnly);
    qv::g_readProject(qvfuzz::freshModel(), buffer, qv::ProgressFn());
    return 0;
}

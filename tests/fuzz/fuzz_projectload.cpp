// Feeds arbitrary bytes to the project loader: it must end in one of its
// messages or succeed, never crash, read out of bounds or allocate wildly.
#include "project/projectfile.h"

#include <QBuffer>

#include <cstdint>
#include <memory>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static auto model = std::make_unique<qv::ChartModel>();
    QBuffer buffer;
    buffer.setData(reinterpret_cast<const char *>(data), int(size));
    buffer.open(QIODevice::ReadOnly);
    qv::g_readProject(*model, buffer, qv::ProgressFn());
    return 0;
}

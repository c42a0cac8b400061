#include "core/model/fixedstring.h"

#include <cstring>

namespace qv {

namespace {

constexpr int kMaxWidth = 65536;

bool usable(const char *destination, int width)
{
    return destination && width >= 1 && width <= kMaxWidth;
}

void copyLatin1(char *destination, const QString &text, int width, int maxBytes)
{
    std::memset(destination, 0, std::size_t(width));
    const QByteArray latin1 = text.toLatin1();
    const int n = qMin(latin1.size(), maxBytes);
    if (n > 0)
        std::memcpy(destination, latin1.constData(), std::size_t(n));
}

}  // namespace

void g_qString2Buffer(char *destination, const QString &text, int width)
{
    if (usable(destination, width))
        copyLatin1(destination, text, width, width - 1);
}

void g_qString2BufferWO0(char *destination, const QString &text, int width)
{
    if (usable(destination, width))
        copyLatin1(destination, text, width, width);
}

void g_char2Buffer(char *destination, const char *text, int width)
{
    if (!usable(destination, width))
        return;
    std::memset(destination, 0, std::size_t(width));
    if (!text)
        return;
    const std::size_t n = strnlen(text, std::size_t(width - 1));
    std::memcpy(destination, text, n);
}

QString g_buffer2QString(const char *field, int width)
{
    if (!field || width <= 0)
        return QString();
    const std::size_t n = strnlen(field, std::size_t(width));
    return QString::fromLatin1(field, int(n));
}

}  // namespace qv

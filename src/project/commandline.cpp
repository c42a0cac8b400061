#include "project/commandline.h"

namespace qv {

QString g_projectArgument(int argc, const char *const *argv)
{
    if (argc != 2 || !argv || !argv[1])
        return QString();
    return QString::fromLatin1(argv[1]).replace(QLatin1Char('\\'), QLatin1Char('/'));
}

}  // namespace qv

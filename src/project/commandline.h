// The command line of the desktop program: exactly one argument names a
// project to open; any other count of arguments is ignored.
#pragma once

#include <QString>

namespace qv {

// argv[1] read as Latin-1 with every backslash turned into '/', or empty.
QString g_projectArgument(int argc, const char *const *argv);

}  // namespace qv

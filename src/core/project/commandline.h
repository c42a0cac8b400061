// The command line of the desktop program: exactly one argument names a
// file to take at start; any other count of arguments is ignored. A
// sampling file is imported as a new project, anything else is opened as a
// project.
#pragma once

#include <QString>

namespace qv {

// argv[1] read as Latin-1 with every backslash turned into '/', or empty.
QString g_projectArgument(int argc, const char *const *argv);

struct StartRequest {
    enum Action { Nothing, OpenProject, ImportSampling };
    Action action = Nothing;
    QString path;
};

// What to do at start: a file judged a sampling file (controller CSV or log,
// vaporix-VIS CSV) is imported, any other single argument opened.
StartRequest g_startRequest(int argc, const char *const *argv);

}  // namespace qv

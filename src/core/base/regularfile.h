// Only regular files are read or written. A device, a FIFO, a socket or a
// folder is refused before anything blocks on it or replaces it.
#pragma once

#include <QString>

class QFile;

namespace qv {

// True when path names a regular file (symbolic links followed).
bool g_isRegularFile(const QString &path);
// True when nothing exists at path or it is a regular file: the only places a
// save may write to.
bool g_mayReplace(const QString &path);
// Opens file (its name already set) read-only when it is a regular file. The
// name is opened without blocking and checked on the open handle, so a FIFO
// put in place between a check and the open cannot stall the program.
bool g_openRegularFile(QFile &file);

}  // namespace qv

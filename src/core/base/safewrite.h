// The one way our outputs reach the disk (CSV tables, PDF pages, pictures):
// a file is replaced whole or not at all.
#pragma once

#include "core/base/fileresult.h"

#include <QString>

#include <functional>

class QIODevice;

namespace qv {

// Writes the file at path through write(), which fills the device it is given
// and returns a failed result to give up. Only a regular file (or nothing) at
// path is replaced; anything else (a folder, a device, a FIFO) is refused
// before anything is opened, so nothing blocks on it. The bytes go to a
// temporary file beside path, every write and the close are checked, and only
// a complete file is renamed over path: on any failure the old file stays as
// it was and the temporary file goes.
FileResult g_writeFileWhole(const QString &path, const std::function<FileResult(QIODevice &device)> &write);

}  // namespace qv

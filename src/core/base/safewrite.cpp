#include "core/base/safewrite.h"

#include "core/base/regularfile.h"

#include <QSaveFile>

namespace qv {

FileResult g_writeFileWhole(const QString &path, const std::function<FileResult(QIODevice &device)> &write)
{
    const FileResult writeError = FileResult::failure(kMsgWriteError, FileError::CannotWrite);
    if (!g_mayReplace(path))
        return writeError;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return writeError;
    const FileResult written = write(file);
    if (!written.ok) {
        file.cancelWriting();
        return written;
    }
    // A failed write leaves QSaveFile in its error state, and commit() then
    // removes the temporary file instead of renaming it.
    return file.commit() ? written : writeError;
}

}  // namespace qv

// Small rules about project file names, kept apart from the dialogs that use them.
#pragma once

#include <QString>

namespace qv {

// Save asks for a name unless the path contains ".qvj" in exactly this case.
bool g_needsSaveDialog(const QString &projectFile);
// The backup name: every ".qvj" (any case) replaced by ".bak". Empty when the
// path holds no ".qvj", because the backup would then be the file itself.
QString g_backupPath(const QString &projectFile);
// The directory part before the last '/', or current when there is none.
QString g_projectDirOf(const QString &projectFile, const QString &current);

}  // namespace qv

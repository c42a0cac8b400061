// Small rules about project file names, kept apart from the dialogs that use them.
#pragma once

#include <QString>

namespace qv {

// Save asks for a name unless the path contains ".qvj" in exactly this case
// or the file name ends in ".qvj" in any case (as a save names it).
bool g_needsSaveDialog(const QString &projectFile);
// The project file for a chosen name: the name itself when it ends in ".qvj"
// (any case), else the name with ".qvj" appended, so a project never hides
// from the Open dialog's filter and a sampling file is never overwritten.
QString g_projectOutputName(const QString &output);
// The backup name: only the file name's extension becomes ".bak"
// (/p/x.qvj.d/out.qvj -> /p/x.qvj.d/out.bak); a name without extension, or
// one that already ends in ".bak", gets ".bak" appended so the backup is never
// the file itself. Empty when the path names no file.
QString g_backupPath(const QString &projectFile);
// The directory part before the last '/', or current when there is none.
QString g_projectDirOf(const QString &projectFile, const QString &current);

}  // namespace qv

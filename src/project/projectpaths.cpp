#include "projectpaths.h"

namespace qv {

bool g_needsSaveDialog(const QString &projectFile)
{
    return !projectFile.contains(QLatin1String(".qvj"), Qt::CaseSensitive);
}

QString g_backupPath(const QString &projectFile)
{
    QString backup = projectFile;
    backup.replace(QLatin1String(".qvj"), QLatin1String(".bak"), Qt::CaseInsensitive);
    if (backup == projectFile)
        return QString();
    return backup;
}

QString g_projectDirOf(const QString &projectFile, const QString &current)
{
    const int slash = projectFile.lastIndexOf(QLatin1Char('/'));
    return slash < 0 ? current : projectFile.left(slash);
}

}  // namespace qv

#include "core/project/projectpaths.h"

namespace qv {

bool g_needsSaveDialog(const QString &projectFile)
{
    const QLatin1String extension(".qvj");
    return !projectFile.contains(extension, Qt::CaseSensitive) && !projectFile.endsWith(extension, Qt::CaseInsensitive);
}

QString g_projectOutputName(const QString &output)
{
    const QLatin1String extension(".qvj");
    return output.endsWith(extension, Qt::CaseInsensitive) ? output : output + extension;
}

QString g_backupPath(const QString &projectFile)
{
    const QLatin1String bak(".bak");
    const int nameStart = projectFile.lastIndexOf(QLatin1Char('/')) + 1;
    if (nameStart >= projectFile.size())
        return QString();
    const int dot = projectFile.lastIndexOf(QLatin1Char('.'));
    // A leading dot starts a hidden name, not an extension.
    if (dot <= nameStart || projectFile.endsWith(bak, Qt::CaseInsensitive))
        return projectFile + bak;
    return projectFile.left(dot) + bak;
}

QString g_projectDirOf(const QString &projectFile, const QString &current)
{
    const int slash = projectFile.lastIndexOf(QLatin1Char('/'));
    return slash < 0 ? current : projectFile.left(slash);
}

}  // namespace qv

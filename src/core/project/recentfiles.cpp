#include "core/project/recentfiles.h"

namespace qv {

void g_addRecentFile(QStringList &recentFiles, const QString &path)
{
    recentFiles.removeAll(path);
    while (recentFiles.size() >= kMaxRecentFiles)
        recentFiles.removeLast();
    recentFiles.prepend(path);
}

void g_removeRecentFile(QStringList &recentFiles, const QString &path)
{
    recentFiles.removeAll(path);
}

QString g_titlePath(const QString &path)
{
    if (path.size() < 81)
        return path;
    return QStringLiteral("...") + path.right(75);
}

QString g_menuText(const QString &path)
{
    QString text = path;
    return text.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace qv

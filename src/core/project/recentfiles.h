// Rules of the recent-projects list and the window title (no widgets).
#pragma once

#include <QString>
#include <QStringList>

namespace qv {

constexpr int kMaxRecentFiles = 16;

// Puts path at the front: every equal entry is removed first, and the list
// never grows beyond kMaxRecentFiles (the oldest entries go).
void g_addRecentFile(QStringList &recentFiles, const QString &path);
// Takes every entry equal to path out of the list.
void g_removeRecentFile(QStringList &recentFiles, const QString &path);

// The path as shown in the title: one of 81 characters or more becomes "..."
// followed by its last 75 characters.
QString g_titlePath(const QString &path);

// The path as a menu entry's text: every '&' doubled, so that it shows as it
// is instead of marking a shortcut.
QString g_menuText(const QString &path);

}  // namespace qv

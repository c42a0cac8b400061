// What the program does after its event loop has ended.
#pragma once

#include <QString>

// Exit request: 256 starts the program again, 257 starts the downloaded
// updater. Only the update command sets it.
extern int appVal;

namespace qv {

constexpr int kRestartProgram = 256;
constexpr int kStartUpdater = 257;

// The program to start detached for an exit request, or empty for none: the
// updater is started under exactly the name it was saved as.
QString g_programAfterExit(int request, const QString &appDir, const QString &settingsDir);
// Whether path is a regular file we may execute.
bool g_canStart(const QString &path);
// Starts it; false when there is nothing to start or it could not be
// started, which is then said on stderr (no window is left to say it in).
bool g_runAfterExit(int request, const QString &appDir, const QString &settingsDir);

}  // namespace qv

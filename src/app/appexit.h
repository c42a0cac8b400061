// What the program does after its event loop has ended.
#pragma once

#include <QString>

// Exit request: 256 starts the program again, 257 starts the downloaded
// updater. Only the update command sets it.
extern int appVal;

namespace qv {

constexpr int kRestartProgram = 256;
constexpr int kStartUpdater = 257;

// The program to start detached for an exit request, or empty for none.
QString g_programAfterExit(int request, const QString &appDir, const QString &settingsDir);
// Starts it; false when there is nothing to start or it could not be started.
bool g_runAfterExit(int request, const QString &appDir, const QString &settingsDir);

}  // namespace qv

#include "app/appexit.h"

#include <QProcess>

int appVal = 0;

namespace qv {

QString g_programAfterExit(int request, const QString &appDir, const QString &settingsDir)
{
    if (request == kRestartProgram)
        return appDir + QStringLiteral("/Quorvanta");
    if (request == kStartUpdater)
        return settingsDir + QStringLiteral("/QuorvantaUpdate");
    return QString();
}

bool g_runAfterExit(int request, const QString &appDir, const QString &settingsDir)
{
    const QString program = g_programAfterExit(request, appDir, settingsDir);
    return !program.isEmpty() && QProcess::startDetached(program, QStringList());
}

}  // namespace qv

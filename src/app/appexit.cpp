#include "app/appexit.h"

#include "core/update/updaterules.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

#include <cstdio>

int appVal = 0;

namespace qv {

QString g_programAfterExit(int request, const QString &appDir, const QString &settingsDir)
{
    if (request == kRestartProgram)
        return appDir + QStringLiteral("/Quorvanta");
    if (request == kStartUpdater)
        return settingsDir + QLatin1Char('/') + QString::fromLatin1(kUpdaterFileName);
    return QString();
}

bool g_canStart(const QString &path)
{
    const QFileInfo info(path);
    return info.isFile() && info.isExecutable();
}

bool g_runAfterExit(int request, const QString &appDir, const QString &settingsDir)
{
    const QString program = g_programAfterExit(request, appDir, settingsDir);
    if (program.isEmpty())
        return false;
    if (QProcess::startDetached(program, QStringList()))
        return true;
    const QString text = QCoreApplication::translate("QuorvantaClass", "The update cannot be started: %1")
                             .arg(QDir::toNativeSeparators(program));
    std::fprintf(stderr, "%s\n", text.toLocal8Bit().constData());
    return false;
}

}  // namespace qv

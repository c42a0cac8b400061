#include "app/appexit.h"
#include "app/quorvantaclass.h"
#include "core/project/commandline.h"
#include "core/project/projectfile.h"
#include "gui/ui/resources.h"

#include <QApplication>
#include <QIcon>

int main(int argc, char *argv[])
{
    qv::g_ignoreFileSizeSignal();
    QApplication app(argc, argv);
    qv::g_initResources();
    // The title bars and the task bar show our icon; the desktop entry of
    // the installed program is quorvanta.desktop.
    QApplication::setWindowIcon(QIcon(QStringLiteral(":/new/prefix1/resources/Quorvanta.png")));
    QGuiApplication::setDesktopFileName(QStringLiteral("quorvanta"));
    const qv::StartRequest start = qv::g_startRequest(argc, argv);

    QuorvantaClass window(QCoreApplication::applicationDirPath());
    if (start.action == qv::StartRequest::OpenProject)
        window.s_openProject(start.path);
    else if (start.action == qv::StartRequest::ImportSampling)
        window.m_openFile(start.path);
    app.setQuitOnLastWindowClosed(true);
    window.m_checkUpdate();
    QApplication::exec();

    qv::g_runAfterExit(appVal, QCoreApplication::applicationDirPath(), window.m_settingsDir());
    return 0;
}

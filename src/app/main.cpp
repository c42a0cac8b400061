#include "app/appexit.h"
#include "project/commandline.h"
#include "app/quorvantaclass.h"
#include "project/projectfile.h"

#include <QApplication>

int main(int argc, char *argv[])
{
    qv::g_ignoreFileSizeSignal();
    QApplication app(argc, argv);
    const QString project = qv::g_projectArgument(argc, argv);

    QuorvantaClass window(QCoreApplication::applicationDirPath());
    if (!project.isEmpty())
        window.s_openProject(project);
    app.setQuitOnLastWindowClosed(true);
    window.m_checkUpdate();
    QApplication::exec();

    qv::g_runAfterExit(appVal, QCoreApplication::applicationDirPath(), window.m_settingsDir());
    return 0;
}

// Project lifecycle of the main window: new, open, recent, close.
#include "app/quorvantaclass.h"

#include "core/import/inputkind.h"
#include "core/project/recentfiles.h"
#include "document/qvchartclass.h"
#include "gui/import/importdialogclass.h"
#include "gui/ui/dialogseam.h"
#include "ui_quorvanta.h"

#include <QActionGroup>
#include <QIcon>

void QuorvantaClass::s_newProject(bool open)
{
    if (!s_closeProject())
        return;
    m_setTitle(TitleKind::Noname);
    setWindowModified(true);
    chart = new QVChartClass(this, &projectDir, &importDir, ui->gridRows);
    m_connectChart();

    if (!open) {
        qv::InputKind kind = qv::InputKind::Unknown;
        {
            ImportDialogClass dialog(this);
            qv::g_execDialog(dialog);
            kind = dialog.m_getKind();
        }
        if (!chart->m_importSampling(kind)) {
            setWindowModified(false);
            s_closeProject();
            return;
        }
    }
    ui->scrollArea->setWidget(chart);
    m_enableProjectActions(true);
    m_showClockReading();
    s_resizeDisplay();
}

void QuorvantaClass::s_openProject(QString pFile)
{
    m_loadProject(pFile);
}

QuorvantaClass::OpenOutcome QuorvantaClass::m_loadProject(const QString &path)
{
    if (!s_closeProject())
        return OpenOutcome::Refused;
    s_newProject(true);
    if (!chart)
        return OpenOutcome::Refused;
    QString file = path;
    if (!chart->m_openProject(&file)) {
        setWindowModified(false);
        s_closeProject();
        return OpenOutcome::Failed;
    }
    s_resizeDisplay();
    return OpenOutcome::Opened;
}

// A recent project that cannot be opened (moved, deleted, damaged) may leave
// the list once its error has been shown.
void QuorvantaClass::s_openRecentFile(QAction *action)
{
    if (!action)
        return;
    const QString path = action->data().toString();
    if (m_loadProject(path) != OpenOutcome::Failed)
        return;
    const QMessageBox::StandardButton answer = qv::g_question(
        this, tr("Recent Projects"), tr("The project could not be opened. Remove it from the list of recent projects?"),
        QMessageBox::Yes | QMessageBox::No);
    if (answer == QMessageBox::Yes) {
        qv::g_removeRecentFile(recentFiles, path);
        m_syncRecentActions();
    }
}

bool QuorvantaClass::s_closeProject()
{
    if (!chart)
        return true;
    if (isWindowModified()) {
        const QMessageBox::StandardButton answer =
            qv::g_question(this, tr("Save Project"), tr("Save changes before closing the project?"),
                           QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
        if (answer != QMessageBox::Yes && answer != QMessageBox::No)
            return false;
        if (answer == QMessageBox::Yes && !chart->s_saveProject())
            return false;
    }
    importDir = chart->m_getImportDir();
    if (ui->scrollArea->widget() == chart)
        ui->scrollArea->takeWidget();
    chart->disconnect();
    delete chart;
    chart = nullptr;
    m_enableProjectActions(false);
    m_showClockReading();
    m_setTitle(TitleKind::NoProject);
    setWindowModified(false);
    return true;
}

void QuorvantaClass::s_projectFileChanged(QString *file, QString *dir)
{
    m_setTitle(TitleKind::File, *file);
    qv::g_addRecentFile(recentFiles, *file);
    m_syncRecentActions();
    setWindowModified(false);
    projectDir = *dir;
}

void QuorvantaClass::s_projectChanged()
{
    setWindowModified(true);
}

// One action per recent path, in list order, in the menu and the group.
void QuorvantaClass::m_syncRecentActions()
{
    QList<QAction *> actions = recentGroup->actions();
    while (actions.size() > recentFiles.size()) {
        QAction *surplus = actions.takeLast();
        recentGroup->removeAction(surplus);
        delete surplus;
    }
    const QIcon icon(QStringLiteral(":/new/prefix1/resources/open.png"));
    while (actions.size() < recentFiles.size()) {
        QAction *action = new QAction(icon, QString(), this);
        recentGroup->addAction(action);
        ui->menuRecent->addAction(action);
        actions.append(action);
    }
    for (int i = 0; i < recentFiles.size(); ++i) {
        actions.at(i)->setText(qv::g_menuText(recentFiles.at(i)));
        actions.at(i)->setData(recentFiles.at(i));
    }
}

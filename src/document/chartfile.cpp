// Saving and opening the project file of the chart.
#include "document/qvchartclass.h"

#include "core/base/coretexts.h"
#include "core/project/projectfile.h"
#include "core/project/projectpaths.h"
#include "gui/ui/charttexts.h"
#include "gui/ui/dialogseam.h"
#include "gui/ui/progresssession.h"

namespace {

const char *const kSaveCaption = QT_TRANSLATE_NOOP("QVChartClass", "Save Quorvanta Project...");
// The save filter says "Projekt", the open filter "Project": both as shipped.
const char *const kSaveFilter = QT_TRANSLATE_NOOP("QVChartClass", "Quorvanta Projekt (*.qvj)");
const char *const kChartData = QT_TRANSLATE_NOOP("QVChartClass", "Chart Data...");

}  // namespace

bool QVChartClass::s_saveProject()
{
    if (qv::g_needsSaveDialog(projectFile)) {
        const QString name = qv::g_getSaveFileName(mainWindow, tr(kSaveCaption), projectDir, tr(kSaveFilter));
        if (name.isEmpty())
            return true;  // cancelled: the caller goes on as if saved
        projectFile = qv::g_projectOutputName(name);
    }
    m_setWaitCursor();
    qv::ProgressSession progress(mainWindow, tr("Saving Project..."), tr(kChartData));
    qv::SaveOptions options;
    options.changedTime = qv::g_currentSeconds();
    options.progress = progress.callback();
    const qv::FileResult result = qv::g_saveProjectFile(*chartModel, projectFile, options);
    progress.release();
    m_restoreCursor();
    if (!result.ok) {
        qv::g_critical(mainWindow, tr(qv::kTextErrorTitle), qv::g_coreText(result.message));
        return false;
    }
    projectDir = qv::g_projectDirOf(projectFile, projectDir);
    emit m_projectFileChanged(&projectFile, &projectDir);
    return true;
}

bool QVChartClass::s_saveProjectAs()
{
    const QString name = qv::g_getSaveFileName(mainWindow, tr(kSaveCaption), projectDir, tr(kSaveFilter));
    if (name.isEmpty())
        return false;
    projectFile = qv::g_projectOutputName(name);
    return s_saveProject();
}

bool QVChartClass::m_openProject(QString *file)
{
    QString path = file ? *file : QString();
    if (path.isEmpty()) {
        path = qv::g_getOpenFileName(mainWindow, tr("Open Quorvanta Project"), projectDir,
                                     tr("Quorvanta Project (*.qvj)"));
        if (path.isEmpty())
            return false;
    }
    // The progress dialog and the wait cursor appear once the file is known
    // to be a project.
    qv::ProgressSession progress(mainWindow, tr("Loading project..."), tr(kChartData), [this] { m_setWaitCursor(); });
    const qv::FileResult result = qv::g_loadProjectFile(*chartModel, path, progress.callback());
    if (!result.ok)
        return m_fail(result, progress.take());

    m_showRows();
    progress.release();
    m_restoreCursor();
    projectFile = path;
    projectDir = qv::g_projectDirOf(projectFile, projectDir);
    emit m_projectFileChanged(&projectFile, &projectDir);
    m_displayChart(this, false);
    return true;
}

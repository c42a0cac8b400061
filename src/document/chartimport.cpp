// The sampling imports of the chart document. The kinds differ only in the
// file dialog, the progress text and the core reader; one routine runs them.
#include "document/qvchartclass.h"

#include "core/base/coretexts.h"
#include "core/import/inputkind.h"
#include "core/project/projectpaths.h"
#include "gui/ui/charttexts.h"
#include "gui/ui/dialogseam.h"
#include "gui/ui/progresssession.h"
#include "gui/ui/widgetimporthost.h"

bool QVChartClass::m_importSampling(qv::InputKind kind, const QString &path)
{
    const qv::SamplingFormat *format = qv::g_samplingFormat(kind);
    return format && m_runImport(*format, path);
}

bool QVChartClass::m_runImport(const qv::SamplingFormat &format, const QString &givenPath)
{
    const QString path = !givenPath.isEmpty() ? givenPath
                                              : qv::g_getOpenFileName(mainWindow, qv::g_coreText(format.caption),
                                                                      importDir, qv::g_coreText(format.filter));
    if (path.isEmpty())
        return false;

    m_setWaitCursor();
    qv::ProgressSession progress(mainWindow, tr(qv::kTextImporting), qv::g_coreText(format.detail));
    qv::WidgetImportHost host(mainWindow, progress);
    const qv::FileResult result = format.read(path, *chartModel, host);
    if (!result.ok)
        return m_fail(result, progress.take());

    m_showRows();
    m_restoreCursor();
    m_displayChart(this, false);
    importDir = qv::g_projectDirOf(path, importDir);
    progress.release();
    return true;
}

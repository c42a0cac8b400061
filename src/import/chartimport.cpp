// The one import routine behind m_importCSV, m_importDAT and m_importVap.
#include "project/qvchartclass.h"

#include "app/dialogseam.h"
#include "import/importkind.h"
#include "import/progresssession.h"
#include "import/widgetimporthost.h"
#include "project/charttexts.h"
#include "project/projectpaths.h"

bool QVChartClass::m_runImport(const qv::ImportKind &kind)
{
    const QString path = qv::g_getOpenFileName(mainWindow, tr(kind.caption), importDir, tr(kind.filter));
    if (path.isEmpty())
        return false;

    m_setWaitCursor();
    qv::ProgressSession progress(mainWindow, tr(qv::kTextImporting), tr(kind.detail));
    qv::WidgetImportHost host(mainWindow, progress);
    const qv::FileResult result = kind.read(path, *m_model, host);
    if (!result.ok)
        return m_fail(result, progress.take());

    m_showRows();
    m_restoreCursor();
    m_displayChart(this, false);
    importDir = qv::g_projectDirOf(path, importDir);
    progress.release();
    return true;
}

// The three sampling imports of the chart document. They differ only in the
// file dialog, the progress text and the core reader; one routine runs them.
#include "document/qvchartclass.h"

#include "core/import/csvimport.h"
#include "core/import/importkind.h"
#include "core/import/logimport.h"
#include "core/import/visimport.h"
#include "core/project/projectpaths.h"
#include "gui/ui/charttexts.h"
#include "gui/ui/dialogseam.h"
#include "gui/ui/progresssession.h"
#include "gui/ui/widgetimporthost.h"

bool QVChartClass::m_importCSV(const QString &path)
{
    static const qv::ImportKind kind{
        QT_TR_NOOP("Open Ventimar Sampling File"),
        QT_TR_NOOP("Ventimar Sampling (*.csv *.CSV)"),
        QT_TR_NOOP("CSV Ventimar Data"),
        &qv::g_importControllerCsv,
    };
    return m_runImport(kind, path);
}

bool QVChartClass::m_importDAT(const QString &path)
{
    static const qv::ImportKind kind{
        QT_TR_NOOP("Open Ventimar Sampling File"),
        QT_TR_NOOP("Ventimar Sampling (*.log *.LOG)"),
        QT_TR_NOOP("Binary Ventimar Data"),
        &qv::g_importControllerLog,
    };
    return m_runImport(kind, path);
}

bool QVChartClass::m_importVap(const QString &path)
{
    static const qv::ImportKind kind{
        QT_TR_NOOP("Open vaporix-Vis Sampling File"),
        QT_TR_NOOP("vaporix-Vis Sampling (*.csv *.CSV)"),
        QT_TR_NOOP("CSV vaporix-Vis Data"),
        &qv::g_importVisCsv,
    };
    return m_runImport(kind, path);
}

bool QVChartClass::m_runImport(const qv::ImportKind &kind, const QString &givenPath)
{
    const QString path = !givenPath.isEmpty()
                             ? givenPath
                             : qv::g_getOpenFileName(mainWindow, tr(kind.caption), importDir, tr(kind.filter));
    if (path.isEmpty())
        return false;

    m_setWaitCursor();
    qv::ProgressSession progress(mainWindow, tr(qv::kTextImporting), tr(kind.detail));
    qv::WidgetImportHost host(mainWindow, progress);
    const qv::FileResult result = kind.read(path, *chartModel, host);
    if (!result.ok)
        return m_fail(result, progress.take());

    m_showRows();
    m_restoreCursor();
    m_displayChart(this, false);
    importDir = qv::g_projectDirOf(path, importDir);
    progress.release();
    return true;
}

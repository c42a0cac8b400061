// Export of the samples as a CSV table: the shown data sets over the selected
// range, or over the zoom window when the chart is zoomed and the user wants
// only what it shows. Numbers follow the system's decimal separator.
#include "document/qvchartclass.h"

#include "core/base/coretexts.h"
#include "core/project/csvexport.h"
#include "gui/ui/charttexts.h"
#include "gui/ui/dialogseam.h"
#include "gui/ui/progresssession.h"

#include <QFileInfo>
#include <QLocale>

void QVChartClass::s_exportCSV()
{
    const qv::ChartModel &m = *chartModel;
    qv::CsvOptions options;
    qv::g_csvWindow(m, qv::CsvRange::Selected, options);
    const bool zoomed = settings.viewBegin > settings.rangeBegin || settings.viewEnd < settings.rangeEnd;
    if (zoomed && qv::g_question(mainWindow, tr("Export Data (CSV)"),
                                 tr("The chart is zoomed in. Export only the samples it shows? No exports the whole "
                                    "selected range."),
                                 QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes)
        qv::g_csvWindow(m, qv::CsvRange::View, options);

    const QString suggested = projectFile.isEmpty()
                                  ? projectDir
                                  : QFileInfo(projectFile).absolutePath() + QLatin1Char('/') +
                                        QFileInfo(projectFile).completeBaseName() + QStringLiteral(".csv");
    const QString name =
        qv::g_getSaveFileName(mainWindow, tr("Export Data (CSV)..."), suggested, tr("CSV Table (*.csv)"));
    if (name.isEmpty())
        return;

    options.sets = qv::g_shownDataSets(m);
    options.decimalComma = options.byteOrderMark = QLocale().decimalPoint() == QLatin1Char(',');
    options.translate = [](const char *source) { return qv::g_coreText(source); };
    qv::ProgressSession progress(mainWindow, tr("Exporting Data..."), tr("Chart Data..."),
                                 [this] { m_setWaitCursor(); });
    options.progress = progress.callback();
    const qv::FileResult result = qv::g_saveCsvFile(m, name, options);
    progress.release();
    m_restoreCursor();
    if (!result.ok)
        qv::g_critical(mainWindow, tr(qv::kTextErrorTitle), qv::g_coreText(result.message));
}

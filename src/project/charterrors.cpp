// The chart's common error exits.
#include "project/qvchartclass.h"

#include "app/dialogseam.h"
#include "import/widgetimporthost.h"
#include "project/charttexts.h"
#include "project/projectfile.h"

#include <QDialog>
#include <QFile>
#include <QtGlobal>

#include <cstring>

namespace qv {

const char *const kTextErrorTitle = QT_TRANSLATE_NOOP("QVChartClass", "Quorvanta Error");
const char *const kTextExtError = QT_TRANSLATE_NOOP("QVChartClass", "Error while loading additional vaporix files!");
const char *const kTextImporting = QT_TRANSLATE_NOOP("QVChartClass", "Importing Sampling Data...");

}  // namespace qv

namespace {

void closeFile(QFile *file)
{
    if (file)
        file->close();
}

void releaseDialog(QDialog *dialog)
{
    if (dialog) {
        dialog->hide();
        dialog->deleteLater();
    }
}

}  // namespace

int QVChartClass::m_returnError(QFile *file, QDialog *progress, const QString &message)
{
    closeFile(file);
    qv::g_warning(mainWindow, tr(qv::kTextErrorTitle), message);
    releaseDialog(progress);
    m_restoreCursor();
    return 0;
}

int QVChartClass::m_returnExtError(QFile *file1, QFile *file2, QFile *file3, QDialog *progress)
{
    closeFile(file1);
    closeFile(file2);
    closeFile(file3);
    qv::g_warning(mainWindow, tr(qv::kTextErrorTitle), tr(qv::kTextExtError));
    releaseDialog(progress);
    m_restoreCursor();
    return 0;
}

bool QVChartClass::m_fail(const qv::FileResult &result, QDialog *progress)
{
    const char *message = result.message ? result.message : "";
    if (result.critical) {
        // A file that cannot be opened: nothing was started yet.
        releaseDialog(progress);
        m_restoreCursor();
        qv::g_critical(mainWindow, tr(qv::kTextErrorTitle), qv::g_chartText(message));
    } else if (std::strcmp(message, qv::kTextExtError) == 0) {
        m_returnExtError(nullptr, nullptr, nullptr, progress);
    } else {
        m_returnError(nullptr, progress, qv::g_chartText(message));
    }
    return false;
}

// The chart's common error exits.
#include "project/qvchartclass.h"

#include "ui/dialogseam.h"
#include "ui/widgetimporthost.h"
#include "ui/charttexts.h"
#include "project/projectfile.h"

#include <QDialog>
#include <QtGlobal>

#include <cstring>

namespace {

void releaseDialog(QDialog *dialog)
{
    if (dialog) {
        dialog->hide();
        dialog->deleteLater();
    }
}

}  // namespace

int QVChartClass::m_returnError(QDialog *progress, const QString &message)
{
    qv::g_warning(mainWindow, tr(qv::kTextErrorTitle), message);
    releaseDialog(progress);
    m_restoreCursor();
    return 0;
}

int QVChartClass::m_returnExtError(QDialog *progress)
{
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
        m_returnExtError(progress);
    } else {
        m_returnError(progress, qv::g_chartText(message));
    }
    return false;
}

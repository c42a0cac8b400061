// The chart's common error exits.
#include "document/qvchartclass.h"

#include "core/base/coretexts.h"
#include "core/project/projectfile.h"
#include "gui/ui/charttexts.h"
#include "gui/ui/dialogseam.h"
#include "gui/ui/widgetimporthost.h"

#include <QDialog>
#include <QtGlobal>

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
    const QString message = qv::g_coreText(result.message);
    switch (result.error) {
    case qv::FileError::SiblingFiles:
        m_returnExtError(progress);
        break;
    case qv::FileError::CannotOpen:
    case qv::FileError::CannotWrite:
        releaseDialog(progress);
        m_restoreCursor();
        qv::g_critical(mainWindow, tr(qv::kTextErrorTitle), message);
        break;
    case qv::FileError::None:
    case qv::FileError::BadContents:
        m_returnError(progress, message);
        break;
    }
    return false;
}

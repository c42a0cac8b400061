#include "import/widgetimporthost.h"

#include "app/dialogseam.h"
#include "import/progresssession.h"
#include "project/charttexts.h"

#include <QCoreApplication>

namespace qv {

QString g_chartText(const char *source)
{
    return QCoreApplication::translate("QVChartClass", source ? source : "");
}

QString g_chartText(const QString &source)
{
    return QCoreApplication::translate("QVChartClass", source.toUtf8().constData());
}

WidgetImportHost::WidgetImportHost(QWidget *parent, ProgressSession &progress)
    : m_parent(parent), m_progress(progress)
{
}

bool WidgetImportHost::askYesNo(const QString &title, const QString &question)
{
    return g_question(m_parent, g_chartText(title), g_chartText(question), QMessageBox::Yes | QMessageBox::No) ==
           QMessageBox::Yes;
}

void WidgetImportHost::warn(const QString &message)
{
    g_warning(m_parent, g_chartText(kTextErrorTitle), g_chartText(message));
}

void WidgetImportHost::progress(int mainValue, int detailValue)
{
    m_progress.set(mainValue, detailValue);
}

}  // namespace qv

#include "ui/widgetimporthost.h"

#include "ui/dialogseam.h"
#include "ui/progresssession.h"
#include "ui/charttexts.h"

namespace qv {

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

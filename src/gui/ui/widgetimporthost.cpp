#include "gui/ui/widgetimporthost.h"

#include "core/base/coretexts.h"
#include "gui/ui/charttexts.h"
#include "gui/ui/dialogseam.h"
#include "gui/ui/progresssession.h"

namespace qv {

WidgetImportHost::WidgetImportHost(QWidget *parent, ProgressSession &progress) : parentWidget(parent), session(progress)
{
}

bool WidgetImportHost::askYesNo(const QString &title, const QString &question)
{
    return g_question(parentWidget, g_coreText(title), g_coreText(question), QMessageBox::Yes | QMessageBox::No) ==
           QMessageBox::Yes;
}

void WidgetImportHost::warn(const QString &message)
{
    g_warning(parentWidget, g_chartText(kTextErrorTitle), g_coreText(message));
}

void WidgetImportHost::progress(int mainValue, int detailValue)
{
    session.set(mainValue, detailValue);
}

}  // namespace qv

#include "gui/ui/widgetimporthost.h"

#include "core/base/coretexts.h"
#include "gui/ui/charttexts.h"
#include "gui/ui/dialogseam.h"
#include "gui/ui/progresssession.h"

namespace qv {

WidgetImportHost::WidgetImportHost(QWidget *parent, ProgressSession &progress) : parent_(parent), progress_(progress) {}

bool WidgetImportHost::askYesNo(const QString &title, const QString &question)
{
    return g_question(parent_, g_coreText(title), g_coreText(question), QMessageBox::Yes | QMessageBox::No) ==
           QMessageBox::Yes;
}

void WidgetImportHost::warn(const QString &message)
{
    g_warning(parent_, g_chartText(kTextErrorTitle), g_coreText(message));
}

void WidgetImportHost::progress(int mainValue, int detailValue)
{
    progress_.set(mainValue, detailValue);
}

}  // namespace qv

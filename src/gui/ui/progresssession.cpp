#include "gui/ui/progresssession.h"

#include "gui/ui/progressdialogclass.h"

namespace qv {

ProgressSession::ProgressSession(QWidget *parent, const QString &text, const QString &detail,
                                 std::function<void()> onShow)
    : parentWidget(parent), mainText(text), detailText(detail), beforeShow(std::move(onShow))
{
}

ProgressSession::~ProgressSession()
{
    release();
}

void ProgressSession::set(int mainValue, int detailValue)
{
    if (!shownDialog) {
        if (beforeShow)
            beforeShow();
        shownDialog = new ProgressDialogClass(parentWidget, mainText, detailText);
    } else if (mainValue == lastMain && detailValue == lastDetail) {
        return;  // importers report per row; repaint only when a bar moves
    }
    lastMain = mainValue;
    lastDetail = detailValue;
    if (!shownDialog)  // closed and deleted while events were processed
        return;
    shownDialog->m_setProgress(mainValue);
    if (shownDialog)
        shownDialog->m_setDetailProgress(detailValue);
}

ProgressFn ProgressSession::callback()
{
    return [this](int mainValue, int detailValue) { set(mainValue, detailValue); };
}

QDialog *ProgressSession::take()
{
    ProgressDialogClass *dialog = shownDialog;
    shownDialog = nullptr;
    return dialog;
}

void ProgressSession::release()
{
    if (shownDialog) {
        shownDialog->hide();  // gone at once, even before the event loop deletes it
        shownDialog->deleteLater();
    }
    shownDialog = nullptr;
}

}  // namespace qv

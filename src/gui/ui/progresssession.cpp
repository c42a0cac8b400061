#include "gui/ui/progresssession.h"

#include "gui/ui/progressdialogclass.h"

namespace qv {

ProgressSession::ProgressSession(QWidget *parent, const QString &text, const QString &detail,
                                 std::function<void()> onShow)
    : parent_(parent), text_(text), detail_(detail), onShow_(std::move(onShow))
{
}

ProgressSession::~ProgressSession()
{
    release();
}

void ProgressSession::set(int mainValue, int detailValue)
{
    if (!dialog_) {
        if (onShow_)
            onShow_();
        dialog_ = new ProgressDialogClass(parent_, text_, detail_);
    } else if (mainValue == lastMain_ && detailValue == lastDetail_) {
        return;  // importers report per row; repaint only when a bar moves
    }
    lastMain_ = mainValue;
    lastDetail_ = detailValue;
    if (!dialog_)  // closed and deleted while events were processed
        return;
    dialog_->m_setProgress(mainValue);
    if (dialog_)
        dialog_->m_setDetailProgress(detailValue);
}

ProgressFn ProgressSession::callback()
{
    return [this](int mainValue, int detailValue) { set(mainValue, detailValue); };
}

QDialog *ProgressSession::take()
{
    ProgressDialogClass *dialog = dialog_;
    dialog_ = nullptr;
    return dialog;
}

void ProgressSession::release()
{
    if (dialog_) {
        dialog_->hide();  // gone at once, even before the event loop deletes it
        dialog_->deleteLater();
    }
    dialog_ = nullptr;
}

}  // namespace qv

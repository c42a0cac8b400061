#include "ui/progresssession.h"

#include "ui/progressdialogclass.h"

namespace qv {

ProgressSession::ProgressSession(QWidget *parent, const QString &text, const QString &detail,
                                 std::function<void()> onShow)
    : m_parent(parent), m_text(text), m_detail(detail), m_onShow(std::move(onShow))
{
}

ProgressSession::~ProgressSession()
{
    release();
}

void ProgressSession::set(int mainValue, int detailValue)
{
    if (!m_dialog) {
        if (m_onShow)
            m_onShow();
        m_dialog = new ProgressDialogClass(m_parent, m_text, m_detail);
    } else if (mainValue == m_lastMain && detailValue == m_lastDetail) {
        return;  // importers report per row; repaint only when a bar moves
    }
    m_lastMain = mainValue;
    m_lastDetail = detailValue;
    if (!m_dialog)  // closed and deleted while events were processed
        return;
    m_dialog->m_setProgress(mainValue);
    if (m_dialog)
        m_dialog->m_setDetailProgress(detailValue);
}

ProgressFn ProgressSession::callback()
{
    return [this](int mainValue, int detailValue) { set(mainValue, detailValue); };
}

QDialog *ProgressSession::take()
{
    ProgressDialogClass *dialog = m_dialog;
    m_dialog = nullptr;
    return dialog;
}

void ProgressSession::release()
{
    if (m_dialog) {
        m_dialog->hide();  // gone at once, even before the event loop deletes it
        m_dialog->deleteLater();
    }
    m_dialog = nullptr;
}

}  // namespace qv

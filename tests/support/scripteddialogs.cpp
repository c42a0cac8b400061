#include "support/scripteddialogs.h"

#include <QDialog>

namespace qvtest {

QMessageBox::StandardButton ScriptedDialogs::message(const qv::MessageRecord &record)
{
    messages << record;
    if (onMessage)
        onMessage(record);
    if (!answers.isEmpty())
        return answers.takeFirst();
    for (int bit = 0; bit < 32; ++bit) {
        const auto button = QMessageBox::StandardButton(1u << bit);
        if (record.buttons.testFlag(button))
            return button;
    }
    return QMessageBox::NoButton;
}

int ScriptedDialogs::exec(QDialog &dialog)
{
    execClasses << QString::fromLatin1(dialog.metaObject()->className());
    if (onExec)
        return onExec(dialog);
    dialog.reject();
    return dialog.result();
}

}  // namespace qvtest

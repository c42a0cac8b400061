// A dialog hook for tests: records every message box and file dialog that
// the widgets would show and answers from scripts, so slots run without
// modal loops.
#pragma once

#include "gui/ui/dialogseam.h"

#include <QList>
#include <QStringList>

#include <functional>

namespace qvtest {

class ScriptedDialogs : public qv::DialogHook
{
public:
    ScriptedDialogs() { qv::g_setDialogHook(this); }
    ~ScriptedDialogs() override { qv::g_setDialogHook(nullptr); }

    // Answers, used front to back; when a queue is empty, a message box is
    // answered with its first button (Ok, Yes) and a file dialog with "".
    QList<QMessageBox::StandardButton> answers;
    QStringList fileNames;
    // Stands in for QDialog::exec(); by default the dialog is rejected.
    std::function<int(QDialog &)> onExec;
    // Runs when a message box is shown, before it is answered.
    std::function<void(const qv::MessageRecord &)> onMessage;

    QList<qv::MessageRecord> messages;
    QList<qv::FileDialogRecord> fileDialogs;
    QStringList execClasses;  // class names of the dialogs run

    QMessageBox::StandardButton message(const qv::MessageRecord &record) override;
    QString fileName(const qv::FileDialogRecord &record) override
    {
        fileDialogs << record;
        return fileNames.isEmpty() ? QString() : fileNames.takeFirst();
    }
    int exec(QDialog &dialog) override;
};

}  // namespace qvtest

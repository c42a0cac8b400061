#include "gui/ui/dialogseam.h"

#include <QDialog>
#include <QFileDialog>

namespace qv {

namespace {

DialogHook *g_hook = nullptr;

QMessageBox::StandardButton showMessage(QWidget *parent, MessageKind kind, const QString &title, const QString &text,
                                        QMessageBox::StandardButtons buttons)
{
    if (g_hook)
        return g_hook->message(MessageRecord{kind, title, text, buttons});
    switch (kind) {
    case MessageKind::Question:
        return QMessageBox::question(parent, title, text, buttons);
    case MessageKind::Information:
        return QMessageBox::information(parent, title, text, buttons);
    case MessageKind::Warning:
        return QMessageBox::warning(parent, title, text, buttons);
    case MessageKind::Critical:
        break;
    }
    return QMessageBox::critical(parent, title, text, buttons);
}

}  // namespace

void g_setDialogHook(DialogHook *hook)
{
    g_hook = hook;
}

QMessageBox::StandardButton g_question(QWidget *parent, const QString &title, const QString &text,
                                       QMessageBox::StandardButtons buttons)
{
    return showMessage(parent, MessageKind::Question, title, text, buttons);
}

void g_information(QWidget *parent, const QString &title, const QString &text)
{
    showMessage(parent, MessageKind::Information, title, text, QMessageBox::Ok);
}

void g_warning(QWidget *parent, const QString &title, const QString &text)
{
    showMessage(parent, MessageKind::Warning, title, text, QMessageBox::Ok);
}

void g_critical(QWidget *parent, const QString &title, const QString &text)
{
    showMessage(parent, MessageKind::Critical, title, text, QMessageBox::Ok);
}

QString g_getOpenFileName(QWidget *parent, const QString &caption, const QString &dir, const QString &filter)
{
    if (g_hook)
        return g_hook->fileName(FileDialogRecord{FileDialogKind::Open, caption, dir, filter});
    return QFileDialog::getOpenFileName(parent, caption, dir, filter);
}

QString g_getSaveFileName(QWidget *parent, const QString &caption, const QString &dir, const QString &filter)
{
    if (g_hook)
        return g_hook->fileName(FileDialogRecord{FileDialogKind::Save, caption, dir, filter});
    return QFileDialog::getSaveFileName(parent, caption, dir, filter);
}

int g_execDialog(QDialog &dialog)
{
    if (g_hook)
        return g_hook->exec(dialog);
    return dialog.exec();
}

}  // namespace qv

// Message boxes, file dialogs and modal dialog runs of the widgets go through
// these functions. Normally they open the real dialogs; a test installs a
// hook that records what would have been shown and returns scripted answers,
// so slots can be driven without modal loops.
#pragma once

#include <QMessageBox>
#include <QString>

class QDialog;
class QWidget;

namespace qv {

enum class MessageKind { Question, Information, Warning, Critical };

struct MessageRecord {
    MessageKind kind;
    QString title;
    QString text;
    QMessageBox::StandardButtons buttons;
};

enum class FileDialogKind { Open, Save };

struct FileDialogRecord {
    FileDialogKind kind;
    QString caption;
    QString directory;
    QString filter;
};

class DialogHook
{
public:
    virtual ~DialogHook() = default;
    virtual QMessageBox::StandardButton message(const MessageRecord &record) = 0;
    virtual QString fileName(const FileDialogRecord &record) = 0;
    // Stands in for dialog.exec(); may work the dialog through its slots.
    virtual int exec(QDialog &dialog) = 0;
};

// Installs a hook (nullptr restores the real dialogs).
void g_setDialogHook(DialogHook *hook);

QMessageBox::StandardButton g_question(QWidget *parent, const QString &title, const QString &text,
                                       QMessageBox::StandardButtons buttons);
void g_information(QWidget *parent, const QString &title, const QString &text);
void g_warning(QWidget *parent, const QString &title, const QString &text);
void g_critical(QWidget *parent, const QString &title, const QString &text);

QString g_getOpenFileName(QWidget *parent, const QString &caption, const QString &dir, const QString &filter);
QString g_getSaveFileName(QWidget *parent, const QString &caption, const QString &dir, const QString &filter);

// Runs a dialog modally and returns its result code.
int g_execDialog(QDialog &dialog);

}  // namespace qv

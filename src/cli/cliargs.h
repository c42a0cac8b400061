// Command line of quorvanta-cli.
#pragma once

#include "import/inputtype.h"

#include <QString>
#include <QStringList>

namespace qv {

struct CliCommand {
    enum Verb { None, Convert, Info, Help } verb = None;
    InputType type = InputType::Unknown;  // Unknown: judged from the input file
    bool answerYes = false;               // answer to every Yes/No question
    bool json = false;
    bool hasChangedTime = false;
    quint32 changedTime = 0;
    QString input;
    QString output;
};

// Parses the arguments after the program name. On a usage error returns false
// and sets *error to a one-line reason.
bool g_parseCli(const QStringList &arguments, CliCommand *command, QString *error);
QString g_cliUsage();

}  // namespace qv

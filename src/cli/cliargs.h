// Command line of quorvanta-cli.
#pragma once

#include "core/import/inputkind.h"
#include "core/project/csvexport.h"

#include <QString>
#include <QStringList>

namespace qv {

struct CliCommand {
    enum Verb { None, Convert, Info, Pdf, Png, Csv, Help } verb = None;
    InputKind type = InputKind::Unknown;  // Unknown: judged from the input file
    bool answerYes = false;               // answer to every Yes/No question
    bool json = false;
    bool hasChangedTime = false;
    quint32 changedTime = 0;
    int width = 1600;  // of the png picture
    CsvRange range = CsvRange::Selected;
    QVector<int> sets;  // empty: every data set
    bool excelDe = false;
    QString input;
    QString output;
};

// Parses the arguments after the program name. On a usage error returns false
// and sets *error to a one-line reason.
bool g_parseCli(const QStringList &arguments, CliCommand *command, QString *error);
QString g_cliUsage();
// True for the verbs that draw the chart and so need the widget platform.
bool g_cliDraws(const QString &verb);

}  // namespace qv

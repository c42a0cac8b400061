#include "cliargs.h"

namespace qv {

QString g_cliUsage()
{
    return QStringLiteral(
        "Usage:\n"
        "  quorvanta-cli convert [--type csv|log|vis|qvj] [--yes|--no] [--changed-time SECONDS] INPUT -o OUTPUT\n"
        "  quorvanta-cli info [--json] [--type csv|log|vis|qvj] [--yes|--no] FILE\n"
        "  quorvanta-cli pdf [--type csv|log|vis|qvj] [--yes|--no] INPUT -o OUTPUT.pdf\n"
        "  quorvanta-cli png [--type csv|log|vis|qvj] [--yes|--no] [--width N] INPUT -o OUTPUT.png\n"
        "\n"
        "convert  reads a sampling file or a project and writes it as a project (.qvj)\n"
        "info     prints the settings and data sets of a project or an imported sampling file\n"
        "pdf      writes the printed page (A4 landscape, chart and device parameters) as a PDF\n"
        "png      writes the chart of the printed page alone as a picture\n"
        "\n"
        "  --type T          the kind of INPUT; without it: .qvj project, .log binary log,\n"
        "                    .csv vaporix-VIS when its first line is empty, else controller CSV\n"
        "  --yes, --no       answer to every question an import asks (default --no)\n"
        "  --json            print info as JSON\n"
        "  --changed-time S  stamp the saved record with S seconds since 1970 instead of now\n"
        "  --width N         width of the png picture in pixels (16..16384, default 1600)\n"
        "  -o OUTPUT         the project to write; \".qvj\" is added unless the name ends in it.\n"
        "                    An existing OUTPUT is kept as its backup (extension \".bak\");\n"
        "                    an OUTPUT or backup that is the INPUT itself is refused.\n"
        "                    For pdf and png the file to write, as it is named; never the INPUT\n"
        "\n"
        "Exit status: 0 done, 1 the file could not be read or written, 2 usage error.\n");
}

QString g_projectOutputName(const QString &output)
{
    if (output.endsWith(QLatin1String(".qvj"), Qt::CaseInsensitive))
        return output;
    return output + QLatin1String(".qvj");
}

bool g_cliDraws(const QString &verb)
{
    return verb == QLatin1String("pdf") || verb == QLatin1String("png");
}

bool g_parseCli(const QStringList &arguments, CliCommand *command, QString *error)
{
    CliCommand c;
    if (arguments.isEmpty()) {
        *error = QStringLiteral("no command given");
        return false;
    }
    const QString verb = arguments.first();
    if (verb == QLatin1String("convert")) {
        c.verb = CliCommand::Convert;
    } else if (verb == QLatin1String("info")) {
        c.verb = CliCommand::Info;
    } else if (verb == QLatin1String("pdf")) {
        c.verb = CliCommand::Pdf;
    } else if (verb == QLatin1String("png")) {
        c.verb = CliCommand::Png;
    } else if (verb == QLatin1String("help") || verb == QLatin1String("--help") || verb == QLatin1String("-h")) {
        c.verb = CliCommand::Help;
        *command = c;
        return true;
    } else {
        *error = QStringLiteral("unknown command: ") + verb;
        return false;
    }

    QStringList positional;
    for (int i = 1; i < arguments.size(); ++i) {
        const QString &a = arguments.at(i);
        const bool hasValue = i + 1 < arguments.size();
        if (a == QLatin1String("--type")) {
            if (!hasValue) {
                *error = QStringLiteral("--type needs a value");
                return false;
            }
            c.type = g_inputTypeFromName(arguments.at(++i));
            if (c.type == InputType::Unknown) {
                *error = QStringLiteral("unknown type: ") + arguments.at(i);
                return false;
            }
        } else if (a == QLatin1String("--yes")) {
            c.answerYes = true;
        } else if (a == QLatin1String("--no")) {
            c.answerYes = false;
        } else if (a == QLatin1String("--json") && c.verb == CliCommand::Info) {
            c.json = true;
        } else if (a == QLatin1String("--width") && c.verb == CliCommand::Png) {
            bool ok = false;
            c.width = hasValue ? arguments.at(++i).toInt(&ok) : 0;
            if (!ok || c.width < 16 || c.width > 16384) {
                *error = QStringLiteral("--width needs a number of pixels from 16 to 16384");
                return false;
            }
        } else if (a == QLatin1String("-o") && c.verb != CliCommand::Info) {
            if (!hasValue) {
                *error = QStringLiteral("-o needs a file name");
                return false;
            }
            c.output = arguments.at(++i);
        } else if (a == QLatin1String("--changed-time") && c.verb == CliCommand::Convert) {
            bool ok = false;
            c.changedTime = hasValue ? arguments.at(++i).toUInt(&ok) : 0;
            if (!ok) {
                *error = QStringLiteral("--changed-time needs a number of seconds");
                return false;
            }
            c.hasChangedTime = true;
        } else if (a.startsWith(QLatin1Char('-')) && a.size() > 1) {
            *error = QStringLiteral("unknown option: ") + a;
            return false;
        } else {
            positional << a;
        }
    }
    if (positional.size() != 1) {
        *error = positional.isEmpty() ? QStringLiteral("no input file given")
                                      : QStringLiteral("more than one input file given");
        return false;
    }
    c.input = positional.first();
    if (c.verb != CliCommand::Info && c.output.isEmpty()) {
        *error = verb + QStringLiteral(" needs -o OUTPUT");
        return false;
    }
    *command = c;
    return true;
}

}  // namespace qv

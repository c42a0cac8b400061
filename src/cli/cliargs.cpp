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
        "  quorvanta-cli csv [--type csv|log|vis|qvj] [--yes|--no] [--range selected|view|all] [--sets N,N,...]\n"
        "                    [--excel-de] INPUT -o OUTPUT.csv\n"
        "\n"
        "convert  reads a sampling file or a project and writes it as a project (.qvj)\n"
        "info     prints the settings and data sets of a project or an imported sampling file\n"
        "pdf      writes the printed page (A4 landscape, chart and device parameters) as a PDF\n"
        "png      writes the chart of the printed page alone as a picture\n"
        "csv      writes the samples as a table: local time with its UTC offset, one column per data set,\n"
        "         the device state last when there is one; ';' between fields, CR LF line ends, UTF-8\n"
        "\n"
        "  --type T          the kind of INPUT; without it: .qvj project, .log binary log,\n"
        "                    .csv vaporix-VIS when its first line is empty, else controller CSV\n"
        "  --yes, --no       answer to every question an import asks (default --no)\n"
        "  --json            print info as JSON\n"
        "  --changed-time S  stamp the saved record with S seconds since 1970 instead of now\n"
        "  --width N         width of the png picture in pixels (16..16384, default 1600)\n"
        "  --range R         the rows csv writes: the selected range (default), the zoom window (view)\n"
        "                    or every sample (all)\n"
        "  --sets N,N,...    the data sets csv writes, numbered as info shows them (default: all)\n"
        "  --excel-de        csv with a decimal comma and a byte order mark, for a German Excel\n"
        "  -o OUTPUT         the project to write; \".qvj\" is added unless the name ends in it.\n"
        "                    An existing OUTPUT is kept as its backup (extension \".bak\");\n"
        "                    an OUTPUT or backup that is the INPUT itself is refused.\n"
        "                    For pdf, png and csv the file to write, as it is named; never the INPUT\n"
        "\n"
        "Exit status: 0 done, 1 the file could not be read or written, 2 usage error.\n");
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
    } else if (verb == QLatin1String("csv")) {
        c.verb = CliCommand::Csv;
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
            c.type = g_inputKindFromName(arguments.at(++i));
            if (c.type == InputKind::Unknown) {
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
        } else if (a == QLatin1String("--range") && c.verb == CliCommand::Csv) {
            const QString r = hasValue ? arguments.at(++i) : QString();
            if (r != QLatin1String("selected") && r != QLatin1String("view") && r != QLatin1String("all")) {
                *error = QStringLiteral("--range needs selected, view or all");
                return false;
            }
            c.range = r == QLatin1String("all")    ? CsvRange::All
                      : r == QLatin1String("view") ? CsvRange::View
                                                   : CsvRange::Selected;
        } else if (a == QLatin1String("--sets") && c.verb == CliCommand::Csv) {
            const QStringList numbers = hasValue ? arguments.at(++i).split(QLatin1Char(',')) : QStringList();
            c.sets.clear();
            for (const QString &n : numbers) {
                bool ok = false;
                const int set = n.toInt(&ok);
                if (!ok || set < 0 || set >= kMaxDataSets) {
                    *error = QStringLiteral("--sets needs data set numbers from 0 to 15, such as 0,2,5");
                    return false;
                }
                c.sets << set;
            }
            if (c.sets.isEmpty()) {
                *error = QStringLiteral("--sets needs data set numbers from 0 to 15, such as 0,2,5");
                return false;
            }
        } else if (a == QLatin1String("--excel-de") && c.verb == CliCommand::Csv) {
            c.excelDe = true;
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

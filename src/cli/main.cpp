// quorvanta-cli: batch conversion to project files, a look inside them, and
// the printed page as a PDF or the chart as a picture (drawn off-screen), and
// the samples as a CSV table.
#include "cliargs.h"
#include "infoprinter.h"

#include "core/base/safewrite.h"
#include "core/project/csvexport.h"
#include "core/project/inputreader.h"
#include "core/project/projectfile.h"
#include "core/project/projectpaths.h"
#include "gui/chart/pageprinterclass.h"

#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <sys/stat.h>

#include <memory>

namespace {

// Answers every question with the --yes/--no flag and reports on stderr.
class CliHost : public qv::ImportHost
{
public:
    explicit CliHost(bool yes) : answer(yes) {}
    bool askYesNo(const QString &, const QString &question) override
    {
        QTextStream(stderr) << question << (answer ? " -> Yes\n" : " -> No\n");
        return answer;
    }
    void warn(const QString &message) override { QTextStream(stderr) << "Warning: " << message << '\n'; }
    void progress(int, int) override {}

private:
    bool answer;
};

// True when both names lead to one existing file, through links as well.
bool sameFile(const QString &a, const QString &b)
{
    struct stat sa {
    };
    struct stat sb {
    };
    return ::stat(QFile::encodeName(a).constData(), &sa) == 0 && ::stat(QFile::encodeName(b).constData(), &sb) == 0 &&
           sa.st_dev == sb.st_dev && sa.st_ino == sb.st_ino;
}

// Drawing off-screen makes the platform talk (a missing runtime folder and
// the like); stderr carries the program's own messages and Qt's errors only.
void quietDrawing(QtMsgType type, const QMessageLogContext &, const QString &message)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        QTextStream(stderr) << message << '\n';
}

int fail(const char *message)
{
    QTextStream(stderr) << QLatin1String(message) << '\n';
    return 1;
}

// The samples as a table; a data set the input does not have is a usage error.
int writeCsv(const qv::CliCommand &command, const qv::ChartModel &model, const QString &output)
{
    qv::CsvOptions options;
    qv::g_csvWindow(model, command.range, options);
    options.sets = command.sets;
    for (int set = 0; command.sets.isEmpty() && set < model.usedDataSets(); ++set)
        options.sets << set;
    for (int set : qAsConst(options.sets)) {
        if (set >= model.usedDataSets()) {
            QTextStream(stderr) << "quorvanta-cli: " << command.input << " has no data set " << set << " (it has "
                                << model.usedDataSets() << ")\n\n"
                                << qv::g_cliUsage();
            return 2;
        }
    }
    options.decimalComma = options.byteOrderMark = command.excelDe;
    const qv::FileResult saved = qv::g_saveCsvFile(model, output, options);
    return saved.ok ? 0 : fail(saved.message);
}

}  // namespace

int main(int argc, char *argv[])
{
    qv::g_ignoreFileSizeSignal();
    // Drawing needs the widget platform but no display: off-screen unless
    // the caller chose a platform.
    const bool draws = argc > 1 && qv::g_cliDraws(QString::fromLocal8Bit(argv[1]));
    if (draws && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    if (draws)
        qInstallMessageHandler(quietDrawing);
    std::unique_ptr<QCoreApplication> app(draws ? new QApplication(argc, argv) : new QCoreApplication(argc, argv));
    QStringList arguments = QCoreApplication::arguments();
    arguments.removeFirst();

    qv::CliCommand command;
    QString error;
    if (!qv::g_parseCli(arguments, &command, &error)) {
        QTextStream(stderr) << "quorvanta-cli: " << error << "\n\n" << qv::g_cliUsage();
        return 2;
    }
    if (command.verb == qv::CliCommand::Help) {
        QTextStream(stdout) << qv::g_cliUsage();
        return 0;
    }

    const qv::InputKind kind =
        command.type != qv::InputKind::Unknown ? command.type : qv::g_detectInputKind(command.input);
    if (kind == qv::InputKind::Unknown) {
        QTextStream(stderr) << "quorvanta-cli: cannot tell the kind of " << command.input << "; name it with --type\n\n"
                            << qv::g_cliUsage();
        return 2;
    }

    const bool drawing = command.verb == qv::CliCommand::Pdf || command.verb == qv::CliCommand::Png;
    const bool namedOutput = drawing || command.verb == qv::CliCommand::Csv;
    const QString output = namedOutput ? command.output : qv::g_projectOutputName(command.output);
    if (namedOutput && sameFile(output, command.input)) {
        QTextStream(stderr) << "quorvanta-cli: writing " << output << " would overwrite the input file "
                            << command.input << '\n';
        return 1;
    }
    if (command.verb == qv::CliCommand::Convert) {
        // Saving replaces the output and its backup: neither may be the input.
        if (sameFile(output, command.input) || sameFile(qv::g_backupPath(output), command.input)) {
            QTextStream(stderr) << "quorvanta-cli: writing " << output << " would overwrite the input file "
                                << command.input << '\n';
            return 1;
        }
    }

    auto model = std::make_unique<qv::ChartModel>();
    CliHost host(command.answerYes);
    const qv::FileResult read = qv::g_readInput(kind, command.input, *model, host);
    if (!read.ok)
        return fail(read.message);

    if (command.verb == qv::CliCommand::Info) {
        QTextStream(stdout) << (command.json ? qv::g_infoJson(*model, command.input)
                                             : qv::g_infoText(*model, command.input));
        return 0;
    }

    if (command.verb == qv::CliCommand::Csv)
        return writeCsv(command, *model, output);

    if (command.verb == qv::CliCommand::Pdf || command.verb == qv::CliCommand::Png) {
        // The picture's format follows the file name's extension, as it did
        // when Qt chose it from the name.
        const QByteArray format = QFileInfo(output).suffix().toLower().toLatin1();
        const qv::FileResult written = qv::g_writeFileWhole(output, [&](QIODevice &device) {
            const bool drawn = command.verb == qv::CliCommand::Pdf
                                   ? qv::g_writePagePdf(*model, device)
                                   : qv::g_writeChartImage(*model, device, format, command.width);
            return drawn ? qv::FileResult() : qv::FileResult::failure(qv::kMsgWriteError, qv::FileError::CannotWrite);
        });
        return written.ok ? 0 : fail(written.message);
    }

    qv::SaveOptions options;
    options.changedTime = command.hasChangedTime ? command.changedTime : qv::g_currentSeconds();
    const qv::FileResult saved = qv::g_saveProjectFile(*model, output, options);
    if (!saved.ok)
        return fail(saved.message);
    return 0;
}

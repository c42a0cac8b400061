// quorvanta-cli: batch conversion to project files and a look inside them.
#include "cliargs.h"
#include "infoprinter.h"

#include "import/importer.h"
#include "project/projectfile.h"
#include "project/projectpaths.h"

#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

#include <sys/stat.h>

#include <memory>

namespace {

// Answers every question with the --yes/--no flag and reports on stderr.
class CliHost : public qv::ImportHost
{
public:
    explicit CliHost(bool yes) : m_yes(yes) {}
    bool askYesNo(const QString &, const QString &question) override
    {
        QTextStream(stderr) << question << (m_yes ? " -> Yes\n" : " -> No\n");
        return m_yes;
    }
    void warn(const QString &message) override { QTextStream(stderr) << "Warning: " << message << '\n'; }
    void progress(int, int) override {}

private:
    bool m_yes;
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

int fail(const char *message)
{
    QTextStream(stderr) << QLatin1String(message) << '\n';
    return 1;
}

}  // namespace

int main(int argc, char *argv[])
{
    qv::g_ignoreFileSizeSignal();
    QCoreApplication app(argc, argv);
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

    const qv::InputType type =
        command.type != qv::InputType::Unknown ? command.type : qv::g_detectInputType(command.input);
    if (type == qv::InputType::Unknown) {
        QTextStream(stderr) << "quorvanta-cli: cannot tell the kind of " << command.input << "; name it with --type\n\n"
                            << qv::g_cliUsage();
        return 2;
    }

    const QString output = qv::g_projectOutputName(command.output);
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
    const qv::FileResult read = qv::g_readInput(type, command.input, *model, host);
    if (!read.ok)
        return fail(read.message);

    if (command.verb == qv::CliCommand::Info) {
        QTextStream(stdout) << (command.json ? qv::g_infoJson(*model, command.input)
                                             : qv::g_infoText(*model, command.input));
        return 0;
    }

    qv::SaveOptions options;
    options.changedTime = command.hasChangedTime ? command.changedTime : qv::g_currentSeconds();
    const qv::FileResult saved = qv::g_saveProjectFile(*model, output, options);
    if (!saved.ok)
        return fail(saved.message);
    return 0;
}

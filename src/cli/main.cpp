// quorvanta-cli: batch conversion to project files and a look inside them.
#include "cliargs.h"
#include "infoprinter.h"

#include "import/importer.h"
#include "project/projectfile.h"

#include <QCoreApplication>
#include <QTextStream>

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

int fail(const char *message)
{
    QTextStream(stderr) << QLatin1String(message) << '\n';
    return 1;
}

}  // namespace

int main(int argc, char *argv[])
{
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
        QTextStream(stderr) << "quorvanta-cli: cannot tell the kind of " << command.input
                            << "; name it with --type\n\n"
                            << qv::g_cliUsage();
        return 2;
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
    const qv::FileResult saved = qv::g_saveProjectFile(*model, command.output, options);
    if (!saved.ok)
        return fail(saved.message);
    return 0;
}

// How an import talks to the person running it: Yes/No questions, warnings
// that do not stop the work, and progress. The desktop program answers with
// message boxes and its progress dialog, the command-line tool with its
// --yes/--no flag and stderr, the tests with scripted answers.
#pragma once

#include <QString>

namespace qv {

class ImportHost
{
public:
    virtual ~ImportHost() = default;
    // Only Yes proceeds.
    virtual bool askYesNo(const QString &title, const QString &question) = 0;
    virtual void warn(const QString &message) = 0;
    virtual void progress(int mainValue, int detailValue) = 0;
};

// Answers every question the same way, counts warnings and ignores progress:
// for benchmarks, fuzzing and other unattended runs.
class FixedAnswerHost : public ImportHost
{
public:
    explicit FixedAnswerHost(bool yes) : answer(yes) {}
    bool askYesNo(const QString &, const QString &) override { return answer; }
    void warn(const QString &) override { ++warnings; }
    void progress(int, int) override {}
    int warnings = 0;

private:
    bool answer;
};

}  // namespace qv

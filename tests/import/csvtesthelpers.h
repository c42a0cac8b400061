// Helpers for the import tests: a scripted host, committed inputs, and one
// summary line of what an import left in a model.
#pragma once

#include "core/import/importhost.h"
#include "core/model/chartmodel.h"
#include "core/project/projectfile.h"

#include <QByteArray>

#include <memory>

namespace qvtest {

// Answers every question with `answer` and counts what was asked and shown.
class ScriptedHost : public qv::ImportHost
{
public:
    bool askYesNo(const QString &, const QString &) override
    {
        ++questions;
        return answer;
    }
    void warn(const QString &) override { ++warnings; }
    // The progress dialog's bars run from 0 to 255; anything else is a fault.
    void progress(int main, int detail) override { outOfRange += main < 0 || main > 255 || detail < 0 || detail > 255; }

    bool answer = true;
    int questions = 0;
    int warnings = 0;
    int outOfRange = 0;
};

// A committed input under $QV_TEST_DATA, e.g. "controllercsv/title-with-bell-cuts-two-bytes.csv".
QByteArray dataFile(const char *name);

enum class Kind { Csv, Log, Vis };

struct ImportRun {
    std::unique_ptr<qv::ChartModel> model = std::make_unique<qv::ChartModel>();
    qv::FileResult result;
    ScriptedHost host;
    // One line of what the import left, parts chosen by letters:
    // r result, t title, s data sets (name:decimals:type:line flags, row boxes),
    // a axis ranges, v values of every used store, x times of store 0,
    // g time range, m state track and flags, p parameter block, q questions and warnings.
    QByteArray summary(const char *parts) const;
};

ImportRun importFile(Kind kind, const QString &path, bool answer = true);
ImportRun importBytes(Kind kind, const QByteArray &bytes, bool answer = true);

}  // namespace qvtest

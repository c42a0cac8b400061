// Helpers for the controller CSV import tests: a scripted host, files in a
// temporary folder, and checks of whole records and stores.
#pragma once

#include "import/importhost.h"
#include "project/chartmodel.h"
#include "project/projectfile.h"

#include <QByteArray>
#include <QPair>
#include <QStringList>
#include <QTemporaryDir>
#include <QVector>

#include <memory>

namespace qvtest {

// Answers every question with `answer` and records what was asked and shown.
class ScriptedHost : public qv::ImportHost
{
public:
    explicit ScriptedHost(bool yes = true) : answer(yes) {}
    bool askYesNo(const QString &title, const QString &question) override;
    void warn(const QString &message) override { warnings << message; }
    void progress(int mainValue, int detailValue) override;

    bool answer;
    QStringList questions;  // "title|question"
    QStringList warnings;
    QVector<QPair<int, int>> progressCalls;
};

// Files of one test in a fresh temporary folder.
class CsvFolder
{
public:
    QString path(const QString &name) const { return m_dir.filePath(name); }
    QString write(const QString &name, const QByteArray &bytes) const;

private:
    QTemporaryDir m_dir;
};

struct ImportRun {
    std::unique_ptr<qv::ChartModel> model = std::make_unique<qv::ChartModel>();
    qv::FileResult result;
};

ImportRun importCsv(const QString &path, qv::ImportHost &host);
ImportRun importCsv(const QString &path);  // answers Yes

// The settings record a fresh model starts with, stamped with the change time
// of `like`, so that a whole record can be compared byte for byte.
settingsT freshSettings(const qv::ChartModel &like);
QByteArray recordBytes(const settingsT &s);
QByteArray storeBytes(const _chartDataType &d);
// The store that holds exactly these samples (an empty tail of zeros).
QByteArray expectedStore(const QVector<qint64> &times, const QVector<double> &values);

// What QDateTime makes of a time stamp text, the reference for every time.
qint64 referenceTime(const char *text);

}  // namespace qvtest

#include "csvtesthelpers.h"

#include "import/csvimport.h"
#include "support/testsupport.h"

#include <QDateTime>

#include <cstring>

namespace qvtest {

bool ScriptedHost::askYesNo(const QString &title, const QString &question)
{
    questions << title + QLatin1Char('|') + question;
    return answer;
}

void ScriptedHost::progress(int mainValue, int detailValue)
{
    progressCalls.append(qMakePair(mainValue, detailValue));
}

QString CsvFolder::write(const QString &name, const QByteArray &bytes) const
{
    const QString p = path(name);
    writeFile(p, bytes);
    return p;
}

ImportRun importCsv(const QString &path, qv::ImportHost &host)
{
    ImportRun run;
    run.result = qv::g_importControllerCsv(path, *run.model, host);
    return run;
}

ImportRun importCsv(const QString &path)
{
    ScriptedHost host(true);
    return importCsv(path, host);
}

settingsT freshSettings(const qv::ChartModel &like)
{
    settingsT s;
    qv::g_initSettings(s, like.settings.changedTime);
    return s;
}

QByteArray recordBytes(const settingsT &s)
{
    return QByteArray(reinterpret_cast<const char *>(&s), int(sizeof s));
}

QByteArray storeBytes(const _chartDataType &d)
{
    return QByteArray(reinterpret_cast<const char *>(&d), int(sizeof d));
}

QByteArray expectedStore(const QVector<qint64> &times, const QVector<double> &values)
{
    auto store = std::make_unique<_chartDataType>();
    std::memset(store.get(), 0, sizeof(_chartDataType));
    store->count = times.size();
    for (int k = 0; k < times.size(); ++k) {
        store->time[k] = times[k];
        store->value[k] = values[k];
    }
    return storeBytes(*store);
}

qint64 referenceTime(const char *text)
{
    return QDateTime::fromString(QString::fromLatin1(text), QStringLiteral("dd.MM.yyyy hh:mm:ss")).toMSecsSinceEpoch();
}

}  // namespace qvtest

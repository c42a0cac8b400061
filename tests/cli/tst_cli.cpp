// quorvanta-cli as a script sees it: exit codes and messages, which output
// names it refuses or changes, the bytes it writes and what info prints.
#include "support/testsupport.h"

#include "core/chart/pagelayout.h"
#include "core/model/chartmodel.h"
#include "core/model/fixedstring.h"
#include "core/project/projectfile.h"

#include <QBuffer>
#include <QDir>
#include <QtTest>

#include <unistd.h>

#include <memory>

using namespace qv;

namespace {

const QString kData = qEnvironmentVariable("QV_TEST_DATA") + QStringLiteral("/project/");

struct Set {
    const char *name, *unit;
    quint8 decimals;
    QVector<double> values;
};

// A project of these data sets, sampled `step` ms apart from `first`, with
// device states if codes are given; the range leaves out the first sample.
bool saveProject(const QString &path, const char *description, qint64 first, qint64 step, const QVector<Set> &sets,
                 const QVector<qint8> &codes = {})
{
    auto m = std::make_unique<ChartModel>();
    settingsT &s = m->settings;
    g_char2Buffer(s.description, description, kDescriptionWidth);
    s.dataSetCount = sets.size();
    int samples = 0;
    for (int i = 0; i < sets.size(); ++i) {
        g_char2Buffer(s.name[i], sets[i].name, kNameWidth);
        g_char2Buffer(s.unit[i], sets[i].unit, kUnitWidth);
        s.decimals[i] = sets[i].decimals;
        samples = qMax(samples, m->data(i)->count = qint32(sets[i].values.size()));
        for (int k = 0; k < sets[i].values.size(); ++k) {
            m->data(i)->time[k] = first + k * step;
            m->data(i)->value[k] = sets[i].values[k];
        }
    }
    m->modeCodes()->count = codes.size();
    std::copy(codes.begin(), codes.end(), m->modeCodes()->code);
    s.hasModeData = !codes.isEmpty();
    s.firstTime = first;
    s.rangeBegin = first + step;
    s.lastTime = s.rangeEnd = first + (samples - 1) * step;
    s.sampleInterval = qint32(step / 1000);
    return g_saveProjectFile(*m, path, SaveOptions{77, 6, 2000, {}}).ok;
}

}  // namespace

class TestCli : public QObject
{
    Q_OBJECT

private slots:

    // The runs in cli-runs.txt: usage errors, read and write failures, the
    // output names refused or changed, the bytes written and what info prints.
    void runs_data()
    {
        QTest::addColumn<QString>("arguments");
        QTest::addColumn<QString>("expected");
        for (const QString &line :
             QString::fromUtf8(qvtest::readFile(kData + QStringLiteral("cli-runs.txt"))).split(QLatin1Char('\n'))) {
            const QStringList c = line.split(QStringLiteral(" | "));
            if (c.size() == 3 && !line.startsWith(QLatin1Char('#')))
                QTest::newRow(qPrintable(c.at(2))) << c.at(0) << c.at(1);
        }
    }

    void runs()
    {
        QFETCH(QString, arguments);
        QFETCH(QString, expected);
        QTemporaryDir dir;
        const QString in = dir.filePath(QStringLiteral("in.qvj")), at = dir.path() + QLatin1Char('/');
        // Ten samples a minute apart, sample 3 of the humidity missing.
        QVERIFY(saveProject(in, "Weinkeller S\374d", 1763712000000, 60000,
                            {{"Temp In", "\260C", 1, {10, 11, 12, 13, 14, 15, 16, 17, 18, 19}},
                             {"Humidity In", "%rH", 2, {50, 50.5, 51, kMissingValue, 52, 52.5, 53, 53.5, 54, 54.5}}}));
        QVERIFY(QFile::copy(in, at + QStringLiteral("in.bak")));
        // The night the clocks go back in Berlin: eight samples half an hour apart
        // from 00:00 summer time, so 02:00 and 02:30 come twice. Values that round
        // on a half, to minus zero or only the slow way, a missing value, a data set
        // shorter than data set 0, a name to be quoted, a set without a unit, and
        // device states for all but the last sample.
        QVERIFY(saveProject(at + QStringLiteral("night.qvj"), "", 1792879200000, 1800000,
                            {{"Temp In", "\260C", 1, {10.25, -0.04, -1.25, 3.14159, 1e10, 21.449999, 0, 7}},
                             {"Humidity \"rel\"; In", "%", 0, {80, kMissingValue, 81.5, 80.4, 79.5, 78}},
                             {"Dew Point", "", 2, {5.005, 12.3456, -2, kMissingValue, 0.001, -0.004, 3, 4}}},
                            {5, 5, 11, 12, 0, 7, 99}));
        QVERIFY(QFile::link(in, dir.filePath(QStringLiteral("link.qvj"))));
        QCOMPARE(
            ::link(QFile::encodeName(in).constData(), QFile::encodeName(at + QStringLiteral("hard.qvj")).constData()),
            0);
        QVERIFY(qvtest::writeFile(at + QStringLiteral("data.csv"), "Datum;Zeit\n"));
        QVERIFY(qvtest::writeFile(at + QStringLiteral("bad.qvj"), "hello, world"));
        QVERIFY(qvtest::writeFile(at + QStringLiteral("damaged.qvj"), qvtest::item(g_projectHeader14()) + "xxxxx"));
        QMap<QString, QByteArray> before;
        for (const QString &name : QDir(dir.path()).entryList(QDir::Files))
            before[name] = qvtest::readFile(at + name);

        qputenv("TZ", "Europe/Berlin");  // the local times of the tables
        const qvtest::ProgramRun r = qvtest::runProgram(
            QStringLiteral(QV_CLI_PATH),
            QString(arguments).replace(QLatin1Char('@'), at).split(QLatin1Char(' '), Qt::SkipEmptyParts));
        const QString err =
            QString::fromUtf8(r.err).replace(at, QStringLiteral("@")).remove(QStringLiteral("quorvanta-cli: "));
        QString found = QStringLiteral("%1 %2").arg(r.exitCode).arg(err.section(QLatin1Char('\n'), 0, 0));
        QVERIFY(err.contains(QStringLiteral("Usage:")) == (r.exitCode == 2));
        QCOMPARE(QString::fromUtf8(r.out).replace(at, QStringLiteral("@/")),
                 QString::fromUtf8(arguments.startsWith(QLatin1String("info @")) && r.exitCode == 0
                                       ? qvtest::readFile(kData + QStringLiteral("info-two-sets-one-value-missing.txt"))
                                       : QByteArray()));
        for (auto it = before.cbegin(); it != before.cend(); ++it)  // no file that was there changes
            QV_COMPARE_BYTES(qvtest::readFile(at + it.key()), it.value());
        for (const QString &name : QDir(dir.path()).entryList(QDir::Files, QDir::Name)) {
            if (before.contains(name))
                continue;
            const QByteArray bytes = qvtest::readFile(at + name);
            found += QStringLiteral(" +") + name;
            if (name.endsWith(QLatin1String(".csv"))) {  // a table: the bytes of the test file so named
                found += QLatin1String(bytes == qvtest::readFile(kData + name) ? "" : " (differs)");
                continue;
            }
            auto written = std::make_unique<ChartModel>(), opened = std::make_unique<ChartModel>();
            const bool loads = g_loadProjectFile(*written, at + name, ProgressFn()).ok &&
                               g_loadProjectFile(*opened, in, ProgressFn()).ok;
            QBuffer desktop;
            desktop.open(QIODevice::WriteOnly);
            const quint32 changed = written->settings.changedTime;
            g_writeProject(*opened, desktop, SaveOptions{changed, 6, 2000, {}});
            found += QLatin1String(!loads                    ? " (bad)"
                                   : desktop.data() != bytes ? " (differs)"
                                                             : "") +
                     (changed + 3600 < g_currentSeconds() ? QStringLiteral(" at %1").arg(changed) : QString());
        }
        QCOMPARE(found, expected);
    }

    // The page of the bundled vaporix sample as a service company would make it:
    // one A4 landscape sheet titled like the chart, every band label and value
    // searchable as text.
    void pdfOfTheSample()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            QSKIP("poppler-utils (pdftotext, pdfinfo) not installed");
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("page.pdf"));
        const qvtest::ProgramRun r =
            qvtest::runProgram(QStringLiteral(QV_CLI_PATH),
                               {QStringLiteral("pdf"), QStringLiteral(QV_SAMPLE_PROJECT), QStringLiteral("-o"), pdf});
        QCOMPARE(r.exitCode, 0);
        QCOMPARE(r.err, QByteArray());
        const QString info = QString::fromUtf8(qvtest::runProgram(QStringLiteral("pdfinfo"), {pdf}).out);
        QVERIFY2(info.contains(QStringLiteral("Pages:           1\n")), qPrintable(info));
        QVERIFY2(info.contains(QStringLiteral("Page size:       842 x 595 pts (A4)")), qPrintable(info));
        auto model = std::make_unique<ChartModel>();
        QVERIFY(g_loadProjectFile(*model, QStringLiteral(QV_SAMPLE_PROJECT), ProgressFn()).ok);
        const QString title = g_buffer2QString(model->settings.description, kDescriptionWidth).trimmed();
        QVERIFY2(info.contains(QStringLiteral("Title:           ") + title + QLatin1Char('\n')), qPrintable(info));
        const QString text =
            QString::fromUtf8(qvtest::runProgram(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")}).out);
        const QVector<PageBandEntry> band = g_pageBand(model->settings, *model->modeParameters(), 4960);
        QCOMPARE(band.size(), 13);
        for (const PageBandEntry &entry : band) {
            QVERIFY2(text.contains(QLatin1String(entry.label)), entry.label);
            QVERIFY2(text.contains(entry.value.trimmed()), qPrintable(entry.value));
        }
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"

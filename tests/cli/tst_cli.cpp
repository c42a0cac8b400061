// quorvanta-cli as a script sees it: exit codes and messages, which output
// names it refuses or changes, the bytes it writes and what info prints.
#include "support/testsupport.h"

#include "chart/pagelayout.h"
#include "project/chartmodel.h"
#include "project/fixedstring.h"
#include "project/projectfile.h"

#include <QBuffer>
#include <QDir>
#include <QtTest>

#include <unistd.h>

#include <memory>

using namespace qv;

namespace {

QString data(const QString &name)
{
    return qEnvironmentVariable("QV_TEST_DATA") + QStringLiteral("/project/") + name;
}

// Two data sets of ten samples a minute apart; the range holds samples 1..9
// and sample 3 of the humidity is missing.
bool saveSample(const QString &path)
{
    auto m = std::make_unique<ChartModel>();
    settingsT &s = m->settings;
    s.dataSetCount = 2;
    g_char2Buffer(s.description,
                  "Weinkeller S\xFC"
                  "d",
                  kDescriptionWidth);
    const char *names[] = {"Temp In", "Humidity In"}, *units[] = {"\xB0"
                                                                  "C",
                                                                  "%rH"};
    for (int i = 0; i < 2; ++i) {
        g_char2Buffer(s.name[i], names[i], kNameWidth);
        g_char2Buffer(s.unit[i], units[i], kUnitWidth);
        s.decimals[i] = quint8(i + 1);
        m->data(i)->count = 10;
        for (int k = 0; k < 10; ++k) {
            m->data(i)->time[k] = 1763712000000 + qint64(k) * 60000;
            m->data(i)->value[k] = i == 0 ? 10.0 + k : (k == 3 ? kMissingValue : 50.0 + k * 0.5);
        }
    }
    s.firstTime = 1763712000000;
    s.rangeBegin = s.firstTime + 60000;
    s.lastTime = s.rangeEnd = s.firstTime + 9 * 60000;
    s.sampleInterval = 60;
    return g_saveProjectFile(*m, path, SaveOptions{77, 6, 2000, {}}).ok;
}

// The night the clocks go back in Berlin: eight samples half an hour apart
// from 00:00 summer time, so 02:00 and 02:30 come twice. Values that round
// on a half, to minus zero or only the slow way, a missing value, a data set
// shorter than data set 0, a name to be quoted, a set without a unit, and
// device states for all but the last sample.
bool saveNight(const QString &path)
{
    auto m = std::make_unique<ChartModel>();
    settingsT &s = m->settings;
    const char *names[] = {"Temp In", "Humidity \"rel\"; In", "Dew Point"}, *units[] = {"\xB0\x43", "%", ""};
    const double values[3][8] = {{10.25, -0.04, -1.25, 3.14159, 1e10, 21.449999, 0, 7},
                                 {80, kMissingValue, 81.5, 80.4, 79.5, 78},
                                 {5.005, 12.3456, -2, kMissingValue, 0.001, -0.004, 3, 4}};
    const qint8 codes[] = {5, 5, 11, 12, 0, 7, 99};
    s.dataSetCount = 3;
    for (int i = 0; i < 3; ++i) {
        g_char2Buffer(s.name[i], names[i], kNameWidth);
        g_char2Buffer(s.unit[i], units[i], kUnitWidth);
        s.decimals[i] = quint8(i == 0 ? 1 : i == 1 ? 0 : 2);
        m->data(i)->count = i == 1 ? 6 : 8;
        for (int k = 0; k < 8; ++k) {
            m->data(i)->time[k] = 1792879200000 + qint64(k) * 1800000;
            m->data(i)->value[k] = values[i][k];
        }
    }
    m->modeCodes()->count = 7;
    std::copy(codes, codes + 7, m->modeCodes()->code);
    s.hasModeData = 1;
    s.firstTime = 1792879200000;
    s.lastTime = s.rangeEnd = s.firstTime + 7 * 1800000;
    s.rangeBegin = s.firstTime + 1800000;
    return g_saveProjectFile(*m, path, SaveOptions{77, 6, 2000, {}}).ok;
}

}  // namespace

class TestCli : public QObject
{
    Q_OBJECT

private slots:
    void runs_data();
    void runs();
    void pdfOfTheSample();
};

// The runs in cli-runs.txt: usage errors, read and write failures, the
// output names refused or changed, the bytes written and what info prints.
void TestCli::runs_data()
{
    // clang-format off
    QTest::addColumn<QString>("arguments");
    QTest::addColumn<QString>("expected");
    const QString table = QString::fromUtf8(qvtest::readFile(data(QStringLiteral("cli-runs.txt"))));
    for (const QString &line : table.split(QLatin1Char('\n'))) {
        const QStringList c = line.split(QStringLiteral(" | "));
        if (c.size() == 3 && !line.startsWith(QLatin1Char('#')))
            QTest::newRow(qPrintable(c.at(2))) << c.at(0) << c.at(1);
    }
    // clang-format on
}

void TestCli::runs()
{
    QFETCH(QString, arguments);
    QFETCH(QString, expected);
    QTemporaryDir dir;
    const QString in = dir.filePath(QStringLiteral("in.qvj")), at = dir.path() + QLatin1Char('/');
    QVERIFY(saveSample(in) && saveSample(dir.filePath(QStringLiteral("in.bak"))));
    QVERIFY(saveNight(dir.filePath(QStringLiteral("night.qvj"))));
    QVERIFY(QFile::link(in, dir.filePath(QStringLiteral("link.qvj"))));
    QCOMPARE(::link(QFile::encodeName(in).constData(), QFile::encodeName(at + QStringLiteral("hard.qvj")).constData()),
             0);
    QVERIFY(qvtest::writeFile(at + QStringLiteral("data.csv"), "Datum;Zeit\n"));
    QVERIFY(qvtest::writeFile(at + QStringLiteral("bad.qvj"), "hello, world"));
    QVERIFY(qvtest::writeFile(at + QStringLiteral("damaged.qvj"), qvtest::item(g_projectHeader14()) + "xxxxx"));
    const QStringList before = QDir(dir.path()).entryList(QDir::Files, QDir::Name);
    QList<QByteArray> bytesBefore;
    for (const QString &name : before)
        bytesBefore << qvtest::readFile(at + name);

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
                                   ? qvtest::readFile(data(QStringLiteral("info-two-sets-one-value-missing.txt")))
                                   : QByteArray()));
    for (int i = 0; i < before.size(); ++i)  // no file that was there changes
        QV_COMPARE_BYTES(qvtest::readFile(at + before.at(i)), bytesBefore.at(i));
    for (const QString &name : QDir(dir.path()).entryList(QDir::Files, QDir::Name)) {
        auto written = std::make_unique<ChartModel>(), opened = std::make_unique<ChartModel>();
        if (before.contains(name))
            continue;
        if (name.endsWith(QLatin1String(".csv"))) {  // a table: the bytes of the test file so named
            found += QStringLiteral(" +") + name +
                     QLatin1String(qvtest::readFile(at + name) == qvtest::readFile(data(name)) ? "" : " (differs)");
            continue;
        }
        const bool loads =
            g_loadProjectFile(*written, at + name, ProgressFn()).ok && g_loadProjectFile(*opened, in, ProgressFn()).ok;
        QBuffer desktop;
        desktop.open(QIODevice::WriteOnly);
        const quint32 changed = written->settings.changedTime;
        g_writeProject(*opened, desktop, SaveOptions{changed, 6, 2000, {}});
        found += QStringLiteral(" +") + name +
                 QLatin1String(!loads                                          ? " (bad)"
                               : desktop.data() != qvtest::readFile(at + name) ? " (differs)"
                                                                               : "") +
                 (changed + 3600 < g_currentSeconds() ? QStringLiteral(" at %1").arg(changed) : QString());
    }
    QCOMPARE(found, expected);
}

// The page of the bundled vaporix sample as a service company would make it:
// one A4 landscape sheet titled like the chart, every band label and value
// searchable as text.
void TestCli::pdfOfTheSample()
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

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"

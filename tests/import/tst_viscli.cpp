// quorvanta-cli convert of vaporix-VIS files: the automatic type (a .csv whose
// first line is one byte) and --type vis write the very bytes of a direct
// import saved with the same change time; a header error is reported with the
// importer's text and writes nothing.
#include "csvtesthelpers.h"
#include "support/testsupport.h"
#include "visfile.h"

#include "import/visimport.h"

#include <QProcess>
#include <QtTest>

using namespace qv;
using namespace qvtest;

namespace {

struct CliRun {
    int exitCode = -1;
    QByteArray errors;
};

CliRun runCli(const QStringList &arguments)
{
    QProcess p;
    p.start(QStringLiteral(QV_CLI_PATH), arguments);
    CliRun r;
    if (!p.waitForFinished(120000))
        return r;
    r.exitCode = p.exitStatus() == QProcess::NormalExit ? p.exitCode() : -1;
    r.errors = p.readAllStandardError();
    return r;
}

QByteArray sampling()
{
    VisFile f;
    const char *states[] = {"OPTIMAL   ", "L\xDC" "FTEN EIN", "ZU KALT   ", "ERR AUSSEN"};
    for (int k = 0; k < 40; ++k)
        f.data << dataLine("14.10.2022", QByteArray::number(10 + k / 6) + ':' + QByteArray::number(k % 6) + '0',
                           {QByteArray::number(12.5 + k * 0.1), "71", "6.4", QByteArray::number(9 - k * 0.2), "88",
                            k == 7 ? "60.2" : "6.1"},
                           states[k / 10]);
    return f.bytes();
}

}  // namespace

class TestVisCli : public QObject
{
    Q_OBJECT

private slots:
    void convert_data();
    void convert();
    void headerError();
    void bundledSample();
};

void TestVisCli::convert_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("options");

    QTest::newRow("automatic type") << QStringLiteral("keller.csv") << QStringList();
    QTest::newRow("automatic type, upper case") << QStringLiteral("KELLER.CSV") << QStringList();
    QTest::newRow("named type") << QStringLiteral("keller.txt")
                                << QStringList{QStringLiteral("--type"), QStringLiteral("vis")};
}

void TestVisCli::convert()
{
    QFETCH(QString, name);
    QFETCH(QStringList, options);

    CsvFolder folder;
    const QString input = folder.write(name, sampling());
    const QString output = folder.path(QStringLiteral("cli.qvj"));
    const CliRun run = runCli(QStringList{QStringLiteral("convert")} + options +
                              QStringList{input, QStringLiteral("-o"), output, QStringLiteral("--changed-time"),
                                          QStringLiteral("0")});
    QVERIFY2(run.exitCode == 0, run.errors.constData());

    ChartModel model;
    ScriptedHost host;
    QVERIFY(g_importVisCsv(input, model, host).ok);
    QCOMPARE(model.data(0)->count, 40);
    SaveOptions save;
    save.changedTime = 0;
    const QString direct = folder.path(QStringLiteral("direct.qvj"));
    QVERIFY(g_saveProjectFile(model, direct, save).ok);
    QV_COMPARE_BYTES(readFile(output), readFile(direct));
}

void TestVisCli::headerError()
{
    CsvFolder folder;
    VisFile f;
    f.line4 = "too short\n";
    const QString input = folder.write(QStringLiteral("bad.csv"), f.bytes());
    const QString output = folder.path(QStringLiteral("bad.qvj"));
    const CliRun run = runCli({QStringLiteral("convert"), input, QStringLiteral("-o"), output});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.contains("Error in CSV title line 4 !"), run.errors.constData());
    QVERIFY(!QFile::exists(output));
}

// The sample written at build time is a complete recording: weeks of data,
// every state the device reports, sensor dropouts caught by the limits.
void TestVisCli::bundledSample()
{
    ChartModel model;
    ScriptedHost host;
    const FileResult r = g_importVisCsv(QStringLiteral(QV_VIS_SAMPLE), model, host);
    QVERIFY(r.ok);
    QVERIFY(host.warnings.isEmpty());
    QCOMPARE(model.settings.sampleInterval, 600);
    QCOMPARE(model.modeCodes()->count, model.data(0)->count);
    QVERIFY(model.settings.lastTime - model.settings.firstTime > 21LL * 86400000);
    QCOMPARE(model.settings.rangeSampleCount, model.data(0)->count);
    QSet<int> codes;
    for (int k = 0; k < model.modeCodes()->count; ++k)
        codes.insert(model.modeCodes()->code[k]);
    QCOMPARE(codes, (QSet<int>{2, 3, 4, 5, 6, 8, 9, 12}));
    int missingInside = 0, missingOutside = 0;
    for (int k = 0; k < model.data(0)->count; ++k) {
        missingInside += g_isMissing(model.data(0)->value[k]);
        missingOutside += g_isMissing(model.data(3)->value[k]);
    }
    QVERIFY(missingInside > 0 && missingOutside > 0);
}

QTEST_GUILESS_MAIN(TestVisCli)
#include "tst_viscli.moc"

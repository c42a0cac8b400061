// quorvanta-cli convert of binary sampling logs writes exactly the project
// file that a direct import and save give, for a crafted log and for the
// bundled samples with --yes and --no.
#include "csvtesthelpers.h"
#include "support/testsupport.h"

#include "import/logimport.h"
#include "logwriter.h"
#include "project/projectfile.h"

#include <QProcess>
#include <QtTest>

using namespace qv;
using namespace qvtest;

class TestLogCli : public QObject
{
    Q_OBJECT

private slots:
    void convert_data();
    void convert();
};

void TestLogCli::convert_data()
{
    QTest::addColumn<QString>("input");  // relative: a crafted log of that name
    QTest::addColumn<bool>("yes");
    QTest::addColumn<int>("samples");
    QTest::addColumn<bool>("modes");

    const QString samples = QStringLiteral(QV_LOG_SAMPLES_DIR);
    QTest::newRow("crafted, overflow repaired") << QStringLiteral("x.log") << true << 12 << false;
    QTest::newRow("crafted, as recorded") << QStringLiteral("x.log") << false << 10 << false;
    QTest::newRow("wrapped sample, --yes") << samples + QStringLiteral("/ventimar-log/SV_SA_01.LOG") << true << 1800
                                           << true;
    QTest::newRow("wrapped sample, --no") << samples + QStringLiteral("/ventimar-log/SV_SA_01.LOG") << false << 1800
                                          << false;
    QTest::newRow("overflow sample, --yes") << samples + QStringLiteral("/ventimar-log-overflow/SV_SA_01.LOG") << true
                                            << 1400 << true;
    QTest::newRow("overflow sample, --no") << samples + QStringLiteral("/ventimar-log-overflow/SV_SA_01.LOG") << false
                                           << 1000 << false;
}

void TestLogCli::convert()
{
    QFETCH(QString, input);
    QFETCH(bool, yes);
    QFETCH(int, samples);
    QFETCH(bool, modes);

    CsvFolder folder;
    if (!input.startsWith(QLatin1Char('/'))) {
        qvlog::LogLayout s;
        s.title = "Keller";
        s.count = 3;
        s.capacity = 15;
        s.interval = 600;
        s.startTime = 1700000000;
        s.rows = 10;
        s.oldestOffset = 2 * 3 * 4;
        s.sets[0] = {"Temp", 3, 1, 0, 10, 0};
        s.sets[1] = {"Feuchte", 8, 1, 0, 0, 0};
        s.sets[2] = {"Zaehler", 6, 2, 0, 0, 0};
        for (int r = 0; r < 16; ++r)
            s.words << quint32(150 - 7 * r) << qvlog::floatWord(60.5f + r) << quint32(r);
        input = folder.write(input, qvlog::file(s));
    }
    const QString output = folder.path(QStringLiteral("out.qvj"));
    QProcess cli;
    cli.start(QStringLiteral(QV_CLI_PATH),
              {QStringLiteral("convert"), QStringLiteral("--type"), QStringLiteral("log"),
               yes ? QStringLiteral("--yes") : QStringLiteral("--no"), input, QStringLiteral("-o"), output,
               QStringLiteral("--changed-time"), QStringLiteral("0")});
    QVERIFY(cli.waitForFinished(120000));
    QVERIFY2(cli.exitStatus() == QProcess::NormalExit && cli.exitCode() == 0, cli.readAllStandardError().constData());

    ScriptedHost host(yes);
    ImportRun direct;
    direct.result = g_importControllerLog(input, *direct.model, host);
    QVERIFY2(direct.result.ok, direct.result.message);
    QCOMPARE(direct.model->data(0)->count, samples);
    QCOMPARE(bool(direct.model->settings.hasModeData), modes);
    const QString saved = folder.path(QStringLiteral("direct.qvj"));
    SaveOptions options;
    options.changedTime = 0;
    QVERIFY(g_saveProjectFile(*direct.model, saved, options).ok);
    QV_COMPARE_BYTES(readFile(output), readFile(saved));
}

QTEST_GUILESS_MAIN(TestLogCli)
#include "tst_logcli.moc"

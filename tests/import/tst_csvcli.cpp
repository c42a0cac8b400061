// quorvanta-cli convert of controller CSV files: the project it writes loads
// back into exactly the model a direct import builds, and a failed import
// reports the importer's text.
#include "csvtesthelpers.h"
#include "support/testsupport.h"

#include "project/projectfile.h"

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

QByteArray raw(const void *p, int size)
{
    return QByteArray(static_cast<const char *>(p), size);
}

QByteArray sensorSet(const CsvFolder &folder)
{
    QByteArray main = "SENSORWERTE\nZeit;1;2;3;4;5;6;7\n";
    QByteArray state = "STATUS LOG\nKopf\n";
    for (int k = 0; k < 30; ++k) {
        const QByteArray t = "02.03.2021 08:" + QByteArray::number(10 + k) + ":00";
        main += t + ";8.5;10.5;60;9.0;" + QByteArray::number(18 + k * 0.25) + ";55\n";
        state += t + ";" + QByteArray::number(k) + ";1;" + (k % 3 ? "100" : "200") + ";9;0\n";
    }
    folder.write(QStringLiteral("C_TS02.CSV"), state);
    folder.write(QStringLiteral("C_TS03.CSV"), "PARAMETER\nKopf\nx;1;45;65;5;25;3;15;2.5;1.5;0.1;-0.2;0.3;-0.4;7;8;9\n");
    folder.write(QStringLiteral("C_TS04.CSV"), "PARAMETER SDKARTE\nKopf\nx;600;0;0;0;0;0;0;0\n");
    return main;
}

}  // namespace

class TestCsvCli : public QObject
{
    Q_OBJECT

private slots:
    void roundTrip_data();
    void roundTrip();
    void failure();
};

void TestCsvCli::roundTrip_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<bool>("yes");
    QTest::addColumn<bool>("modes");

    QTest::newRow("named type") << QStringLiteral("plain.csv")
                                << QStringList{QStringLiteral("--type"), QStringLiteral("csv")} << false << false;
    QTest::newRow("type from the name") << QStringLiteral("plain.CSV") << QStringList() << false << false;
    QTest::newRow("sensor set, Yes") << QStringLiteral("C_TS01.CSV") << QStringList{QStringLiteral("--yes")} << true
                                     << true;
    QTest::newRow("sensor set, No") << QStringLiteral("C_TS01.CSV") << QStringList{QStringLiteral("--no")} << false
                                    << false;
    // The bundled samples, as the README's commands convert them.
    QTest::newRow("bundled warehouse sample") << QStringLiteral(QV_SAMPLES_DIR "/ventimar-lager.csv") << QStringList()
                                              << false << false;
    QTest::newRow("bundled cellar set") << QStringLiteral(QV_SAMPLES_DIR "/vaporix-keller_TS01.csv")
                                        << QStringList{QStringLiteral("--yes")} << true << true;
}

void TestCsvCli::roundTrip()
{
    QFETCH(QString, name);
    QFETCH(QStringList, options);
    QFETCH(bool, yes);
    QFETCH(bool, modes);

    CsvFolder folder;
    QByteArray content;
    if (name.startsWith(QLatin1Char('/'))) {
        content = readFile(name);
        QVERIFY(!content.isEmpty());
    } else if (name.startsWith(QLatin1String("C_"))) {
        content = sensorSet(folder);
    } else {
        content = "Keller\nZeit;Temp;Feuchte;\n";
        for (int k = 0; k < 50; ++k)
            content += "05.07.2021 1" + QByteArray::number(k / 10) + ":" + QByteArray::number(k % 6) + "0:00;" +
                       QByteArray::number(15 - k * 0.125) + ";" + (k % 7 ? QByteArray::number(70 + k) : "-") + "\n";
    }
    const QString input = name.startsWith(QLatin1Char('/')) ? name : folder.write(name, content);
    const QString output = folder.path(QStringLiteral("out.qvj"));

    const CliRun run = runCli(QStringList{QStringLiteral("convert")} + options +
                              QStringList{input, QStringLiteral("-o"), output, QStringLiteral("--changed-time"),
                                          QStringLiteral("0")});
    QVERIFY2(run.exitCode == 0, run.errors.constData());

    ScriptedHost host(yes);
    ImportRun direct = importCsv(input, host);
    QVERIFY(direct.result.ok);
    direct.model->settings.changedTime = 0;
    QCOMPARE(bool(direct.model->settings.hasModeData), modes);

    auto loaded = std::make_unique<ChartModel>();
    const FileResult load = g_loadProjectFile(*loaded, output, ProgressFn());
    QVERIFY(load.ok);
    QV_COMPARE_BYTES(recordBytes(loaded->settings), recordBytes(direct.model->settings));
    for (int i = 0; i < direct.model->settings.dataSetCount; ++i)
        QV_COMPARE_BYTES(storeBytes(*loaded->data(i)), storeBytes(*direct.model->data(i)));
    if (modes) {
        QV_COMPARE_BYTES(raw(loaded->modeCodes(), int(sizeof(modeCodesT))),
                         raw(direct.model->modeCodes(), int(sizeof(modeCodesT))));
        QV_COMPARE_BYTES(raw(loaded->modeParameters(), int(sizeof(modeParametersT))),
                         raw(direct.model->modeParameters(), int(sizeof(modeParametersT))));
        QVERIFY(run.errors.contains("File seems to be part of a vaporix sampling."));
    }
}

void TestCsvCli::failure()
{
    CsvFolder folder;
    const QString input = folder.write(QStringLiteral("wide.csv"), "K\nZeit;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;16;17\n");
    const QString output = folder.path(QStringLiteral("wide.qvj"));
    const CliRun run = runCli({QStringLiteral("convert"), input, QStringLiteral("-o"), output});
    QCOMPARE(run.exitCode, 1);
    QVERIFY2(run.errors.contains("Error in CSV line 2 !\nToo many columns."), run.errors.constData());
    QVERIFY(!QFile::exists(output));
}

QTEST_GUILESS_MAIN(TestCsvCli)
#include "tst_csvcli.moc"

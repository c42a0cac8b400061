// quorvanta-cli convert of every input kind: the project it writes holds
// exactly the bytes of a direct import saved with the same change time, for
// crafted files and for the bundled samples; a failed import exits with 1,
// reports the importer's text and writes nothing.
#include "csvtesthelpers.h"
#include "support/testsupport.h"
#include "visfile.h"

#include "import/csvimport.h"
#include "import/importer.h"
#include "import/logimport.h"
#include "import/visimport.h"
#include "logwriter.h"
#include "project/projectfile.h"

#include <QtTest>

#include <sys/stat.h>

using namespace qv;
using namespace qvtest;

namespace {

ProgramRun runCli(const QStringList &arguments)
{
    return runProgram(QStringLiteral(QV_CLI_PATH), arguments);
}

// A plain controller CSV with decimals that vary and missing values.
QByteArray plainCsv()
{
    QByteArray content = "Keller\nZeit;Temp;Feuchte;\n";
    for (int k = 0; k < 50; ++k)
        content.append("05.07.2021 1" + QByteArray::number(k / 10) + ":" + QByteArray::number(k % 6) + "0:00;" +
                       QByteArray::number(15 - k * 0.125) + ";" + (k % 7 ? QByteArray::number(70 + k) : "-") + "\n");
    return content;
}

// A SENSORWERTE file; its three siblings are written next to it.
QByteArray sensorSet(const CsvFolder &folder)
{
    QByteArray main = "SENSORWERTE\nZeit;1;2;3;4;5;6;7\n";
    QByteArray state = "STATUS LOG\nKopf\n";
    for (int k = 0; k < 30; ++k) {
        const QByteArray t = "02.03.2021 08:" + QByteArray::number(10 + k) + ":00";
        main.append(t + ";8.5;10.5;60;9.0;" + QByteArray::number(18 + k * 0.25) + ";55\n");
        state.append(t + ";" + QByteArray::number(k) + ";1;" + (k % 3 ? "100" : "200") + ";9;0\n");
    }
    folder.write(QStringLiteral("C_TS02.CSV"), state);
    folder.write(QStringLiteral("C_TS03.CSV"), "PARAMETER\nKopf\nx;1;45;65;5;25;3;15;2.5;1.5;0.1;-0.2;0.3;-0.4;7;8;9\n");
    folder.write(QStringLiteral("C_TS04.CSV"), "PARAMETER SDKARTE\nKopf\nx;600;0;0;0;0;0;0;0\n");
    return main;
}

QByteArray visSampling()
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

// Three data sets in a ring of 16 rows starting at row 2: Yes repairs the overflow.
QByteArray craftedLog()
{
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
    return qvlog::file(s);
}

FileResult importAs(const QString &kind, const QString &path, ChartModel &model, ImportHost &host)
{
    if (kind == QLatin1String("vis"))
        return g_importVisCsv(path, model, host);
    if (kind == QLatin1String("log"))
        return g_importControllerLog(path, model, host);
    return g_importControllerCsv(path, model, host);
}

}  // namespace

class TestImportCli : public QObject
{
    Q_OBJECT

private slots:
    void convert_data()
    {
        QTest::addColumn<QString>("kind");        // the importer the CLI must pick
        QTest::addColumn<QString>("input");       // relative: a crafted file of that name
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<bool>("yes");
        QTest::addColumn<int>("samples");         // in data set 0
        QTest::addColumn<bool>("modes");

        const QString csvSamples = QStringLiteral(QV_SAMPLES_DIR);
        const QString logSamples = QStringLiteral(QV_LOG_SAMPLES_DIR);
        const QStringList yes{QStringLiteral("--yes")}, no{QStringLiteral("--no")};
        const QStringList logYes{QStringLiteral("--type"), QStringLiteral("log"), QStringLiteral("--yes")};
        const QStringList logNo{QStringLiteral("--type"), QStringLiteral("log"), QStringLiteral("--no")};

        QTest::newRow("csv, named type") << QStringLiteral("csv") << QStringLiteral("plain.csv")
                                         << QStringList{QStringLiteral("--type"), QStringLiteral("csv")} << false << 50
                                         << false;
        QTest::newRow("csv, type from the name") << QStringLiteral("csv") << QStringLiteral("plain.CSV") << QStringList() << false << 50 << false;
        QTest::newRow("csv sensor set, --yes") << QStringLiteral("csv") << QStringLiteral("C_TS01.CSV") << yes << true << 30 << true;
        QTest::newRow("csv sensor set, --no") << QStringLiteral("csv") << QStringLiteral("C_TS01.CSV") << no << false << 30 << false;
        QTest::newRow("vis, automatic type") << QStringLiteral("vis") << QStringLiteral("keller.csv") << QStringList() << true << 40 << true;
        QTest::newRow("vis, automatic type, upper case") << QStringLiteral("vis") << QStringLiteral("KELLER.CSV") << QStringList() << true << 40 << true;
        QTest::newRow("vis, named type") << QStringLiteral("vis") << QStringLiteral("keller.txt")
                                         << QStringList{QStringLiteral("--type"), QStringLiteral("vis")} << true << 40
                                         << true;
        QTest::newRow("log, overflow repaired") << QStringLiteral("log") << QStringLiteral("x.log") << logYes << true << 12 << false;
        QTest::newRow("log, as recorded") << QStringLiteral("log") << QStringLiteral("x.log") << logNo << false << 10 << false;
        // The bundled samples, as the README's commands convert them.
        QTest::newRow("bundled warehouse csv") << QStringLiteral("csv") << QString(csvSamples + QStringLiteral("/ventimar-lager.csv")) << QStringList() << false
                                               << -1 << false;
        QTest::newRow("bundled cellar set") << QStringLiteral("csv") << QString(csvSamples + QStringLiteral("/vaporix-keller_TS01.csv")) << yes << true << -1
                                            << true;
        QTest::newRow("bundled vis sample") << QStringLiteral("vis") << QStringLiteral(QV_VIS_SAMPLE) << QStringList() << true << -1
                                            << true;
        QTest::newRow("bundled wrapped log, --yes") << QStringLiteral("log") << QString(logSamples + QStringLiteral("/ventimar-log/SV_SA_01.LOG")) << logYes
                                                    << true << 1800 << true;
        QTest::newRow("bundled wrapped log, --no") << QStringLiteral("log") << QString(logSamples + QStringLiteral("/ventimar-log/SV_SA_01.LOG")) << logNo
                                                   << false << 1800 << false;
        QTest::newRow("bundled overflow log, --yes") << QStringLiteral("log") << QString(logSamples + QStringLiteral("/ventimar-log-overflow/SV_SA_01.LOG"))
                                                     << logYes << true << 1400 << true;
        QTest::newRow("bundled overflow log, --no") << QStringLiteral("log") << QString(logSamples + QStringLiteral("/ventimar-log-overflow/SV_SA_01.LOG"))
                                                    << logNo << false << 1000 << false;
    }

    void convert()
    {
        QFETCH(QString, kind);
        QFETCH(QString, input);
        QFETCH(QStringList, options);
        QFETCH(bool, yes);
        QFETCH(int, samples);
        QFETCH(bool, modes);

        CsvFolder folder;
        if (!input.startsWith(QLatin1Char('/'))) {
            const QByteArray content = kind == QLatin1String("vis")   ? visSampling()
                                       : kind == QLatin1String("log") ? craftedLog()
                                       : input.startsWith(QLatin1String("C_")) ? sensorSet(folder)
                                                                               : plainCsv();
            input = folder.write(input, content);
        }
        QVERIFY2(QFile::exists(input), qPrintable(input));
        const QString output = folder.path(QStringLiteral("cli.qvj"));
        const ProgramRun run = runCli(QStringList{QStringLiteral("convert")} + options +
                                  QStringList{input, QStringLiteral("-o"), output, QStringLiteral("--changed-time"),
                                              QStringLiteral("0")});
        QVERIFY2(run.exitCode == 0, run.err.constData());

        ChartModel model;
        ScriptedHost host(yes);
        const FileResult direct = importAs(kind, input, model, host);
        QVERIFY2(direct.ok, direct.message);
        if (samples >= 0)
            QCOMPARE(model.data(0)->count, samples);
        QCOMPARE(bool(model.settings.hasModeData), modes);
        if (modes && kind == QLatin1String("csv"))
            QVERIFY(run.err.contains("File seems to be part of a vaporix sampling."));
        SaveOptions save;
        save.changedTime = 0;
        const QString saved = folder.path(QStringLiteral("direct.qvj"));
        QVERIFY(g_saveProjectFile(model, saved, save).ok);
        QV_COMPARE_BYTES(readFile(output), readFile(saved));
    }

    // What is not a regular file is refused before anything blocks on it: by
    // the type detection, which reads the first line of a .csv file, by each
    // importer, and for a sibling file after the main data were read.
    void notRegular_data()
    {
        QTest::addColumn<QString>("input");  // made as a FIFO, a folder, or a device path
        QTest::addColumn<QString>("type");   // empty: detected from the input
        QTest::addColumn<int>("samples");    // kept in data set 0

        QTest::newRow("a FIFO named .csv") << QStringLiteral("fifo:f.csv") << QString() << 0;
        QTest::newRow("a folder named .csv") << QStringLiteral("folder:d.csv") << QString() << 0;
        QTest::newRow("a folder named .log") << QStringLiteral("folder:d.LOG") << QString() << 0;
        QTest::newRow("/dev/null as vaporix-VIS") << QStringLiteral("/dev/null") << QStringLiteral("vis") << 0;
        QTest::newRow("a folder as TS03 of a sensor set") << QStringLiteral("folder:C_TS03.CSV") << QString() << 30;
    }

    void notRegular()
    {
        QFETCH(QString, input);
        QFETCH(QString, type);
        QFETCH(int, samples);

        CsvFolder folder;
        QString path = input;
        const QString made = folder.path(input.section(QLatin1Char(':'), 1));
        if (samples > 0) {
            path = folder.write(QStringLiteral("C_TS01.CSV"), sensorSet(folder));
            QVERIFY(QFile::remove(made));
        }
        if (input.startsWith(QLatin1String("fifo:")))
            QCOMPARE(::mkfifo(QFile::encodeName(made).constData(), 0600), 0);
        if (input.startsWith(QLatin1String("folder:")))
            QVERIFY(QDir().mkpath(made));
        if (samples == 0 && input != QLatin1String("/dev/null"))
            path = made;
        ChartModel model;
        ScriptedHost host;
        const InputType kind = type.isEmpty() ? g_detectInputType(path) : g_inputTypeFromName(type);
        const FileResult r = g_readInput(kind, path, model, host);
        QVERIFY(!r.ok);
        QCOMPARE(QByteArray(r.message), QByteArray("Error reading file!"));
        QVERIFY(r.critical());
        QCOMPARE(model.data(0)->count, samples);
    }

    void failure_data()
    {
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QByteArray>("message");

        VisFile vis;
        vis.line4 = "too short\n";
        QTest::newRow("csv with 17 columns") << QByteArray("K\nZeit;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;16;17\n")
                                             << QByteArray("Error in CSV line 2 !\nToo many columns.");
        QTest::newRow("vis with a short line 4") << vis.bytes() << QByteArray("Error in CSV title line 4 !");
    }

    void failure()
    {
        QFETCH(QByteArray, content);
        QFETCH(QByteArray, message);

        CsvFolder folder;
        const QString input = folder.write(QStringLiteral("bad.csv"), content);
        const QString output = folder.path(QStringLiteral("bad.qvj"));
        const ProgramRun run = runCli({QStringLiteral("convert"), input, QStringLiteral("-o"), output});
        QCOMPARE(run.exitCode, 1);
        QVERIFY2(run.err.contains(message), run.err.constData());
        QVERIFY(!QFile::exists(output));
    }
};

QTEST_GUILESS_MAIN(TestImportCli)
#include "tst_importcli.moc"

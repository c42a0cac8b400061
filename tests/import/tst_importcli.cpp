// quorvanta-cli convert of every input kind writes exactly the bytes of the
// desktop's own import saved with the same change time; a failed import exits
// with 1 and writes nothing; what is not a regular file is refused before
// anything blocks on it.
#include "csvtesthelpers.h"
#include "support/testsupport.h"

#include "core/import/inputkind.h"
#include "core/project/inputreader.h"
#include "core/project/projectfile.h"

#include <QtTest>

#include <sys/stat.h>

using namespace qv;
using namespace qvtest;

class TestImportCli : public QObject
{
    Q_OBJECT

private slots:
    void convert_data()
    {
        // clang-format off
        QTest::addColumn<QString>("input");
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<int>("exitCode");

        QTest::newRow("controller csv") << QStringLiteral("csv/trailing-separator-and-missing-value.csv") << QStringList() << 0;
        QTest::newRow("csv with siblings") << QStringLiteral("csv/sensor-set/S_TS01.CSV") << QStringList{QStringLiteral("--yes")} << 0;
        QTest::newRow("binary log with siblings, overflow repaired")
            << QStringLiteral(QV_LOG_SAMPLES_DIR "/ventimar-log-overflow/SV_SA_01.LOG") << QStringList{QStringLiteral("--yes")} << 0;
        QTest::newRow("vaporix-VIS") << QStringLiteral("vis/four-states.csv") << QStringList() << 0;
        QTest::newRow("project") << QStringLiteral("in.qvj") << QStringList() << 0;
        QTest::newRow("a failed import writes nothing") << QStringLiteral("bad.csv") << QStringList() << 1;
        // clang-format on
    }

    void convert()
    {
        QFETCH(QString, input);
        QFETCH(QStringList, options);
        QFETCH(int, exitCode);

        CsvFolder folder;
        const QString path = input.startsWith(QLatin1Char('/')) ? input
                             : input.contains(QLatin1Char('/'))
                                 ? qEnvironmentVariable("QV_TEST_DATA") + QLatin1Char('/') + input
                                 : folder.path(input);
        const ImportRun vis = importBytes(Kind::Vis, dataFile("vis/four-states.csv"));
        if (input == QLatin1String("in.qvj"))
            QVERIFY(g_saveProjectFile(*vis.model, path, SaveOptions()).ok);
        else if (input == QLatin1String("bad.csv"))
            folder.write(input, "K\nZeit;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;16;17\n");
        const QString output = folder.path(QStringLiteral("cli.qvj"));
        const ProgramRun run = runProgram(
            QStringLiteral(QV_CLI_PATH),
            QStringList{QStringLiteral("convert")} + options +
                QStringList{path, QStringLiteral("-o"), output, QStringLiteral("--changed-time"), QStringLiteral("0")});
        QCOMPARE(run.exitCode, exitCode);
        if (exitCode != 0) {
            QVERIFY2(run.err.contains("Error in CSV line 2 !\nToo many columns."), run.err.constData());
            QVERIFY(!QFile::exists(output));
            return;
        }
        ChartModel model;
        ScriptedHost host(true);
        const FileResult direct = g_readInput(g_detectInputKind(path), path, model, host);
        QVERIFY2(direct.ok, direct.message);
        QVERIFY(model.data(0)->count > 0);
        SaveOptions save;
        save.changedTime = 0;
        const QString saved = folder.path(QStringLiteral("direct.qvj"));
        QVERIFY(g_saveProjectFile(model, saved, save).ok);
        QV_COMPARE_BYTES(readFile(output), readFile(saved));
    }

    // By the type detection, which reads the first line of a .csv file, and by
    // each importer.
    void notRegular_data()
    {
        // clang-format off
        QTest::addColumn<QString>("input");  // made as a FIFO or a folder, or a device path
        QTest::addColumn<QString>("type");   // empty: detected from the input
        QTest::newRow("a FIFO named .csv") << QStringLiteral("fifo:f.csv") << QString();
        QTest::newRow("a folder named .LOG") << QStringLiteral("folder:d.LOG") << QString();
        QTest::newRow("/dev/null as vaporix-VIS") << QStringLiteral("/dev/null") << QStringLiteral("vis");
        // clang-format on
    }

    void notRegular()
    {
        QFETCH(QString, input);
        QFETCH(QString, type);
        CsvFolder folder;
        QString path = input;
        if (input.contains(QLatin1Char(':'))) {
            path = folder.path(input.section(QLatin1Char(':'), 1));
            QVERIFY(input.startsWith(QLatin1String("fifo:")) ? ::mkfifo(QFile::encodeName(path).constData(), 0600) == 0
                                                             : QDir().mkpath(path));
        }
        ChartModel model;
        ScriptedHost host;
        const FileResult r =
            g_readInput(type.isEmpty() ? g_detectInputKind(path) : g_inputKindFromName(type), path, model, host);
        QCOMPARE(QByteArray(r.message), QByteArray("Error reading file!"));
        QVERIFY(!r.ok && r.critical());
    }
};

QTEST_GUILESS_MAIN(TestImportCli)
#include "tst_importcli.moc"

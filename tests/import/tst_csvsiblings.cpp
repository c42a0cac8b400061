// A SENSORWERTE sampling with its state log, parameters and card parameters:
// the whole record after a good import, each way the siblings can be missing
// or broken with what stays in the model, the state log's start check and
// its sections.
#include "csvtesthelpers.h"
#include "support/testsupport.h"

#include "import/controllersteps.h"
#include "import/csvimport.h"
#include "project/fixedstring.h"

#include <QDateTime>
#include <QtTest>

#include <cstring>

using namespace qv;
using namespace qvtest;

namespace {

const QDateTime kStart(QDate(2021, 3, 1), QTime(10, 0, 0));
const QByteArrayList kPlausible{"8.5", "10.5", "60", "9.0", "21.0", "55", "9.5", "20.0", "50", "9.1", "19.5", "48"};

QByteArray timeText(qint64 seconds)
{
    return kStart.addSecs(seconds).toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")).toLatin1();
}

// A sensor file of `columns` header columns and `sets` values per row, one
// row per minute.
QByteArray sensorFile(int columns, int sets, const QList<QByteArrayList> &rows)
{
    QByteArray f = "SENSORWERTE\nZeit";
    for (int c = 0; c < columns; ++c)
        f += ";Spalte " + QByteArray::number(c + 1);
    f += '\n';
    for (int k = 0; k < rows.size(); ++k)
        f += timeText(60 * k) + ';' + rows[k].mid(0, sets).join(';') + '\n';
    return f;
}

QList<QByteArrayList> plausibleRows(int sets, int count)
{
    QList<QByteArrayList> rows;
    for (int k = 0; k < count; ++k) {
        QByteArrayList row = kPlausible;
        while (row.size() < sets)
            row << "1.25";
        rows << row;
    }
    return rows;
}

QByteArray stateLog(const QByteArrayList &entries)
{
    return "STATUS LOG\nZeit;Nr;Betrieb;Modus;Detail;Fehler\n" + entries.join('\n') + '\n';
}

QByteArray stateEntries(int count, qint64 startSeconds = 0)
{
    QByteArrayList e;
    for (int k = 0; k < count; ++k)
        e << timeText(startSeconds + 60 * k) + ';' + QByteArray::number(k) + ";1;100;" +
                 QByteArray::number(k % 2 ? 9 : 20) + ";0";
    return stateLog(e);
}

const QByteArray kParameterLine = "01.03.2021 09:00:00;1;45;65;5;25;3;15;2.5;1.5;0.1;-0.2;0.3;-0.4;7;8;9";
QByteArray parameterFile(const QByteArrayList &lines)
{
    return "PARAMETER\nZeit;Nr;p1;p2;p3;p4;p5;i1;p6;p7;p8;p9;p10;p11;i2;i3;i4\n" + lines.join('\n') + '\n';
}

QByteArray cardFile(const QByteArrayList &lines)
{
    return "PARAMETER SDKARTE\nZeit;Intervall;a;b;c;d;e;f;g\n" + lines.join('\n') + '\n';
}

// The parameter block the lines above give.
QByteArray expectedParameters(quint32 card)
{
    modeParametersT p;
    std::memset(&p, 0, sizeof p);
    const double d[11] = {45, 65, 5, 25, 3, 2.5, 1.5, 0.1, -0.2, 0.3, -0.4};
    std::memcpy(p.parameter, d, sizeof d);
    p.intParameter[0] = 15;
    p.intParameter[1] = 7;
    p.intParameter[2] = 8;
    p.intParameter[3] = 9;
    p.interval = qint32(card);
    return QByteArray(reinterpret_cast<const char *>(&p), int(sizeof p));
}

QByteArray modeBytes(const ChartModel &m)
{
    return QByteArray(reinterpret_cast<const char *>(m.modeCodes()), int(sizeof(modeCodesT)));
}

QByteArray parameterBytes(const ChartModel &m)
{
    return QByteArray(reinterpret_cast<const char *>(m.modeParameters()), int(sizeof(modeParametersT)));
}

// Writes the four files under the given names; an empty content leaves a file out.
QString writeSet(const CsvFolder &folder, const QStringList &names, const QByteArrayList &contents)
{
    for (int i = 0; i < names.size(); ++i) {
        if (!contents[i].isNull())
            folder.write(names[i], contents[i]);
    }
    return folder.path(names[0]);
}

const QStringList kNames{QStringLiteral("S_TS01.CSV"), QStringLiteral("S_TS02.CSV"), QStringLiteral("S_TS03.CSV"),
                         QStringLiteral("S_TS04.CSV")};

}  // namespace

class TestCsvSiblings : public QObject
{
    Q_OBJECT

private slots:
    void wholeRecord_data()
    {
        QTest::addColumn<int>("columns");
        QTest::addColumn<int>("sets");
        QTest::newRow("7 columns, 6 data sets") << 7 << 6;
        QTest::newRow("12 columns") << 12 << 12;
        QTest::newRow("16 columns") << 16 << 16;
    }

    // Every byte of the record, the state track and the parameter block, the
    // row boxes and what the user was asked, against values written out by hand.
    void wholeRecord()
    {
        QFETCH(int, columns);
        QFETCH(int, sets);

        QList<QByteArrayList> rows = plausibleRows(sets, 10);
        CsvFolder folder;
        const QString path =
            writeSet(folder, kNames,
                     {sensorFile(columns, sets, rows), stateEntries(12), parameterFile({kParameterLine}),
                      cardFile({"01.03.2021 09:00:00;600;0;0;0;0;0;0;0"})});
        ScriptedHost host(true);
        const ImportRun run = importCsv(path, host);
        QVERIFY2(run.result.ok, run.result.message);
        QCOMPARE(host.questions,
                 QStringList{QStringLiteral("Quorvanta|File seems to be part of a vaporix sampling. Try to load the "
                                            "state and settings information too?")});
        QCOMPARE(host.progressCalls.mid(host.progressCalls.size() - 5),
                 (QVector<QPair<int, int>>{{1, 255}, {10, 255}, {180, 255}, {250, 255}, {255, 255}}));

        const qint64 t0 = referenceTime(timeText(0).constData());
        settingsT e = freshSettings(*run.model);
        e.flags = kFlagShowTitle | kFlagShowModeTrack;
        g_qString2Buffer(e.description, QStringLiteral("SENSORWERTE"), kDescriptionWidth);
        e.dataSetCount = sets;
        e.hasModeData = 1;
        e.firstTime = e.rangeBegin = e.viewBegin = t0;
        e.lastTime = e.rangeEnd = e.viewEnd = t0 + 9 * 60000;
        e.rangeSampleCount = 10;
        e.sampleInterval = 60;
        const char *names[12] = {"abs. Feuchte Aussen",       "Temp Aussen",         "rel. Feuchte Aussen",
                                 "abs. Feuchte Innen",        "Temp Innen",          "rel. Feuchte Innen",
                                 "abs. Feuchte Innen Zone I", "Temp Innen Zone I",   "rel. Feuchte Innen Zone I",
                                 "abs. Feuchte Innen Zone II", "Temp Innen Zone II", "rel. Feuchte Innen Zone II"};
        const char *units[3] = {"g/kg", "\xB0" "C", "%"};
        const double lows[3] = {0, -15, 0}, highs[3] = {20, 35, 100};
        for (int i = 0; i < 12; ++i) {
            g_qString2Buffer(e.name[i], QLatin1String(names[i]), kNameWidth);
            g_qString2Buffer(e.unit[i], QLatin1String(units[i % 3]), kUnitWidth);
            e.decimals[i] = i % 3 == 2 ? 0 : 1;
            e.valueType[i] = 8;
            e.axisMin[i] = lows[i % 3];
            e.axisMax[i] = highs[i % 3];
        }
        for (int i = 12; i < sets; ++i) {
            g_qString2Buffer(e.name[i], QStringLiteral("Spalte %1").arg(i + 1), kNameWidth);
            e.decimals[i] = 2;
            e.valueType[i] = 8;
            e.axisMin[i] = 1;  // round(1.25 - 0.5)
            e.axisMax[i] = 2;  // round(1.25 + 0.5)
        }
        // Sets 0..5 shown again by the row rule that the unticks of rows 6..11
        // run; without such rows only sets 2..5 are shown.
        const quint32 flags[16] = {3, 7, 1, 1, 1, 1, 0, 0, 0, 0, 0, 0, 1, 1, 1, 1};
        const quint32 sixSets[16] = {2, 6, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
        std::memcpy(e.lineFlags, sets == 6 ? sixSets : flags, sizeof e.lineFlags);
        QV_COMPARE_BYTES(qvtest::recordBytes(run.model->settings), qvtest::recordBytes(e));

        for (int i = 0; i < kMaxDataSets; ++i) {
            QCOMPARE(run.model->row[i].enabled, i < sets);
            QCOMPARE(run.model->row[i].checked, i < sets && (i < 6 || i > 11));
        }
        QVERIFY(run.model->modeBoxVisible && run.model->modeBoxChecked);

        modeCodesT codes;
        std::memset(&codes, 0, sizeof codes);
        codes.count = 12;
        for (int k = 0; k < 12; ++k)
            codes.code[k] = k % 2 ? 5 : 6;
        QV_COMPARE_BYTES(modeBytes(*run.model), QByteArray(reinterpret_cast<const char *>(&codes), int(sizeof codes)));
        QV_COMPARE_BYTES(parameterBytes(*run.model), expectedParameters(600));

        QVector<qint64> times;
        for (int k = 0; k < 10; ++k)
            times << t0 + k * 60000;
        QV_COMPARE_BYTES(storeBytes(*run.model->data(4)), expectedStore(times, QVector<double>(10, 21.0)));
        // Stores past the data-set count are not imported, yet the plausibility
        // pass marks their zeros at every sample index of data set 0.
        if (sets == 6) {
            QCOMPARE(run.model->data(8)->count, 0);
            QV_COMPARE_DOUBLE(run.model->data(8)->value[9], kMissingValue);
            QV_COMPARE_DOUBLE(run.model->data(8)->value[10], 0.0);
        }
    }

    void siblingCases_data()
    {
        QTest::addColumn<QStringList>("names");       // main file first
        QTest::addColumn<QByteArrayList>("contents");  // null: the file is not written
        QTest::addColumn<bool>("answer");
        QTest::addColumn<int>("questions");
        QTest::addColumn<QByteArray>("message");
        QTest::addColumn<int>("modeCodes");  // count left in the state track
        QTest::addColumn<bool>("layout");    // the sensor layout was applied

        QList<QByteArrayList> rows = plausibleRows(12, 5);
        rows[2][1] = "80";  // implausible outside temperature: checked only with state data
        const QByteArray main = sensorFile(12, 12, rows);
        const QByteArray state = stateEntries(5);
        const QByteArray params = parameterFile({kParameterLine});
        const QByteArray card = cardFile({"x;600;0;0;0;0;0;0;0"});
        const QByteArray ext(kMsgSiblingFiles);

        QTest::newRow("all there, Yes") << kNames << QByteArrayList{main, state, params, card} << true << 1 << QByteArray()
                                        << 5 << true;
        QTest::newRow("all there, No") << kNames << QByteArrayList{main, state, params, card} << false << 1
                                       << QByteArray() << 0 << false;
        QTest::newRow("TS02 missing") << kNames << QByteArrayList{main, QByteArray(), params, card} << true << 0
                                      << QByteArray() << 0 << false;
        QTest::newRow("TS04 missing") << kNames << QByteArrayList{main, state, params, QByteArray()} << true << 0
                                      << QByteArray() << 0 << false;
        QTest::newRow("lower-case ts01 finds upper-case TS02")
            << QStringList{QStringLiteral("s_ts01.csv"), QStringLiteral("s_TS02.csv"), QStringLiteral("s_TS03.csv"),
                           QStringLiteral("s_TS04.csv")}
            << QByteArrayList{main, state, params, card} << true << 1 << QByteArray() << 5 << true;
        QTest::newRow("lower-case siblings are not found")
            << QStringList{QStringLiteral("s_ts01.csv"), QStringLiteral("s_ts02.csv"), QStringLiteral("s_ts03.csv"),
                           QStringLiteral("s_ts04.csv")}
            << QByteArrayList{main, state, params, card} << true << 0 << QByteArray() << 0 << false;
        // Without TS01 in the name the sensor file itself is read as its state log.
        QTest::newRow("no TS01 in the path")
            << QStringList{QStringLiteral("sensor.csv"), QString(), QString(), QString()}
            << QByteArrayList{main, QByteArray(), QByteArray(), QByteArray()} << true << 1 << ext << 0 << false;
        QTest::newRow("no TS01 in the path, No")
            << QStringList{QStringLiteral("sensor.csv"), QString(), QString(), QString()}
            << QByteArrayList{main, QByteArray(), QByteArray(), QByteArray()} << false << 1 << QByteArray() << 0 << false;
        QTest::newRow("CR LF title: no siblings")
            << kNames << QByteArrayList{QByteArray(main).replace("\n", "\r\n"), state, params, card} << true << 0
            << QByteArray() << 0 << false;
        QTest::newRow("state heading wrong") << kNames << QByteArrayList{main, "STATUS\n" + state, params, card} << true
                                             << 1 << ext << 0 << false;
        QTest::newRow("state log out of step") << kNames << QByteArrayList{main, stateEntries(5, 31), params, card}
                                               << true << 1 << ext << 0 << false;
        QTest::newRow("parameter heading wrong")
            << kNames << QByteArrayList{main, state, "PARAMETERS\n" + params, card} << true << 1 << ext << 5 << false;
        QTest::newRow("card heading wrong") << kNames << QByteArrayList{main, state, params, "PARAMETER\n"} << true << 1
                                            << ext << 5 << false;
        QTest::newRow("empty card file") << kNames << QByteArrayList{main, state, params, QByteArray("")} << true << 1
                                         << ext << 5 << false;
    }

    void siblingCases()
    {
        QFETCH(QStringList, names);
        QFETCH(QByteArrayList, contents);
        QFETCH(bool, answer);
        QFETCH(int, questions);
        QFETCH(QByteArray, message);
        QFETCH(int, modeCodes);
        QFETCH(bool, layout);

        CsvFolder folder;
        ScriptedHost host(answer);
        const ImportRun run = importCsv(writeSet(folder, names, contents), host);
        QCOMPARE(QByteArray(run.result.message), message);
        QCOMPARE(run.result.ok, message.isEmpty());
        QCOMPARE(run.result.critical(), false);
        QCOMPARE(host.questions.size(), questions);

        // The sensor rows stay imported whatever happened to the siblings.
        const ChartModel &m = *run.model;
        QCOMPARE(m.data(0)->count, 5);
        QCOMPARE(m.data(11)->count, 5);
        QCOMPARE(m.modeCodes()->count, modeCodes);
        QCOMPARE(int(m.settings.hasModeData), layout ? 1 : 0);
        QCOMPARE(bool(m.settings.flags & kFlagShowModeTrack), layout);
        QCOMPARE(m.modeBoxVisible, layout);
        QCOMPARE(QByteArray(m.settings.name[0]), QByteArray(layout ? "abs. Feuchte Aussen" : "Spalte 1"));
        QCOMPARE(uint(m.settings.lineFlags[0]), layout ? 3u : 2u);
        QCOMPARE(m.row[6].checked, !layout);
        // The plausibility pass runs only with the state data.
        QV_COMPARE_DOUBLE(m.data(2)->value[2], layout ? kMissingValue : 60.0);
        QV_COMPARE_DOUBLE(m.data(3)->value[2], 9.0);
        if (message.isEmpty() && layout)
            QV_COMPARE_BYTES(parameterBytes(m), expectedParameters(600));
    }

    // The first state entry may lie half a sample interval from the first row,
    // not more, to either side.
    void stateStart_data()
    {
        QTest::addColumn<int>("interval");
        QTest::addColumn<int>("offset");  // seconds from the first row
        QTest::addColumn<bool>("ok");

        QTest::newRow("same time") << 60 << 0 << true;
        QTest::newRow("half an interval later") << 60 << 30 << true;
        QTest::newRow("half an interval earlier") << 60 << -30 << true;
        QTest::newRow("a second more") << 60 << 31 << false;
        QTest::newRow("a second more, earlier") << 60 << -31 << false;
        QTest::newRow("odd interval: 30.5 s allowed") << 61 << 30 << true;
        QTest::newRow("odd interval: 31 s too far") << 61 << 31 << false;
    }

    void stateStart()
    {
        QFETCH(int, interval);
        QFETCH(int, offset);
        QFETCH(bool, ok);

        QByteArray main = "SENSORWERTE\nZeit;a;b\n";
        for (int k = 0; k < 4; ++k)
            main += timeText(qint64(k) * interval) + ";1;2\n";
        QByteArray state = "STATUS LOG\nKopf\n" + timeText(offset) + ";0;1;200;0;0\n";
        CsvFolder folder;
        const ImportRun run = importCsv(
            writeSet(folder, kNames, {main, state, parameterFile({kParameterLine}), cardFile({"x;5;0;0;0;0;0;0;0"})}));
        QCOMPARE(run.result.ok, ok);
        QCOMPARE(run.model->settings.sampleInterval, interval);
        QCOMPARE(run.model->modeCodes()->count, ok ? 1 : 0);
        QCOMPARE(run.model->data(0)->count, 4);
    }

    // The sections as the files hold them: state lines until one with another
    // field count, unparsable numbers as 0, parameter lines of which the last
    // wins, card lines read from field 1 as a signed number.
    void sections()
    {
        QList<QByteArrayList> rows = plausibleRows(12, 3);
        const QByteArrayList entries{
            timeText(0) + ";1;1;100;18;0",   // 3
            timeText(60) + ";2;x;100;18;0",  // a unreadable: 0, so 1
            timeText(120) + ";3;1;200;;0",   // 11
            timeText(180) + ";4;1; 100;-1;", // mode with a blank still read: 7
            timeText(240) + ";5;1;100;12;2", // fault: 7
            timeText(300) + ";6;1;100;11;0", // 2
            timeText(360) + ";7;1;100;11",   // five fields end the log
            timeText(420) + ";8;1;100;11;0",
        };
        const QByteArrayList parameters{
            "a;b;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15",
            kParameterLine,
            "a;b;1;2;3;4;5;6;7;8;9;10;11;12;13;14",  // 16 fields end the section
            "a;b;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15",
        };
        const QByteArrayList cards{"x;42;0;0;0;0;0;0;0", "x;-7;0;0;0;0;0;0;0", "x;99;0;0;0;0;0;0", "x;1;0;0;0;0;0;0;0"};
        CsvFolder folder;
        const ImportRun run = importCsv(writeSet(
            folder, kNames, {sensorFile(12, 12, rows), stateLog(entries), parameterFile(parameters), cardFile(cards)}));
        QVERIFY(run.result.ok);
        const modeCodesT &codes = *run.model->modeCodes();
        QCOMPARE(codes.count, 6);
        QCOMPARE(QByteArray(reinterpret_cast<const char *>(codes.code), 8), QByteArray("\3\1\13\7\7\2\0\0", 8));
        QV_COMPARE_BYTES(parameterBytes(*run.model), expectedParameters(quint32(-7)));
    }
};

QTEST_GUILESS_MAIN(TestCsvSiblings)
#include "tst_csvsiblings.moc"

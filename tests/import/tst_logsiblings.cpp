// A SENSORWERTE log with its state log, parameters and card parameters
// (SV_SA_01..04.LOG): which names take the siblings, the state log's step k
// and its bound, the word positions and scales of every section, the overflow
// repair carried over to the siblings, and each broken sibling with what
// stays in the model.
#include "csvtesthelpers.h"
#include "support/testsupport.h"

#include "import/logimport.h"
#include "logwriter.h"
#include "project/fixedstring.h"

#include <QtTest>

#include <cstring>

using namespace qv;
using namespace qvtest;

namespace {

constexpr quint32 kNoData = 0xBAADF00Du;
constexpr quint32 kStart = 1600000000;
constexpr qint32 kInterval = 60;

// Eight plausible rows of twelve values in a ring of ten rows starting at
// row `start`; row 4 of the recording has an outside temperature of 70.
qvlog::LogLayout sensorLog(qint32 start)
{
    qvlog::LogLayout s;
    s.title = "SENSORWERTE";
    s.count = 12;
    s.capacity = 9;
    s.interval = kInterval;
    s.timeCorrection = 3600;
    s.startTime = kStart;
    s.rows = 8;
    s.oldestOffset = start * 12 * 4;
    for (int i = 0; i < 12; ++i)
        s.sets[i] = {"Spalte " + QByteArray::number(i), 7, 0, 0, 0, 0};
    const quint32 row[12] = {8, 10, 60, 9, 21, 55, 9, 20, 50, 9, 19, 48};
    for (int r = 0; r < 10; ++r) {
        for (int i = 0; i < 12; ++i)
            s.words << (i == 1 && r == start + 4 ? 70 : row[i]);
    }
    return s;
}

// Running flag, mode, detail and fault of the state rows 0..7 in recording
// order, and the codes they give; the word positions are told apart by
// a = 0, b = 200, the signed detail -1 and a fault. Row 6 has no data.
const quint32 kStateRows[8][4] = {{1, 100, 9, 0},  {1, 100, 11, 0},          {0, 100, 9, 0}, {1, 200, 0, 0},
                                  {1, 100, quint32(-1), 0}, {1, 100, 20, 0}, {1, 100, 18, 0}, {1, 100, 12, 4}};
const QVector<qint8> kStateCodes{5, 2, 1, 11, 7, 6, 10, 7};

qvlog::LogLayout stateLog(qint32 start, quint32 startTime)
{
    qvlog::LogLayout s;
    s.title = "STATUS LOG";
    s.count = 5;
    s.capacity = 9;
    s.interval = kInterval;
    s.timeCorrection = 3600;
    s.startTime = startTime;
    s.rows = 8;
    s.oldestOffset = start * 5 * 4;
    s.words.fill(0, 50);
    for (int k = 0; k < 8; ++k) {
        quint32 *w = s.words.data() + (start + k) % 10 * 5;
        w[0] = k == 6 ? kNoData : quint32(k);
        std::memcpy(w + 1, kStateRows[k], sizeof kStateRows[k]);
    }
    return s;
}

// Rows 3 and 0 of a ring of four rows (from row 3 on, wrapping); the last,
// row 0, is the one that counts.
qvlog::LogLayout parameterLog()
{
    qvlog::LogLayout s;
    s.title = "PARAMETER";
    s.count = 16;
    s.capacity = 3;
    s.rows = 2;
    s.oldestOffset = 3 * 16 * 4;
    s.words = {0, 9000, quint32(-200), quint32(-250), 2500, 300, 15, 250, 150, 10, quint32(-20), 60, quint32(-80),
               7, 8, 9};
    for (int k = 16; k < 64; ++k)
        s.words << 77;
    return s;
}

qvlog::LogLayout cardLog()
{
    qvlog::LogLayout s;
    s.title = "PARAMETER SDKARTE";
    s.count = 1;
    s.capacity = 1;
    s.rows = 2;
    s.oldestOffset = 4;
    s.words = {quint32(-2), 5};  // read as row 1, then row 0
    return s;
}

QByteArray expectedParameters()
{
    modeParametersT p;
    std::memset(&p, 0, sizeof p);
    const double d[11] = {45, 4294967096.0 / 200, -2.5, 25, 3, 2.5, 1.5, 0.1, -0.2, 0.3, -0.4};
    std::memcpy(p.parameter, d, sizeof d);
    const quint32 n[4] = {15, 7, 8, 9};
    std::memcpy(p.intParameter, n, sizeof n);
    p.interval = -120;
    return QByteArray(reinterpret_cast<const char *>(&p), int(sizeof p));
}

QByteArray expectedCodes(const QVector<qint8> &codes)
{
    modeCodesT m;
    std::memset(&m, 0, sizeof m);
    m.count = codes.size();
    std::memcpy(m.code, codes.constData(), size_t(codes.size()));
    return QByteArray(reinterpret_cast<const char *>(&m), int(sizeof m));
}

enum Fault { NoFault, Missing04, Magic04, Title03, ShortData02, NoSets03, ShortHeader04, Folder04 };

const char *const kAskSiblings =
    "Quorvanta|File seems to be part of a vaporix sampling. Try to load the state and settings information too?";

}  // namespace

class TestLogSiblings : public QObject
{
    Q_OBJECT

private slots:
    void siblings_data()
    {
        QTest::addColumn<QString>("name");      // of the sensor log; siblings alike with 02..04
        QTest::addColumn<int>("fault");
        QTest::addColumn<qint32>("stateShift");  // seconds the state log starts after the sensor log
        QTest::addColumn<qint32>("start");       // start row of both logs
        QTest::addColumn<bool>("answer");
        QTest::addColumn<bool>("asked");
        QTest::addColumn<QByteArray>("message");  // empty: success
        QTest::addColumn<QVector<qint8>>("codes");  // null: no state data

        const QByteArray ext("Error while loading additional vaporix files!");
        const QString upper = QStringLiteral("SV_SA_01.LOG");
        const QVector<qint8> none;
        const QVector<qint8> all = kStateCodes;

        QTest::newRow("in step") << upper << int(NoFault) << 0 << 0 << true << true << QByteArray() << all;
        // "sv_sa_02.LOG" (the literal replacement) is not there; "sv_sa_02.log" is taken.
        QTest::newRow("lower-case name") << QStringLiteral("sv_sa_01.log") << int(NoFault) << 0 << 0 << true << true
                                         << QByteArray() << all;
        QTest::newRow("SV_SA_1.LOG is no sensor log name") << QStringLiteral("SV_SA_1.LOG") << int(NoFault) << 0 << 0
                                                           << true << false << QByteArray() << none;
        QTest::newRow("declined") << upper << int(NoFault) << 0 << 0 << false << true << QByteArray() << none;
        QTest::newRow("04 missing") << upper << int(Missing04) << 0 << 0 << true << false << QByteArray() << none;
        // k = 2 (2 intervals and 59 s, truncated): two rows of no data first.
        QTest::newRow("state log 2 rows late") << upper << int(NoFault) << 2 * kInterval + 59 << 0 << true << true
                                               << QByteArray() << QVector<qint8>{10, 10, 5, 2, 1, 11};
        // k = -1: its first row is skipped.
        QTest::newRow("state log 1 row early") << upper << int(NoFault) << -kInterval - 59 << 0 << true << true
                                               << QByteArray() << all.mid(1);
        QTest::newRow("state log 3 rows late: out of step") << upper << int(NoFault) << 3 * kInterval << 0 << true
                                                            << true << ext << none;
        QTest::newRow("state log 3 rows early: out of step") << upper << int(NoFault) << -3 * kInterval << 0 << true
                                                             << true << ext << none;
        // The repair moves the state log's start as well, so it stays in step.
        QTest::newRow("overflow repair carried over") << upper << int(NoFault) << 0 << 2 << true << true << QByteArray()
                                                      << all;
        QTest::newRow("04 magic") << upper << int(Magic04) << 0 << 0 << true << true << ext << none;
        QTest::newRow("03 title") << upper << int(Title03) << 0 << 0 << true << true << ext << none;
        QTest::newRow("02 data short") << upper << int(ShortData02) << 0 << 0 << true << true << ext << none;
        QTest::newRow("03 without data sets") << upper << int(NoSets03) << 0 << 0 << true << true << ext << none;
        QTest::newRow("04 header short") << upper << int(ShortHeader04) << 0 << 0 << true << true << ext << none;
        QTest::newRow("04 is a folder") << upper << int(Folder04) << 0 << 0 << true << false
                                        << QByteArray("Error reading file!") << none;
    }

    void siblings()
    {
        QFETCH(QString, name);
        QFETCH(int, fault);
        QFETCH(qint32, stateShift);
        QFETCH(qint32, start);
        QFETCH(bool, answer);
        QFETCH(bool, asked);
        QFETCH(QByteArray, message);
        QFETCH(QVector<qint8>, codes);

        qvlog::LogLayout logs[4] = {sensorLog(start), stateLog(start, quint32(qint64(kStart) + stateShift)), parameterLog(),
                                  cardLog()};
        if (start != 0) {
            // Rows before the start hold the same recording: the repair reads them.
            logs[0] = sensorLog(0);
            logs[0].oldestOffset = start * 12 * 4;
            logs[0].rows = 8 - quint32(start);
            logs[0].startTime = kStart + quint32(start * kInterval);
            logs[1] = stateLog(0, logs[0].startTime);
            logs[1].oldestOffset = start * 5 * 4;
            logs[1].rows = logs[0].rows;
        }
        if (fault == Title03)
            logs[2].title = "PARAMETERS";
        if (fault == NoSets03)
            logs[2].count = 0;
        QByteArray files[4];
        for (int i = 0; i < 4; ++i)
            files[i] = qvlog::file(logs[i]);
        if (fault == Magic04)
            files[3][0] = 's';
        if (fault == ShortData02)
            files[1].chop(1);
        if (fault == ShortHeader04)
            files[3] = files[3].left(64 + 3007);

        CsvFolder folder;
        const QString path = folder.write(name, files[0]);
        for (int i = 1; i < 4; ++i) {
            QString sibling = name.contains(QLatin1String("01")) ? name : QStringLiteral("SV_SA_01.LOG");
            sibling.replace(QLatin1String("01"), QStringLiteral("0%1").arg(i + 1));
            if (fault == Folder04 && i == 3)
                QVERIFY(QDir().mkpath(folder.path(sibling)));
            else if (!(fault == Missing04 && i == 3))
                folder.write(sibling, files[i]);
        }
        ScriptedHost host(answer);
        ImportRun run;
        run.result = g_importControllerLog(path, *run.model, host);
        QStringList questions;
        if (start != 0)
            questions << QStringLiteral("Quorvanta|Try to fix Solvanor firmware overflow bug?");
        if (asked)
            questions << QLatin1String(kAskSiblings);
        QCOMPARE(host.questions, questions);
        if (message.isEmpty()) {
            QVERIFY2(run.result.ok, run.result.message);
        } else {
            QVERIFY(!run.result.ok);
            QCOMPARE(QByteArray(run.result.message), message);
        }

        // The sensor rows are in the stores in every case.
        const ChartModel &m = *run.model;
        const settingsT &s = m.settings;
        QCOMPARE(m.data(0)->count, 8);
        QCOMPARE(m.data(11)->time[7], (qint64(kStart) + 3600 + 7 * kInterval) * 1000);
        QCOMPARE(m.data(3)->value[4], 9.0);
        const bool loaded = !codes.isEmpty();
        QCOMPARE(int(s.hasModeData), int(loaded));
        if (!loaded) {
            QCOMPARE(s.flags, kFlagShowTitle);
            QCOMPARE(g_buffer2QString(s.name[0], kNameWidth), QStringLiteral("Spalte 0"));
            QCOMPARE(m.data(1)->value[4], 70.0);  // no plausibility pass
            if (message.isEmpty())
                QV_COMPARE_BYTES(QByteArray(reinterpret_cast<const char *>(m.modeCodes()), int(sizeof(modeCodesT))),
                                 expectedCodes({}));
            return;
        }
        QCOMPARE(s.flags, kFlagShowTitle | kFlagShowModeTrack);
        QCOMPARE(g_buffer2QString(s.name[0], kNameWidth), QStringLiteral("abs. Feuchte Aussen"));
        QV_COMPARE_BYTES(QByteArray(reinterpret_cast<const char *>(m.modeCodes()), int(sizeof(modeCodesT))),
                         expectedCodes(codes));
        QV_COMPARE_BYTES(QByteArray(reinterpret_cast<const char *>(m.modeParameters()), int(sizeof(modeParametersT))),
                         expectedParameters());
        for (int i = 0; i < 3; ++i)
            QVERIFY(g_isMissing(m.data(i)->value[4]));
        QCOMPARE(host.progressCalls.mid(host.progressCalls.size() - 5),
                 (QVector<QPair<int, int>>{{1, 255}, {10, 255}, {180, 255}, {250, 255}, {255, 255}}));
    }
};

QTEST_GUILESS_MAIN(TestLogSiblings)
#include "tst_logsiblings.moc"

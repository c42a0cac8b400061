// The binary sampling log on its own: which rows of the ring are read (start
// row, overflow repair, wrap, rows beyond the block), every value type and
// divisor rule, rows without data, and each failure with what it leaves in
// the model. Logs are written with the byte layout of the controller.
#include "csvtesthelpers.h"
#include "support/testsupport.h"

#include "import/logimport.h"
#include "logwriter.h"
#include "project/fixedstring.h"

#include <QtTest>

#include <cmath>

using namespace qv;
using namespace qvtest;

namespace {

constexpr quint32 kNoData = 0xBAADF00Du;

ImportRun importLog(const QString &path, ImportHost &host)
{
    ImportRun run;
    run.result = g_importControllerLog(path, *run.model, host);
    return run;
}

// Two data sets of signed raw words: word 0 of row r is r, word 1 is 1000 + r,
// so the stored values name the rows that were read.
qvlog::LogLayout ringLog(qint32 capacity, qint32 start, quint32 rows)
{
    qvlog::LogLayout s;
    s.title = "Halle 3";
    s.count = 2;
    s.capacity = capacity;
    s.interval = 60;
    s.timeCorrection = 3600;
    s.startTime = 1600000000;
    s.endTime = 1600000000 + 60 * (rows - 1);
    s.rows = rows;
    s.oldestOffset = start * 2 * 4;
    s.sets[0] = {"Zeile", 7, 0, 0, 0, 0};
    s.sets[1] = {"Zeile plus 1000", 7, 0, 0, 0, 0};
    for (qint32 r = 0; r <= capacity; ++r)
        s.words << quint32(r) << quint32(1000 + r);
    return s;
}

QByteArray asQuestion(const char *text)
{
    return QByteArray("Quorvanta|") + text;
}

}  // namespace

class TestLogImport : public QObject
{
    Q_OBJECT

private slots:
    void ring_data()
    {
        QTest::addColumn<qint32>("capacity");
        QTest::addColumn<qint32>("oldestOffset");  // bytes
        QTest::addColumn<quint32>("rows");
        QTest::addColumn<quint32>("startTime");
        QTest::addColumn<bool>("answer");
        QTest::addColumn<bool>("asked");
        QTest::addColumn<QVector<qint32>>("readRows");
        QTest::addColumn<qint64>("firstSecond");  // time correction + start, after a repair

        auto span = [](qint32 from, qint32 to) {
            QVector<qint32> v;
            for (qint32 r = from; r <= to; ++r)
                v << r;
            return v;
        };
        const quint32 t = 1600000000;
        QTest::newRow("S = 0, no question") << 20 << 0 << 10u << t << true << false << span(0, 9) << qint64(t) + 3600;
        QTest::newRow("S 5, R 100, C 1000, Yes") << 1000 << 40 << 100u << t << true << true << span(0, 104)
                                                 << qint64(t) + 3600 - 300;
        QTest::newRow("S 5, R 100, C 1000, No") << 1000 << 40 << 100u << t << false << true << span(5, 104)
                                                << qint64(t) + 3600;
        QTest::newRow("S + R = C still offered") << 10 << 16 << 8u << t << true << true << span(0, 9)
                                                 << qint64(t) + 3600 - 120;
        QTest::newRow("S + R > C wraps after row C") << 10 << 64 << 6u << t << true << false
                                                     << QVector<qint32>{8, 9, 10, 0, 1, 2} << qint64(t) + 3600;
        // The start row is S = (offset >> 2) / 2, truncated.
        QTest::newRow("offset inside a row") << 10 << 15 << 3u << t << false << true << span(1, 3) << qint64(t) + 3600;
        QTest::newRow("repair wraps the 32-bit start time") << 100 << 40 << 3u << 100u << true << true << span(0, 7)
                                                            << qint64(4294967296LL - 200) + 3600;
        // A start row beyond the ring is read once, then the ring starts over;
        // its words lie outside the block and read as 0.
        QTest::newRow("S beyond C") << 10 << 120 << 3u << t << true << false << QVector<qint32>{-1, 0, 1}
                                    << qint64(t) + 3600;
        QTest::newRow("no rows") << 10 << 0 << 0u << t << true << false << QVector<qint32>() << qint64(0);
    }

    // Both stores byte for byte, the repair question, the time range and the
    // sample interval from the header.
    void ring()
    {
        QFETCH(qint32, capacity);
        QFETCH(qint32, oldestOffset);
        QFETCH(quint32, rows);
        QFETCH(quint32, startTime);
        QFETCH(bool, answer);
        QFETCH(bool, asked);
        QFETCH(QVector<qint32>, readRows);
        QFETCH(qint64, firstSecond);

        qvlog::LogLayout layout = ringLog(capacity, 0, rows);
        layout.oldestOffset = oldestOffset;
        layout.startTime = startTime;
        CsvFolder folder;
        const QString path = folder.write(QStringLiteral("ring.log"), qvlog::file(layout));
        ScriptedHost host(answer);
        const ImportRun run = importLog(path, host);
        QVERIFY2(run.result.ok, run.result.message);

        const QString overflow = QString::fromLatin1(asQuestion("Try to fix Solvanor firmware overflow bug?"));
        QCOMPARE(host.questions, asked ? QStringList{overflow} : QStringList());
        QVector<qint64> times;
        QVector<double> words0, words1;
        for (int k = 0; k < readRows.size(); ++k) {
            times << (firstSecond + 60 * k) * 1000;
            words0 << (readRows[k] < 0 ? 0 : readRows[k]);
            words1 << (readRows[k] < 0 ? 0 : 1000 + readRows[k]);
        }
        QV_COMPARE_BYTES(storeBytes(*run.model->data(0)), expectedStore(times, words0));
        QV_COMPARE_BYTES(storeBytes(*run.model->data(1)), expectedStore(times, words1));

        const settingsT &s = run.model->settings;
        QCOMPARE(s.dataSetCount, 2);
        QCOMPARE(s.sampleInterval, 60);
        QCOMPARE(s.firstTime, times.value(0));
        QCOMPARE(s.lastTime, times.isEmpty() ? 0 : times.last());
        QCOMPARE(s.rangeSampleCount, readRows.size());
        QCOMPARE(g_buffer2QString(s.description, kDescriptionWidth), QStringLiteral("Halle 3"));
        QCOMPARE(g_buffer2QString(s.name[1], kNameWidth), QStringLiteral("Zeile plus 1000"));
        QCOMPARE(host.progressCalls.mid(0, 4), (QVector<QPair<int, int>>{{1, 255}, {10, 255}, {20, 255}, {192, 255}}));
        QCOMPARE(host.progressCalls.mid(4), (QVector<QPair<int, int>>{{223, 255}, {255, 255}}));
    }

    void values_data()
    {
        QTest::addColumn<int>("type");
        QTest::addColumn<int>("decimals");
        QTest::addColumn<quint32>("multiplier");
        QTest::addColumn<qint32>("divisor");
        QTest::addColumn<quint32>("offset");
        QTest::addColumn<quint32>("raw");
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("shownDecimals");

        QTest::newRow("2: sum in doubles, no 32-bit wrap") << 2 << 1 << 0u << 0 << 1u << 0xFFFFFFFFu << 4294967296.0 << 1;
        QTest::newRow("2: unsigned multiplier") << 2 << 1 << 0x80000000u << 0 << 0u << 3u << 6442450944.0 << 1;
        QTest::newRow("2: divisor +10") << 2 << 1 << 0u << 10 << 0u << 215u << 21.5 << 1;
        QTest::newRow("2: divisor -10") << 2 << 1 << 0u << -10 << 0u << 7u << 70.0 << 1;
        QTest::newRow("2: divisor 0") << 2 << 1 << 0u << 0 << 0u << 7u << 7.0 << 1;
        QTest::newRow("4: offset, multiplier, divisor") << 4 << 2 << 2u << 10 << 5u << 250u << 51.0 << 2;
        QTest::newRow("3: signed raw and offset") << 3 << 1 << 0u << 10 << quint32(-5) << quint32(-250) << -25.5 << 1;
        QTest::newRow("5: signed multiplier, divisor -10") << 5 << 0 << quint32(-2) << -10 << 0u << quint32(-3) << 60.0
                                                            << 0;
        QTest::newRow("7: signed raw, descriptor ignored") << 7 << 3 << 5u << 10 << 5u << 0xFFFFFFFEu << -2.0 << 3;
        QTest::newRow("8: float") << 8 << 1 << 5u << 10 << 5u << qvlog::floatWord(-12.375f) << -12.375 << 1;
        QTest::newRow("6: unsigned raw, no decimals") << 6 << 3 << 5u << 10 << 5u << 0xFFFFFFFEu << 4294967294.0 << 0;
        QTest::newRow("9: unknown") << 9 << 2 << 5u << 10 << 5u << 0x80000000u << 2147483648.0 << 0;
    }

    // Data set 1 of a one-row log holds the raw word; the value type byte is the
    // descriptor's code, the decimals follow the type.
    void values()
    {
        QFETCH(int, type);
        QFETCH(int, decimals);
        QFETCH(quint32, multiplier);
        QFETCH(qint32, divisor);
        QFETCH(quint32, offset);
        QFETCH(quint32, raw);
        QFETCH(double, value);
        QFETCH(int, shownDecimals);

        qvlog::LogLayout layout = ringLog(0, 0, 1);
        layout.sets[1] = {"Wert", quint8(type), quint8(decimals), multiplier, divisor, offset};
        layout.words = {0, raw};
        CsvFolder folder;
        ScriptedHost host;
        const ImportRun run = importLog(folder.write(QStringLiteral("v.LOG"), qvlog::file(layout)), host);
        QVERIFY2(run.result.ok, run.result.message);
        QCOMPARE(run.model->data(1)->count, 1);
        QV_COMPARE_DOUBLE(run.model->data(1)->value[0], value);
        QCOMPARE(int(run.model->settings.valueType[1]), type);
        QCOMPARE(int(run.model->settings.decimals[1]), shownDecimals);
        QV_COMPARE_DOUBLE(run.model->settings.axisMin[1], std::round(value - 0.5));
        QV_COMPARE_DOUBLE(run.model->settings.axisMax[1], std::round(value + 0.5));
    }

    // Word 0 = 0xBAADF00D marks the row in every data set, the time goes on, and
    // the marked rows stay out of the axis ranges. The same word in another
    // column of a good row is an ordinary value. A name that fills its 32 bytes
    // keeps 31 of them and a terminator.
    void rowWithoutData()
    {
        qvlog::LogLayout layout = ringLog(3, 0, 4);
        layout.count = 3;
        layout.sets[2] = {QByteArray(32, 'R'), 6, 0, 0, 0, 0};
        layout.words = {10, 20, 30, kNoData, 900, 900, 11, 21, kNoData, 12, 22, 32};
        CsvFolder folder;
        ScriptedHost host;
        const ImportRun run = importLog(folder.write(QStringLiteral("gap.log"), qvlog::file(layout)), host);
        QVERIFY2(run.result.ok, run.result.message);

        const qint64 t0 = (1600000000LL + 3600) * 1000;
        const QVector<qint64> times{t0, t0 + 60000, t0 + 120000, t0 + 180000};
        QV_COMPARE_BYTES(storeBytes(*run.model->data(0)), expectedStore(times, {10, kMissingValue, 11, 12}));
        QV_COMPARE_BYTES(storeBytes(*run.model->data(1)), expectedStore(times, {20, kMissingValue, 21, 22}));
        QV_COMPARE_BYTES(storeBytes(*run.model->data(2)), expectedStore(times, {30, kMissingValue, kMissingValue, 32}));
        const settingsT &s = run.model->settings;
        QCOMPARE(s.axisMin[1], 19.0);  // 20 - 0.54
        QCOMPARE(s.axisMax[1], 23.0);  // 22 + 0.54
        QCOMPARE(s.axisMax[2], std::round(double(kNoData) + (double(kNoData) - 30) * 0.02 + 0.5));
        QV_COMPARE_BYTES(QByteArray(s.name[2], kNameWidth), QByteArray(31, 'R') + '\0');
    }

    // A log of one row more than a store holds keeps the first rows and says so once.
    void moreRowsThanAStoreHolds()
    {
        qvlog::LogLayout layout = ringLog(kMaxSamples, 0, kMaxSamples + 1);
        layout.count = 1;
        layout.words.clear();
        for (qint32 r = 0; r <= kMaxSamples; ++r)
            layout.words << quint32(r);
        CsvFolder folder;
        ScriptedHost host;
        const ImportRun run = importLog(folder.write(QStringLiteral("long.log"), qvlog::file(layout)), host);
        QVERIFY2(run.result.ok, run.result.message);
        QCOMPARE(host.warnings, QStringList{QStringLiteral("File is containing too many data. Please contact Merovin.")});
        QCOMPARE(run.model->data(0)->count, kMaxSamples);
        QCOMPARE(run.model->data(0)->value[kMaxSamples - 1], double(kMaxSamples - 1));
    }

    void failures_data()
    {
        QTest::addColumn<QByteArray>("bytes");  // null: no file
        QTest::addColumn<QByteArray>("message");
        QTest::addColumn<bool>("critical");

        const QByteArray good = qvlog::file(ringLog(4, 0, 5));
        auto withHeader = [](void (*change)(qvlog::LogLayout &)) {
            qvlog::LogLayout s = ringLog(4, 0, 5);
            change(s);
            return qvlog::file(s);
        };
        const QByteArray header("Ventimar sampling seems to be broken (header)!");
        const QByteArray noLog("File is no Ventimar sampling!");

        QTest::newRow("no file") << QByteArray() << QByteArray("Error reading file!") << true;
        QTest::newRow("empty file") << QByteArray("") << noLog << false;
        QTest::newRow("last magic byte differs") << QByteArray(good).replace(63, 1, "!") << noLog << false;
        QTest::newRow("header one byte short") << good.left(64 + 3007) << header << false;
        QTest::newRow("17 data sets") << withHeader([](qvlog::LogLayout &s) { s.count = 17; }) << header << false;
        QTest::newRow("0 data sets") << withHeader([](qvlog::LogLayout &s) { s.count = 0; }) << header << false;
        QTest::newRow("data size 16 MiB + 1") << withHeader([](qvlog::LogLayout &s) { s.dataSize = 16 * 1024 * 1024 + 1; })
                                              << header << false;
        QTest::newRow("negative capacity") << withHeader([](qvlog::LogLayout &s) { s.capacity = -1; }) << header << false;
        QTest::newRow("negative oldest-row offset") << withHeader([](qvlog::LogLayout &s) { s.oldestOffset = -8; })
                                                    << header << false;
    }

    // The message, its kind, no question, and a model untouched by the import.
    void failures()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(QByteArray, message);
        QFETCH(bool, critical);

        CsvFolder folder;
        const QString path = bytes.isNull() ? folder.path(QStringLiteral("missing.log"))
                                            : folder.write(QStringLiteral("bad.log"), bytes);
        ScriptedHost host(true);
        const ImportRun run = importLog(path, host);
        QVERIFY(!run.result.ok);
        QCOMPARE(QByteArray(run.result.message), message);
        QCOMPARE(run.result.critical(), critical);
        QVERIFY(host.questions.isEmpty());
        QV_COMPARE_BYTES(recordBytes(run.model->settings), recordBytes(freshSettings(*run.model)));
    }

    // A data block that ends early: No fails with the size message before the
    // model is touched; Yes reads the missing words as zeros. 16 data sets and a
    // data size of exactly 16 MiB are accepted.
    void shortData()
    {
        qvlog::LogLayout layout = ringLog(2, 0, 3);
        layout.count = 16;
        layout.words = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18};
        layout.dataSize = 16 * 1024 * 1024;
        CsvFolder folder;
        const QString path = folder.write(QStringLiteral("short.log"), qvlog::file(layout).chopped(1));

        ScriptedHost no(false);
        const ImportRun declined = importLog(path, no);
        QVERIFY(!declined.result.ok);
        QCOMPARE(QByteArray(declined.result.message), QByteArray("Ventimar sampling seems to be broken (filesize)!"));
        QCOMPARE(no.questions, QStringList{QString::fromLatin1(asQuestion("Try to fix missing data?"))});
        QV_COMPARE_BYTES(recordBytes(declined.model->settings), recordBytes(freshSettings(*declined.model)));

        ScriptedHost yes(true);
        const ImportRun fixed = importLog(path, yes);
        QVERIFY2(fixed.result.ok, fixed.result.message);
        QCOMPARE(fixed.model->settings.dataSetCount, 16);
        const qint64 t0 = (1600000000LL + 3600) * 1000;
        const QVector<qint64> times{t0, t0 + 60000, t0 + 120000};
        QV_COMPARE_BYTES(storeBytes(*fixed.model->data(0)), expectedStore(times, {1, 17, 0}));
        // The last word arrived without its top byte and is completed with zero.
        QV_COMPARE_BYTES(storeBytes(*fixed.model->data(1)), expectedStore(times, {2, 18, 0}));
        QV_COMPARE_BYTES(storeBytes(*fixed.model->data(15)), expectedStore(times, {16, 0, 0}));
    }
};

QTEST_GUILESS_MAIN(TestLogImport)
#include "tst_logimport.moc"

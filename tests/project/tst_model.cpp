// The model record: construction defaults, the missing-value test, range
// counting, the row-check rule and the fixed-width text helpers.
#include "support/testsupport.h"

#include "project/chartmodel.h"
#include "project/fixedstring.h"

#include <QtTest>

#include <cstring>
#include <memory>

using namespace qv;

class TestModel : public QObject
{
    Q_OBJECT

private slots:
    void constructionDefaults();
    void storesStartEmpty();
    void missingValue_data();
    void missingValue();
    void rangeCount_data();
    void rangeCount();
    void rowChecks_data();
    void rowChecks();
    void activateRowsFollowsShownBit();
    void stringHelpers_data();
    void stringHelpers();
    void stringHelpersIgnoreBadArguments();
    void bufferToString();
};

void TestModel::constructionDefaults()
{
    const quint32 before = g_currentSeconds();
    auto model = std::make_unique<ChartModel>();
    const quint32 after = g_currentSeconds();
    const settingsT &s = model->settings;

    QCOMPARE(QByteArray(s.version, 4), QByteArray("0001"));
    QCOMPARE(s.flags, 1u);
    QCOMPARE(s.dataSetCount, 0);
    QVERIFY(s.changedTime >= before && s.changedTime <= after);
    QCOMPARE(int(s.legendPosition), 3);
    QCOMPARE(int(s.lineType), 1);

    const quint32 colours[16] = {0xFF0088CC, 0xFFCC8800, 0xFF00AA00, 0xFF4444CC, 0xFFCC4400, 0xFF448866,
                                 0xFF0000CC, 0xFFCC0000, 0xFF00CC00, 0xFF0000CC, 0xFFCC44CC, 0xFF000044,
                                 0xFF664400, 0xFF004466, 0xFF440066, 0xFF440000};
    for (int i = 0; i < 16; ++i) {
        QCOMPARE(s.color[i], colours[i]);
        QCOMPARE(s.lineFlags[i], i < 3 ? 3u : i < 6 ? 7u : 1u);
        QCOMPARE(int(s.lineWidth[i]), 1);
    }
    QCOMPARE(s.color[6], s.color[9]);  // the duplicate stays

    // Everything not named above is zero.
    settingsT expected;
    g_initSettings(expected, s.changedTime);
    QV_COMPARE_BYTES(QByteArray(reinterpret_cast<const char *>(&s), 2048),
                     QByteArray(reinterpret_cast<const char *>(&expected), 2048));
    QByteArray rest(reinterpret_cast<const char *>(&s) + 1289, 759);
    QCOMPARE(rest, QByteArray(759, '\0'));
    QVERIFY(std::memcmp(s.name, QByteArray(512, '\0').constData(), 512) == 0);
    QCOMPARE(s.axisMin[0], 0.0);
    QCOMPARE(s.hasModeData, quint8(0));

    for (const RowState &r : model->row) {
        QVERIFY(!r.enabled);
        QVERIFY(!r.checked);
    }
    QVERIFY(!model->modeBoxVisible);
}

void TestModel::storesStartEmpty()
{
    auto model = std::make_unique<ChartModel>();
    for (int i = 0; i < kMaxDataSets; ++i) {
        const _chartDataType *d = model->data(i);
        QCOMPARE(d->count, 0);
        QCOMPARE(d->time[kMaxSamples - 1], qint64(0));
        QCOMPARE(d->value[kMaxSamples - 1], 0.0);
        // Stores do not overlap each other or the working copies.
        if (i > 0)
            QVERIFY(reinterpret_cast<const char *>(d) >=
                    reinterpret_cast<const char *>(model->data(i - 1)) + sizeof(_chartDataType));
    }
    QVERIFY(reinterpret_cast<const char *>(model->displayData()) >=
            reinterpret_cast<const char *>(model->data(15)) + sizeof(_chartDataType));
    QCOMPARE(model->modeCodes()->count, 0);
    QCOMPARE(model->modeParameters()->interval, 0);

    model->data(3)->count = 5;
    model->data(3)->value[100] = 1.5;
    model->data(15)->value[kMaxSamples - 1] = 2.5;
    model->displayData()->count = 9;
    model->modeCodes()->count = 4;
    model->clearStores();
    QCOMPARE(model->data(3)->count, 0);
    QCOMPARE(model->data(3)->value[100], 0.0);
    QCOMPARE(model->data(15)->value[kMaxSamples - 1], 0.0);
    // Only the sample stores are emptied, not the working copies or the mode track.
    QCOMPARE(model->displayData()->count, 9);
    QCOMPARE(model->modeCodes()->count, 4);
    // An emptied store can be written again.
    model->data(3)->time[7] = 42;
    QCOMPARE(model->data(3)->time[7], qint64(42));
}

void TestModel::missingValue_data()
{
    QTest::addColumn<double>("value");
    QTest::addColumn<bool>("missing");
    QTest::newRow("marker") << 3131961357.0 << true;
    QTest::newRow("marker plus a fraction truncates to it") << 3131961357.75 << true;
    QTest::newRow("one below") << 3131961356.999 << false;
    QTest::newRow("next integer") << 3131961358.0 << false;
    QTest::newRow("zero") << 0.0 << false;
    QTest::newRow("negative marker") << -3131961357.0 << false;
    QTest::newRow("marker plus 2^32") << 7426928653.0 << true;
    QTest::newRow("negative with the marker's low bits") << -1163005939.0 << true;
    QTest::newRow("negative, truncated toward zero") << -1163005938.5 << false;
    QTest::newRow("huge") << 1e300 << false;
    QTest::newRow("nan") << std::numeric_limits<double>::quiet_NaN() << false;
    QTest::newRow("infinity") << std::numeric_limits<double>::infinity() << false;
}

void TestModel::missingValue()
{
    QFETCH(double, value);
    QFETCH(bool, missing);
    QCOMPARE(g_isMissing(value), missing);
    QVERIFY(g_isMissing(kMissingValue));
    QCOMPARE(quint32(kMissingValue), 0xBAADF00Du);
}

void TestModel::rangeCount_data()
{
    QTest::addColumn<qint64>("begin");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<int>("expected");
    // Samples at 1000, 2000, ..., 10000 ms.
    QTest::newRow("whole") << qint64(1000) << qint64(10000) << 10;
    QTest::newRow("both ends inclusive") << qint64(3000) << qint64(5000) << 3;
    QTest::newRow("between samples") << qint64(3001) << qint64(4999) << 1;
    QTest::newRow("single sample") << qint64(7000) << qint64(7000) << 1;
    QTest::newRow("before all") << qint64(0) << qint64(999) << 0;
    QTest::newRow("reversed") << qint64(5000) << qint64(3000) << 0;
}

void TestModel::rangeCount()
{
    QFETCH(qint64, begin);
    QFETCH(qint64, end);
    QFETCH(int, expected);
    auto model = std::make_unique<ChartModel>();
    _chartDataType &d = *model->data(0);
    d.count = 10;
    for (int k = 0; k < 10; ++k)
        d.time[k] = (k + 1) * 1000;
    d.time[10] = 5000;  // beyond count: never counted
    // Data set 1 has other times; only data set 0 counts.
    model->data(1)->count = 3;
    model->settings.rangeBegin = begin;
    model->settings.rangeEnd = end;
    model->recountRange();
    QCOMPARE(model->settings.rangeSampleCount, expected);

    d.count = -5;  // a damaged record counts nothing instead of reading wild
    QCOMPARE(model->countRange(), 0);
    d.count = kMaxSamples + 100;
    QVERIFY(model->countRange() <= kMaxSamples);
}

void TestModel::rowChecks_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<QString>("shownBefore");  // one character per data set: 1 shown
    QTest::addColumn<QString>("boxes");        // one character per data set: 1 ticked
    QTest::addColumn<QString>("shownAfter");
    QTest::addColumn<QString>("boxesAfter");
    QTest::newRow("untick one") << 3 << "111" << "101" << "101" << "101";
    QTest::newRow("tick one") << 3 << "101" << "111" << "111" << "111";
    QTest::newRow("untick the last shown brings back the first") << 3 << "010" << "000" << "100" << "100";
    QTest::newRow("only newly ticked counts as none still shown") << 3 << "100" << "010" << "110" << "110";
    QTest::newRow("no data sets") << 0 << "" << "" << "" << "";
}

void TestModel::rowChecks()
{
    QFETCH(int, count);
    QFETCH(QString, shownBefore);
    QFETCH(QString, boxes);
    QFETCH(QString, shownAfter);
    QFETCH(QString, boxesAfter);
    auto model = std::make_unique<ChartModel>();
    settingsT &s = model->settings;
    s.dataSetCount = count;
    for (int i = 0; i < count; ++i) {
        s.lineFlags[i] = (shownBefore.at(i) == QLatin1Char('1') ? 1u : 0u) | 6u;
        model->row[i].checked = boxes.at(i) == QLatin1Char('1');
    }
    model->applyRowChecks();
    for (int i = 0; i < count; ++i) {
        QCOMPARE(s.lineFlags[i], (shownAfter.at(i) == QLatin1Char('1') ? 1u : 0u) | 6u);
        QCOMPARE(model->row[i].checked, boxesAfter.at(i) == QLatin1Char('1'));
    }
    if (count == 0) {
        QVERIFY(model->row[0].checked);
        QCOMPARE(s.lineFlags[0] & 1u, 1u);
    }
    // Rows beyond the data sets in use keep their flags.
    QCOMPARE(s.lineFlags[15], 1u);

    // The mode flag follows the mode box.
    model->modeBoxChecked = true;
    model->applyRowChecks();
    QCOMPARE(s.flags & kFlagShowModeTrack, kFlagShowModeTrack);
    model->modeBoxChecked = false;
    model->applyRowChecks();
    QCOMPARE(s.flags & kFlagShowModeTrack, 0u);
    QCOMPARE(s.flags & kFlagShowTitle, kFlagShowTitle);
}

void TestModel::activateRowsFollowsShownBit()
{
    auto model = std::make_unique<ChartModel>();
    model->settings.dataSetCount = 3;
    model->settings.lineFlags[1] = 6;
    model->activateRows();
    QVERIFY(model->row[0].enabled && model->row[0].checked);
    QVERIFY(model->row[1].enabled && !model->row[1].checked);
    QVERIFY(model->row[2].enabled && model->row[2].checked);
    QVERIFY(!model->row[3].enabled && !model->row[3].checked);

    model->showModeBox();
    QVERIFY(model->modeBoxVisible && model->modeBoxChecked);
    QCOMPARE(model->settings.flags, kFlagShowTitle | kFlagShowModeTrack);
}

void TestModel::stringHelpers_data()
{
    QTest::addColumn<int>("helper");  // 0 g_qString2Buffer, 1 WO0, 2 g_char2Buffer
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("width");
    QTest::addColumn<QByteArray>("expected");
    const QString abc = QStringLiteral("abc");
    for (int h = 0; h < 3; ++h) {
        QTest::addRow("%d short", h) << h << abc << 6 << QByteArray("abc\0\0\0", 6);
        QTest::addRow("%d empty", h) << h << QString() << 4 << QByteArray(4, '\0');
        QTest::addRow("%d width 1", h) << h << abc << 1 << (h == 1 ? QByteArray("a") : QByteArray(1, '\0'));
    }
    QTest::newRow("terminated at width - 1") << 0 << QStringLiteral("abcdefgh") << 4 << QByteArray("abc\0", 4);
    QTest::newRow("exact fit loses last") << 0 << abc << 3 << QByteArray("ab\0", 3);
    QTest::newRow("WO0 fills the width") << 1 << QStringLiteral("abcdefgh") << 4 << QByteArray("abcd");
    QTest::newRow("WO0 exact fit") << 1 << abc << 3 << QByteArray("abc");
    QTest::newRow("char terminated") << 2 << QStringLiteral("abcdefgh") << 4 << QByteArray("abc\0", 4);
    QTest::newRow("latin-1 degree") << 0 << QStringLiteral("\u00B0C") << 8 << QByteArray("\xB0" "C\0\0\0\0\0\0", 8);
    QTest::newRow("latin-1 umlaut") << 1 << QStringLiteral("\u00DC") << 2 << QByteArray("\xDC\0", 2);
    QTest::newRow("outside latin-1") << 0 << QStringLiteral("\u20AC") << 3 << QByteArray("?\0\0", 3);
}

void TestModel::stringHelpers()
{
    QFETCH(int, helper);
    QFETCH(QString, text);
    QFETCH(int, width);
    QFETCH(QByteArray, expected);
    QByteArray field(width + 2, '\x55');  // guard bytes on the right
    switch (helper) {
    case 0: g_qString2Buffer(field.data(), text, width); break;
    case 1: g_qString2BufferWO0(field.data(), text, width); break;
    default: g_char2Buffer(field.data(), text.toLatin1().constData(), width); break;
    }
    QV_COMPARE_BYTES(field.left(width), expected);
    QCOMPARE(field.mid(width), QByteArray(2, '\x55'));
}

void TestModel::stringHelpersIgnoreBadArguments()
{
    QByteArray field(8, 'x');
    g_qString2Buffer(field.data(), QStringLiteral("a"), 0);
    g_qString2BufferWO0(field.data(), QStringLiteral("a"), -1);
    g_char2Buffer(field.data(), "a", 65537);
    QCOMPARE(field, QByteArray(8, 'x'));
    g_qString2Buffer(nullptr, QStringLiteral("a"), 8);  // no crash
    g_qString2BufferWO0(nullptr, QStringLiteral("a"), 8);
    g_char2Buffer(nullptr, "a", 8);
    g_char2Buffer(field.data(), nullptr, 8);
    QCOMPARE(field, QByteArray(8, '\0'));

    QByteArray big(65536, 'x');
    g_qString2Buffer(big.data(), QStringLiteral("ab"), 65536);  // the widest allowed
    QCOMPARE(big.left(3), QByteArray("ab\0", 3));
    QCOMPARE(big.count('\0'), 65534);
}

void TestModel::bufferToString()
{
    const char field[8] = {'\xB0', 'C', 0, 'x', 'y', 0, 0, 0};
    QCOMPARE(g_buffer2QString(field, 8), QStringLiteral("\u00B0C"));
    const char full[4] = {'a', 'b', 'c', 'd'};  // no terminator: never read past the width
    QCOMPARE(g_buffer2QString(full, 4), QStringLiteral("abcd"));
    QCOMPARE(g_buffer2QString(nullptr, 4), QString());
}

QTEST_GUILESS_MAIN(TestModel)
#include "tst_model.moc"

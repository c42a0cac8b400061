// The widget-free chart rules: group size, reduction into drawn points, the
// state bands, the drawability check and the legend statistics.
#include "support/testsupport.h"

#include "chart/chartplan.h"
#include "chart/missingfilter.h"
#include "chart/reduction.h"
#include "chart/stateband.h"
#include "chart/statistics.h"
#include "project/fixedstring.h"

#include <QtTest>

#include <memory>

using namespace qv;

using Times = QVector<qint64>;
using Values = QVector<double>;
using Codes = QVector<int>;
using Points = QVector<QPointF>;

namespace {

const double M = kMissingValue;

// Fills a store; samples beyond values.size() keep their previous contents.
void fill(_chartDataType &store, const Times &times, const Values &values)
{
    store.count = times.size();
    for (int k = 0; k < times.size(); ++k) {
        store.time[k] = times[k];
        store.value[k] = k < values.size() ? values[k] : 0.0;
    }
}

Times evenTimes(int count, qint64 start = 0, qint64 step = 10)
{
    Times t;
    for (int k = 0; k < count; ++k)
        t << start + k * step;
    return t;
}

QString pointsText(const Points &points)
{
    QStringList parts;
    for (const QPointF &p : points)
        parts << QStringLiteral("(%1, %2)").arg(p.x(), 0, 'g', 17).arg(p.y(), 0, 'g', 17);
    return parts.join(QLatin1Char(' '));
}

void setName(settingsT &s, int i, const char *name, const char *unit)
{
    g_char2Buffer(s.name[i], name, kNameWidth);
    g_char2Buffer(s.unit[i], unit, kUnitWidth);
}

}  // namespace

class TestChartCore : public QObject
{
    Q_OBJECT

private slots:
    void missingFilterAgreesWithExactTest();
    void groupSize_data();
    void groupSize();
    void reduce_data();
    void reduce();
    void reduceWritesOnlyWhatItReturns();
    void drawnPoints_data();
    void drawnPoints();
    void stateBands_data();
    void stateBands();
    void chartCheck_data();
    void chartCheck();
    void statisticsWindow_data();
    void statisticsWindow();
    void seriesStatistics_data();
    void seriesStatistics();
    void statisticsTexts();
    void seriesNames_data();
    void seriesNames();
};

void TestChartCore::missingFilterAgreesWithExactTest()
{
    const double inf = std::numeric_limits<double>::infinity();
    QVector<double> values{0.0, -0.0, 21.5, M, M + 0.999, M - 0.001, M + 4294967296.0, -M,
                           1163005938.999, 1163005939.0, -1163005938.999, -1163005939.0, -1163005939.5,
                           -1163005940.0, 9.3e18, -9.3e18, inf, -inf, std::numeric_limits<double>::quiet_NaN()};
    // and a sweep across the magnitudes where the cheap test hands over
    for (double v = 1e9; v < 1e19; v *= 1.0001)
        values << v << -v << std::floor(v / 4294967296.0) * 4294967296.0 + M;
    int missing = 0;
    for (double v : values) {
        QVERIFY2(g_isMissingSample(v) == g_isMissing(v), qPrintable(QString::number(v, 'g', 17)));
        missing += g_isMissing(v) ? 1 : 0;
    }
    QVERIFY(missing > 10000);  // the sweep does reach missing values
}

void TestChartCore::groupSize_data()
{
    QTest::addColumn<int>("samples");
    QTest::addColumn<bool>("forPrint");
    QTest::addColumn<int>("lineType");
    QTest::addColumn<int>("expected");

    QTest::newRow("1000 line") << 1000 << false << 1 << 1;
    QTest::newRow("5000 line") << 5000 << false << 1 << 3;
    QTest::newRow("5000 spline") << 5000 << false << 2 << 12;
    QTest::newRow("5000 print") << 5000 << true << 1 << 2;
    QTest::newRow("2048 fits") << 2048 << false << 1 << 1;
    QTest::newRow("2049 halves") << 2049 << false << 1 << 2;
    QTest::newRow("4097 / 2 = 2048") << 4097 << false << 1 << 2;
    QTest::newRow("4098 / 2 = 2049") << 4098 << false << 1 << 3;
    QTest::newRow("4096 print") << 4096 << true << 1 << 1;
    QTest::newRow("4097 print") << 4097 << true << 1 << 2;
    QTest::newRow("full store") << kMaxSamples << false << 1 << 128;
    QTest::newRow("nothing in range") << 0 << false << 1 << 1;
    QTest::newRow("negative count") << -5 << false << 1 << 1;
    QTest::newRow("largest count") << 0x7FFFFFFF << false << 1 << 1048065;
}

void TestChartCore::groupSize()
{
    QFETCH(int, samples);
    QFETCH(bool, forPrint);
    QFETCH(int, lineType);
    QFETCH(int, expected);
    const int g = g_groupSize(samples, forPrint, quint8(lineType));
    QCOMPARE(g, expected);
    // The defining property: the smallest g (before the spline factor) that
    // brings the point count under the limit.
    const int base = lineType == 2 ? g / 4 : g;
    const qint64 limit = forPrint ? 4096 : 2048;
    const qint64 n = qMax(0, samples);
    QVERIFY(n / base <= limit);
    if (base > 1)
        QVERIFY(n / (base - 1) > limit);
}

void TestChartCore::reduce_data()
{
    QTest::addColumn<Times>("times");
    QTest::addColumn<Values>("values");
    QTest::addColumn<Codes>("modes");
    QTest::addColumn<qint64>("begin");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<int>("group");
    QTest::addColumn<Times>("expectedTimes");
    QTest::addColumn<Values>("expectedValues");
    QTest::addColumn<Codes>("expectedModes");

    const qint64 all = std::numeric_limits<qint64>::max();
    const qint64 none = std::numeric_limits<qint64>::min();

    QTest::newRow("g = 1 leaves out the last sample")
        << evenTimes(8) << Values{1, 2, 3, 4, 5, 6, 7, 8} << Codes{0, 1, 2, 3, 4, 5, 6, 7} << none << all << 1
        << Times{0, 10, 20, 30, 40, 50, 60} << Values{1, 2, 3, 4, 5, 6, 7} << Codes{0, 1, 2, 3, 4, 5, 6};
    QTest::newRow("exactly g samples give no point")
        << evenTimes(3) << Values{1, 2, 3} << Codes{} << none << all << 3 << Times{} << Values{} << Codes{};
    QTest::newRow("g + 1 samples give one point")
        << evenTimes(4) << Values{1, 2, 4, 100} << Codes{0, 9, 0, 0} << none << all << 3
        << Times{10} << Values{7.0 / 3} << Codes{9};
    QTest::newRow("the last g samples are never drawn")
        << evenTimes(9) << Values{1, 1, 1, 2, 2, 2, 3, 3, 3} << Codes{0, 1, 2, 3, 4, 5, 6, 7, 8} << none << all
        << 3 << Times{10, 40} << Values{1, 2} << Codes{1, 4};
    QTest::newRow("state of sample k + g/2")
        << evenTimes(9) << Values{} << Codes{0, 1, 2, 3, 4, 5, 6, 7, 8} << none << all << 4
        << Times{15, 55} << Values{0, 0} << Codes{2, 6};
    QTest::newRow("time mean truncates toward zero")
        << Times{-3, 0, 0, 1, 1, 4, 7} << Values{} << Codes{} << none << all << 2
        << Times{-1, 0, 2} << Values{0, 0, 0} << Codes{0, 0, 0};
    QTest::newRow("only the first time of a group is tested")
        << evenTimes(10) << Values{1, 2, 3, 4, 5, 6, 7, 8, 9, 10} << Codes{} << qint64(0) << qint64(15) << 3
        << Times{10} << Values{2} << Codes{0};
    QTest::newRow("samples before the range advance one by one")
        << evenTimes(8) << Values{1, 2, 3, 4, 5, 6, 7, 8} << Codes{0, 1, 2, 3, 4, 5, 6, 7} << qint64(25) << all << 2
        << Times{35, 55} << Values{4.5, 6.5} << Codes{4, 6};
    QTest::newRow("range bounds are inclusive")
        << evenTimes(8) << Values{1, 2, 3, 4, 5, 6, 7, 8} << Codes{} << qint64(10) << qint64(30) << 1
        << Times{10, 20, 30} << Values{2, 3, 4} << Codes{0, 0, 0};
    QTest::newRow("a missing value spoils its group only")
        << evenTimes(7) << Values{1, M, 3, 4, 5, 6, 7} << Codes{} << none << all << 2
        << Times{5, 25, 45} << Values{M, 3.5, 5.5} << Codes{0, 0, 0};
    QTest::newRow("value mean sums in sample order")
        << evenTimes(4) << Values{0.1, 0.2, 0.3, 0} << Codes{} << none << all << 3
        << Times{10} << Values{((0.1 + 0.2) + 0.3) / 3} << Codes{0};
    QTest::newRow("group size 0 counts as 1")
        << evenTimes(3) << Values{4, 5, 6} << Codes{} << none << all << 0 << Times{0, 10} << Values{4, 5}
        << Codes{0, 0};
}

void TestChartCore::reduce()
{
    QFETCH(Times, times);
    QFETCH(Values, values);
    QFETCH(Codes, modes);
    QFETCH(qint64, begin);
    QFETCH(qint64, end);
    QFETCH(int, group);
    QFETCH(Times, expectedTimes);
    QFETCH(Values, expectedValues);
    QFETCH(Codes, expectedModes);

    auto model = std::make_unique<ChartModel>();
    fill(*model->data(0), times, values);
    for (int k = 0; k < modes.size(); ++k)
        model->modeCodes()->code[k] = qint8(modes[k]);
    model->modeCodes()->count = modes.size();

    const int n = g_reduceSamples(*model->data(0), *model->modeCodes(), begin, end, group, *model->displayData(),
                                  *model->displayModeCodes());
    QCOMPARE(n, expectedTimes.size());
    QCOMPARE(model->displayData()->count, n);
    QCOMPARE(model->displayModeCodes()->count, n);
    for (int j = 0; j < n; ++j) {
        QCOMPARE(model->displayData()->time[j], expectedTimes[j]);
        QV_COMPARE_DOUBLE(model->displayData()->value[j], expectedValues[j]);
        QCOMPARE(int(model->displayModeCodes()->code[j]), expectedModes[j]);
    }
}

void TestChartCore::reduceWritesOnlyWhatItReturns()
{
    // A full store with the largest group: indices stay inside the stores,
    // and a second, shorter reduction replaces the count of the first.
    auto model = std::make_unique<ChartModel>();
    _chartDataType &d = *model->data(0);
    d.count = kMaxSamples;
    for (int k = 0; k < kMaxSamples; ++k) {
        d.time[k] = 1000 * qint64(k);
        d.value[k] = k % 7;
        model->modeCodes()->code[k] = qint8(k % 13);
    }
    const int g = g_groupSize(kMaxSamples, false, 2);
    QCOMPARE(g, 512);
    int n = g_reduceSamples(d, *model->modeCodes(), 0, 1000 * qint64(kMaxSamples), g, *model->displayData(),
                            *model->displayModeCodes());
    QCOMPARE(n, kMaxSamples / g - 1);
    QCOMPARE(model->displayData()->time[0], qint64(1000) * (g - 1) / 2);
    QCOMPARE(int(model->displayModeCodes()->code[1]), (g + g / 2) % 13);

    d.count = 100000000;  // damaged count: clamped to the store
    n = g_reduceSamples(d, *model->modeCodes(), 0, 1000, 1, *model->displayData(), *model->displayModeCodes());
    QCOMPARE(n, 2);
    QCOMPARE(model->displayData()->count, 2);
}

void TestChartCore::drawnPoints_data()
{
    QTest::addColumn<Values>("values");
    QTest::addColumn<Points>("expected");

    QTest::newRow("all valid") << Values{1.5, -2, 3} << Points{{0, 1.5}, {10, -2}, {20, 3}};
    QTest::newRow("missing inside is skipped") << Values{1, M, 3} << Points{{0, 1}, {20, 3}};
    QTest::newRow("missing first drawn at 0") << Values{M, 2, 3} << Points{{0, 0}, {10, 2}, {20, 3}};
    QTest::newRow("missing last drawn at 0") << Values{1, 2, M} << Points{{0, 1}, {10, 2}, {20, 0}};
    QTest::newRow("all missing: only the ends") << Values{M, M, M, M} << Points{{0, 0}, {30, 0}};
    QTest::newRow("single missing point") << Values{M} << Points{{0, 0}};
    QTest::newRow("next integer above the marker is a value")
        << Values{1, 3131961358.0} << Points{{0, 1}, {10, 3131961358.0}};
    QTest::newRow("no points") << Values{} << Points{};
}

void TestChartCore::drawnPoints()
{
    QFETCH(Values, values);
    QFETCH(Points, expected);
    auto model = std::make_unique<ChartModel>();
    fill(*model->displayData(), evenTimes(values.size()), values);
    Points points{{99, 99}};  // replaced, not appended to
    g_drawnPoints(*model->displayData(), points);
    QCOMPARE(pointsText(points), pointsText(expected));
}

void TestChartCore::stateBands_data()
{
    QTest::addColumn<Codes>("codes");
    QTest::addColumn<Points>("upper");
    QTest::addColumn<Points>("lower");

    // Times are 100, 200, ...
    QTest::newRow("red, green, closed at the last point")
        << Codes{5, 5, 12, 12, 3}
        << Points{{100, 8197}, {100, 5}, {300, 12}, {300, 8204}, {500, 8195}, {500, 3}}
        << Points{{100, 5}, {100, 8197}, {300, 8204}, {300, 12}, {500, 3}, {500, 8195}};
    QTest::newRow("all red: the last point switches to green")
        << Codes{5, 5, 5} << Points{{100, 8197}, {100, 5}, {300, 5}, {300, 8197}}
        << Points{{100, 5}, {100, 8197}, {300, 8197}, {300, 5}};
    QTest::newRow("10 is red, 11 is green")
        << Codes{10, 11, 11, 11} << Points{{100, 8202}, {100, 10}, {200, 11}, {200, 8203}, {400, 8203}, {400, 11}}
        << Points{{100, 10}, {100, 8202}, {200, 8203}, {200, 11}, {400, 11}, {400, 8203}};
    QTest::newRow("change at the last point goes the other way")
        << Codes{3, 12} << Points{{100, 8195}, {100, 3}, {200, 12}, {200, 8204}}
        << Points{{100, 3}, {100, 8195}, {200, 8204}, {200, 12}};
    QTest::newRow("single point opens green") << Codes{4} << Points{{100, 4}, {100, 8196}}
                                              << Points{{100, 8196}, {100, 4}};
    QTest::newRow("negative codes are red") << Codes{-1, -128, 0} << Points{{100, 8191}, {100, -1}, {300, 0}, {300, 8192}}
                                            << Points{{100, -1}, {100, 8191}, {300, 8192}, {300, 0}};
    QTest::newRow("no points") << Codes{} << Points{} << Points{};
}

void TestChartCore::stateBands()
{
    QFETCH(Codes, codes);
    QFETCH(Points, upper);
    QFETCH(Points, lower);
    auto model = std::make_unique<ChartModel>();
    fill(*model->displayData(), evenTimes(codes.size(), 100, 100), Values{});
    for (int j = 0; j < codes.size(); ++j)
        model->displayModeCodes()->code[j] = qint8(codes[j]);
    model->displayModeCodes()->count = codes.size();

    StateBands bands;
    bands.upper << QPointF(1, 1);  // replaced, not appended to
    g_buildStateBands(*model->displayData(), *model->displayModeCodes(), bands);
    QCOMPARE(pointsText(bands.upper), pointsText(upper));
    QCOMPARE(pointsText(bands.lower), pointsText(lower));
}

void TestChartCore::chartCheck_data()
{
    QTest::addColumn<int>("dataSets");
    QTest::addColumn<Codes>("counts");      // sample count per data set
    QTest::addColumn<Codes>("shownSets");   // data sets with the shown bit
    QTest::addColumn<int>("expected");
    QTest::addColumn<int>("lead");

    const int ok = int(ChartCheck::Drawable);
    QTest::newRow("no data sets") << 0 << Codes{} << Codes{0} << int(ChartCheck::NoDataSets) << -1;
    QTest::newRow("8 samples suffice") << 1 << Codes{8} << Codes{0} << ok << 0;
    QTest::newRow("7 samples block") << 1 << Codes{7} << Codes{0} << int(ChartCheck::TooFewSamples) << 0;
    QTest::newRow("7 samples in a hidden set block too")
        << 3 << Codes{100, 100, 7} << Codes{0} << int(ChartCheck::TooFewSamples) << 0;
    QTest::newRow("unused slots do not count") << 2 << Codes{100, 100, 0} << Codes{0, 1} << ok << 0;
    QTest::newRow("nothing shown") << 2 << Codes{100, 100} << Codes{} << int(ChartCheck::NothingShown) << -1;
    QTest::newRow("shown bit of an unused slot") << 2 << Codes{100, 100} << Codes{5} << int(ChartCheck::NothingShown)
                                                 << -1;
    QTest::newRow("lead is the first shown") << 4 << Codes{9, 9, 9, 9} << Codes{2, 3} << ok << 2;
    QTest::newRow("damaged count is clamped to 16")
        << 1000 << Codes{8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8} << Codes{15} << ok << 15;
    QTest::newRow("negative count means none") << -3 << Codes{8} << Codes{0} << int(ChartCheck::NoDataSets) << -1;
}

void TestChartCore::chartCheck()
{
    QFETCH(int, dataSets);
    QFETCH(Codes, counts);
    QFETCH(Codes, shownSets);
    QFETCH(int, expected);
    QFETCH(int, lead);
    auto model = std::make_unique<ChartModel>();
    model->settings.dataSetCount = dataSets;
    for (int i = 0; i < counts.size(); ++i)
        model->data(i)->count = counts[i];
    for (quint32 &flags : model->settings.lineFlags)
        flags &= ~kLineShown;
    for (int i : shownSets)
        model->settings.lineFlags[i] |= kLineShown;
    QCOMPARE(int(g_checkChartData(*model)), expected);
    QCOMPARE(g_leadDataSet(*model), lead);
}

void TestChartCore::statisticsWindow_data()
{
    QTest::addColumn<Times>("times");
    QTest::addColumn<qint64>("from");
    QTest::addColumn<qint64>("to");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("end");

    const Times t = evenTimes(5);  // 0, 10, 20, 30, 40
    QTest::newRow("20..40 covers 10 and 20") << t << qint64(20) << qint64(40) << 1 << 3;
    QTest::newRow("whole range leaves out the last two") << t << qint64(0) << qint64(40) << 0 << 3;
    QTest::newRow("beyond both ends leaves out the last one") << t << qint64(-5) << qint64(45) << 0 << 4;
    QTest::newRow("between samples") << t << qint64(15) << qint64(25) << 1 << 2;
    QTest::newRow("just after a sample") << t << qint64(21) << qint64(31) << 2 << 3;
    QTest::newRow("window before every sample: end is the count") << t << qint64(-20) << qint64(-10) << 0 << 5;
    QTest::newRow("window after every sample") << t << qint64(100) << qint64(200) << 4 << 4;
    QTest::newRow("equal times take the last") << Times{0, 10, 10, 10, 20} << qint64(11) << qint64(20) << 3 << 3;
    QTest::newRow("no samples") << Times{} << qint64(0) << qint64(100) << 0 << 0;
}

void TestChartCore::statisticsWindow()
{
    QFETCH(Times, times);
    QFETCH(qint64, from);
    QFETCH(qint64, to);
    QFETCH(int, first);
    QFETCH(int, end);
    auto model = std::make_unique<ChartModel>();
    fill(*model->data(0), times, Values{});
    const SampleWindow w = g_statisticsWindow(*model->data(0), from, to);
    QCOMPARE(w.first, first);
    QCOMPARE(w.end, end);
}

void TestChartCore::seriesStatistics_data()
{
    QTest::addColumn<Values>("values");
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("end");
    QTest::addColumn<bool>("valid");
    QTest::addColumn<double>("minimum");
    QTest::addColumn<double>("average");
    QTest::addColumn<double>("maximum");

    QTest::newRow("window only") << Values{-50, 3, 5, 50} << 1 << 3 << true << 3.0 << 4.0 << 5.0;
    QTest::newRow("missing values skipped") << Values{M, 4, M, 8} << 0 << 4 << true << 4.0 << 6.0 << 8.0;
    QTest::newRow("all missing") << Values{M, M} << 0 << 2 << false << 0.0 << 0.0 << 0.0;
    QTest::newRow("empty window") << Values{1, 2} << 1 << 1 << false << 0.0 << 0.0 << 0.0;
    QTest::newRow("end beyond this set's count is clamped") << Values{1, 2} << 0 << 5 << true << 1.0 << 1.5 << 2.0;
    QTest::newRow("sum in sample order") << Values{0.1, 0.2, 0.3} << 0 << 3 << true << 0.1
                                         << ((0.1 + 0.2) + 0.3) / 3 << 0.3;
    QTest::newRow("largest double reads as untouched")
        << Values{std::numeric_limits<double>::max()} << 0 << 1 << false << 0.0 << 0.0 << 0.0;
}

void TestChartCore::seriesStatistics()
{
    QFETCH(Values, values);
    QFETCH(int, first);
    QFETCH(int, end);
    QFETCH(bool, valid);
    QFETCH(double, minimum);
    QFETCH(double, average);
    QFETCH(double, maximum);
    auto model = std::make_unique<ChartModel>();
    fill(*model->data(3), evenTimes(values.size()), values);
    SampleWindow w;
    w.first = first;
    w.end = end;
    const SeriesStatistics s = g_seriesStatistics(*model->data(3), w);
    QCOMPARE(s.valid, valid);
    if (valid) {
        QV_COMPARE_DOUBLE(s.minimum, minimum);
        QV_COMPARE_DOUBLE(s.average, average);
        QV_COMPARE_DOUBLE(s.maximum, maximum);
    }
}

void TestChartCore::statisticsTexts()
{
    // The source texts, byte for byte (U+2300 DIAMETER SIGN in UTF-8).
    QCOMPARE(QByteArray(kLongStatisticsText), QByteArray(" (min %1 / \xE2\x8C\x80 %2 / max %3 %4)"));
    QCOMPARE(QByteArray(kShortStatisticsText), QByteArray(" (%1 / %2 / %3 %4)"));

    SeriesStatistics s;
    s.valid = true;
    s.minimum = 12.3;
    s.average = 18.75;
    s.maximum = 22.1;
    QCOMPARE(g_statisticsText(QString::fromUtf8(kLongStatisticsText), s, QStringLiteral("%1")),
             QString::fromUtf8(" (min 12.30 / ⌀ 18.75 / max 22.10 %1)"));
    s.minimum = -0.004;
    s.average = 1234567.891;
    s.maximum = 0.126;
    QCOMPARE(g_statisticsText(QString::fromUtf8(kShortStatisticsText), s, QString()),
             QStringLiteral(" (-0.00 / 1234567.89 / 0.13 )"));
}

void TestChartCore::seriesNames_data()
{
    QTest::addColumn<quint32>("flags");
    QTest::addColumn<Codes>("shownSets");
    QTest::addColumn<Values>("values1");  // data set 1 (data set 0 holds 1, 2, 3, 4, 99, -99)
    QTest::addColumn<qint64>("from");
    QTest::addColumn<qint64>("to");
    QTest::addColumn<Codes>("indices");
    QTest::addColumn<QStringList>("names");

    const Values v1{12.3, 21.85, 22.1, 18.75, 1000, -1000};
    QTest::newRow("long text first, short after")
        << 1u << Codes{0, 1} << v1 << qint64(0) << qint64(50) << Codes{0, 1}
        << QStringList{QString::fromUtf8("Temp (min 1.00 / ⌀ 2.50 / max 4.00 °C)"),
                       QStringLiteral("Hum (12.30 / 18.75 / 22.10 %rH)")};
    QTest::newRow("vaporix mode starts at the third series")
        << 3u << Codes{0, 1} << v1 << qint64(0) << qint64(50) << Codes{2, 3}
        << QStringList{QString::fromUtf8("Temp (min 1.00 / ⌀ 2.50 / max 4.00 °C)"),
                       QStringLiteral("Hum (12.30 / 18.75 / 22.10 %rH)")};
    QTest::newRow("hidden sets do not advance the index")
        << 1u << Codes{1, 2} << v1 << qint64(0) << qint64(50) << Codes{0, 1}
        << QStringList{QString::fromUtf8("Hum (min 12.30 / ⌀ 18.75 / max 22.10 %rH)"),
                       QStringLiteral("Dew (0.50 / 0.50 / 0.50 )")};
    QTest::newRow("all-invalid window keeps the plain name and passes the long text on")
        << 1u << Codes{1, 2} << Values{M, M, M, M, 5, 5} << qint64(0) << qint64(50) << Codes{0, 1}
        << QStringList{QStringLiteral("Hum"), QString::fromUtf8("Dew (min 0.50 / ⌀ 0.50 / max 0.50 )")};
    QTest::newRow("zoomed window, shifted one sample back")
        << 1u << Codes{0, 1} << v1 << qint64(20) << qint64(40) << Codes{0, 1}
        << QStringList{QString::fromUtf8("Temp (min 2.00 / ⌀ 2.50 / max 3.00 °C)"),
                       QStringLiteral("Hum (21.85 / 21.98 / 22.10 %rH)")};
}

void TestChartCore::seriesNames()
{
    QFETCH(quint32, flags);
    QFETCH(Codes, shownSets);
    QFETCH(Values, values1);
    QFETCH(qint64, from);
    QFETCH(qint64, to);
    QFETCH(Codes, indices);
    QFETCH(QStringList, names);

    auto model = std::make_unique<ChartModel>();
    settingsT &s = model->settings;
    s.dataSetCount = 3;
    s.flags = flags;
    setName(s, 0, "Temp", "\xB0" "C");
    setName(s, 1, "Hum", "%rH");
    setName(s, 2, "Dew", "");
    fill(*model->data(0), evenTimes(6), Values{1, 2, 3, 4, 99, -99});
    fill(*model->data(1), evenTimes(6), values1);
    fill(*model->data(2), evenTimes(6), Values{0.5, 0.5, 0.5, 0.5, 0.5, 0.5});
    for (quint32 &f : s.lineFlags)
        f &= ~kLineShown;
    for (int i : shownSets)
        s.lineFlags[i] |= kLineShown;

    const QVector<SeriesName> result = g_seriesNames(*model, from, to, QString::fromUtf8(kLongStatisticsText),
                                                     QString::fromUtf8(kShortStatisticsText));
    QCOMPARE(result.size(), names.size());
    for (int i = 0; i < result.size(); ++i) {
        QCOMPARE(result[i].seriesIndex, indices[i]);
        QCOMPARE(result[i].name, names[i]);
    }

    s.dataSetCount = 0;
    QVERIFY(g_seriesNames(*model, from, to, QString(), QString()).isEmpty());
}

QTEST_APPLESS_MAIN(TestChartCore)
#include "tst_chartcore.moc"

// The widget-free chart rules: group size, reduction into drawn points, the
// state bands, the drawability check and the legend statistics.
#include "chart/chartfixture.h"
#include "chart/chartplan.h"
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

// Fills a store; values beyond values.size() are 0.
void fill(_chartDataType &store, const Times &times, const Values &values)
{
    store.count = times.size();
    for (int k = 0; k < times.size(); ++k) {
        store.time[k] = times[k];
        store.value[k] = values.value(k);
    }
}

Times evenTimes(int count, qint64 start = 0, qint64 step = 10)
{
    Times t;
    for (int k = 0; k < count; ++k)
        t << start + k * step;
    return t;
}

// Exact texts of results: doubles to 17 digits, so equal texts mean equal bits.
QString pointsText(const Points &points)
{
    QStringList parts;
    for (const QPointF &p : points)
        parts << QStringLiteral("(%1, %2)").arg(p.x(), 0, 'g', 17).arg(p.y(), 0, 'g', 17);
    return parts.join(QLatin1Char(' '));
}

// "(time, value, state)" of the first n reduced points.
template <typename T, typename V, typename C>
QString reducedText(int n, const T &times, const V &values, const C &codes)
{
    QStringList parts;
    for (int j = 0; j < n; ++j)
        parts << QStringLiteral("(%1, %2, %3)").arg(times[j]).arg(values[j], 0, 'g', 17).arg(int(codes[j]));
    return parts.join(QLatin1Char(' '));
}

// The same for rows of a table; values and states not given are 0.
QString reducedText(const Times &times, Values values, Codes codes)
{
    values.resize(times.size());
    codes.resize(times.size());
    return reducedText(times.size(), times, values, codes);
}

}  // namespace

class TestChartCore : public QObject
{
    Q_OBJECT

private slots:
    void groupSize_data();
    void groupSize();
    void reduce_data();
    void reduce();
    void reduceClampsADamagedCount();
    void pointsAndBands_data();
    void pointsAndBands();
    void chartCheck_data();
    void chartCheck();
    void statistics_data();
    void statistics();
    void seriesNames_data();
    void seriesNames();
};

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
    QTest::newRow("4097 print") << 4097 << true << 1 << 2;
    QTest::newRow("negative count") << -5 << false << 1 << 1;
    QTest::newRow("largest count") << 0x7FFFFFFF << false << 1 << 1048065;
}

void TestChartCore::groupSize()
{
    QFETCH(int, samples);
    QFETCH(bool, forPrint);
    QFETCH(int, lineType);
    QFETCH(int, expected);
    QCOMPARE(g_groupSize(samples, forPrint, quint8(lineType)), expected);
}

void TestChartCore::reduce_data()
{
    QTest::addColumn<Times>("times");
    QTest::addColumn<Values>("values");
    QTest::addColumn<Codes>("modes");
    QTest::addColumn<qint64>("begin");
    QTest::addColumn<qint64>("end");
    QTest::addColumn<int>("group");
    QTest::addColumn<QString>("expected");

    const qint64 all = std::numeric_limits<qint64>::max();
    const qint64 none = std::numeric_limits<qint64>::min();
    QTest::newRow("exactly g samples give no point")
        << evenTimes(3) << Values{1, 2, 3} << Codes{} << none << all << 3 << QString();
    QTest::newRow("g + 1 samples give one point; state k + 1, sum in sample order")
        << evenTimes(4) << Values{0.1, 0.2, 0.3, 100} << Codes{0, 9, 0, 0} << none << all << 3
        << reducedText({10}, {((0.1 + 0.2) + 0.3) / 3}, {9});
    QTest::newRow("the last g samples are never drawn; state k + 2")
        << evenTimes(8) << Values{1, 1, 1, 1, 2, 2, 2, 2} << Codes{0, 1, 2, 3, 4, 5, 6, 7} << none << all << 4
        << reducedText({15}, {1}, {2});
    QTest::newRow("samples before the range advance one by one")
        << evenTimes(8) << Values{1, 2, 3, 4, 5, 6, 7, 8} << Codes{0, 1, 2, 3, 4, 5, 6, 7} << qint64(25) << all << 2
        << reducedText({35, 55}, {4.5, 6.5}, {4, 6});
    QTest::newRow("range bounds are inclusive") << evenTimes(8) << Values{1, 2, 3, 4, 5, 6, 7, 8} << Codes{}
                                                << qint64(10) << qint64(30) << 1
                                                << reducedText({10, 20, 30}, {2, 3, 4}, {});
    QTest::newRow("a missing value spoils its group only; time mean truncates")
        << Times{0, 0, 1, 1, 4, 7, 8} << Values{1, M, 3, 4, 5, 6, 7} << Codes{} << none << all << 2
        << reducedText({0, 1, 5}, {M, 3.5, 5.5}, {});
}

void TestChartCore::reduce()
{
    QFETCH(Times, times);
    QFETCH(Values, values);
    QFETCH(Codes, modes);
    QFETCH(qint64, begin);
    QFETCH(qint64, end);
    QFETCH(int, group);
    QFETCH(QString, expected);
    auto model = std::make_unique<ChartModel>();
    fill(*model->data(0), times, values);
    for (int k = 0; k < modes.size(); ++k)
        model->modeCodes()->code[k] = qint8(modes[k]);
    model->modeCodes()->count = modes.size();
    const int n = g_reduceSamples(*model->data(0), *model->modeCodes(), begin, end, group, *model->displayData(),
                                  *model->displayModeCodes());
    QCOMPARE(model->displayData()->count, n);
    QCOMPARE(model->displayModeCodes()->count, n);
    QCOMPARE(reducedText(n, model->displayData()->time, model->displayData()->value, model->displayModeCodes()->code),
             expected);
}

// A damaged count (from a damaged project) is clamped to the store.
void TestChartCore::reduceClampsADamagedCount()
{
    auto model = std::make_unique<ChartModel>();
    fill(*model->data(0), evenTimes(3, 0, 1000), Values{});  // the rest of the store reads time 0
    model->data(0)->count = 100000000;
    const int n = g_reduceSamples(*model->data(0), *model->modeCodes(), 1000, 2000, 1, *model->displayData(),
                                  *model->displayModeCodes());
    QCOMPARE(n, 2);
    QCOMPARE(model->displayData()->count, 2);
}

// The drawn points and the state bands over a reduced store (times 100,
// 200, ...).
void TestChartCore::pointsAndBands_data()
{
    QTest::addColumn<Values>("values");
    QTest::addColumn<Codes>("codes");
    QTest::addColumn<Points>("drawn");
    QTest::addColumn<Points>("upper");  // the lower band line is the upper one with each pair swapped
    QTest::newRow("missing inside skipped, at the ends drawn at 0; red, green, closed at the last point")
        << Values{M, 2, M, 4, M} << Codes{5, 5, 12, 12, 3} << Points{{100, 0}, {200, 2}, {400, 4}, {500, 0}}
        << Points{{100, 8197}, {100, 5}, {300, 12}, {300, 8204}, {500, 8195}, {500, 3}};
    QTest::newRow("all missing: only the ends; all red: the last point switches to green")
        << Values{M, M, M} << Codes{5, 5, 5} << Points{{100, 0}, {300, 0}}
        << Points{{100, 8197}, {100, 5}, {300, 5}, {300, 8197}};
    QTest::newRow("next integer above the marker is a value; 10 is red, 11 is green")
        << Values{1, 3131961358.0, 1, 1} << Codes{10, 11, 11, 11}
        << Points{{100, 1}, {200, 3131961358.0}, {300, 1}, {400, 1}}
        << Points{{100, 8202}, {100, 10}, {200, 11}, {200, 8203}, {400, 8203}, {400, 11}};
    QTest::newRow("single point opens green") << Values{7} << Codes{4} << Points{{100, 7}}
                                              << Points{{100, 4}, {100, 8196}};
}

void TestChartCore::pointsAndBands()
{
    QFETCH(Values, values);
    QFETCH(Codes, codes);
    QFETCH(Points, drawn);
    QFETCH(Points, upper);
    auto model = std::make_unique<ChartModel>();
    fill(*model->displayData(), evenTimes(codes.size(), 100, 100), values);
    for (int j = 0; j < codes.size(); ++j)
        model->displayModeCodes()->code[j] = qint8(codes[j]);
    model->displayModeCodes()->count = codes.size();
    Points points{{99, 99}};  // replaced, not appended to
    g_drawnPoints(*model->displayData(), points);
    QCOMPARE(pointsText(points), pointsText(drawn));
    StateBands bands;
    bands.upper << QPointF(1, 1);
    g_buildStateBands(*model->displayData(), *model->displayModeCodes(), bands);
    Points lower = upper;
    for (int j = 0; j + 1 < lower.size(); j += 2)
        std::swap(lower[j], lower[j + 1]);
    QCOMPARE(pointsText(bands.upper), pointsText(upper));
    QCOMPARE(pointsText(bands.lower), pointsText(lower));
}

void TestChartCore::chartCheck_data()
{
    QTest::addColumn<int>("dataSets");
    QTest::addColumn<Codes>("counts");     // sample count per data set
    QTest::addColumn<Codes>("shownSets");  // data sets with the shown bit
    QTest::addColumn<int>("expected");
    QTest::addColumn<int>("lead");
    const int ok = int(ChartCheck::Drawable);
    QTest::newRow("no data sets") << 0 << Codes{} << Codes{0} << int(ChartCheck::NoDataSets) << -1;
    QTest::newRow("7 samples block") << 1 << Codes{7} << Codes{0} << int(ChartCheck::TooFewSamples) << 0;
    QTest::newRow("7 samples in a hidden set block too")
        << 3 << Codes{100, 100, 7} << Codes{0} << int(ChartCheck::TooFewSamples) << 0;
    QTest::newRow("only an unused slot shown") << 2 << Codes{100, 100} << Codes{5} << int(ChartCheck::NothingShown)
                                               << -1;
    QTest::newRow("8 samples suffice, lead is the first shown") << 4 << Codes{8, 8, 8, 8} << Codes{2, 3} << ok << 2;
    QTest::newRow("damaged count is clamped to 16")
        << 1000 << Codes{8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8, 8} << Codes{15} << ok << 15;
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
    chartfixture::showOnly(*model, shownSets);
    QCOMPARE(int(g_checkChartData(*model)), expected);
    QCOMPARE(g_leadDataSet(*model), lead);
}

// The window on data set 0's time base and the statistics of data set 3
// (times 0, 10, ...) over it, as "first..end" and the short legend text.
void TestChartCore::statistics_data()
{
    QTest::addColumn<Times>("timeBase");
    QTest::addColumn<Values>("values");
    QTest::addColumn<qint64>("from");
    QTest::addColumn<qint64>("to");
    QTest::addColumn<QString>("expected");
    const Times t = evenTimes(5);
    const Values v{1, 2, 4, 8, 16};
    QTest::newRow("20..40 covers 10 and 20") << t << v << qint64(20) << qint64(40) << "1..3 (2.00 / 3.00 / 4.00 u)";
    QTest::newRow("whole range leaves out the last two") << t << v << qint64(0) << qint64(40)
                                                          << "0..3 (1.00 / 2.33 / 4.00 u)";
    QTest::newRow("beyond both ends leaves out the last one") << t << v << qint64(-5) << qint64(45)
                                                               << "0..4 (1.00 / 3.75 / 8.00 u)";
    QTest::newRow("equal times take the last") << Times{0, 10, 10, 10, 20} << v << qint64(11) << qint64(20) << "3..3 ";
    QTest::newRow("end beyond this set's count is clamped") << t << Values{1, 2} << qint64(0) << qint64(40)
                                                             << "0..3 (1.00 / 1.50 / 2.00 u)";
    QTest::newRow("missing values skipped") << t << Values{M, 4, M, 8, 0} << qint64(0) << qint64(45)
                                            << "0..4 (4.00 / 6.00 / 8.00 u)";
    QTest::newRow("all missing") << t << Values{M, M, M, M, 1} << qint64(0) << qint64(40) << "0..3 ";
    QTest::newRow("two decimals, no group separators") << t << Values{-0.004, 0.256, 1234567.891, 0, 0} << qint64(-5)
                                                        << qint64(35) << "0..3 (-0.00 / 411522.71 / 1234567.89 u)";
}

void TestChartCore::statistics()
{
    QFETCH(Times, timeBase);
    QFETCH(Values, values);
    QFETCH(qint64, from);
    QFETCH(qint64, to);
    QFETCH(QString, expected);
    auto model = std::make_unique<ChartModel>();
    fill(*model->data(0), timeBase, Values{});
    fill(*model->data(3), evenTimes(values.size()), values);
    const SampleWindow w = g_statisticsWindow(*model->data(0), from, to);
    const SeriesStatistics s = g_seriesStatistics(*model->data(3), w);
    const QString text =
        s.valid ? g_statisticsText(QString::fromUtf8(kShortStatisticsText), s, QStringLiteral("u")).mid(1) : QString();
    QCOMPARE(QStringLiteral("%1..%2 ").arg(w.first).arg(w.end) + text, expected);
}

// Legend names over chartfixture data sets (set 0 in degrees Celsius) with
// crafted values in set 1; the window is given in samples.
void TestChartCore::seriesNames_data()
{
    QTest::addColumn<quint32>("flags");
    QTest::addColumn<Codes>("shownSets");
    QTest::addColumn<Values>("values1");
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<int>("firstIndex");
    QTest::addColumn<QStringList>("names");
    const Values v1{12.3, 21.85, 22.1, 18.75, 1000, -1000};
    QTest::newRow("long text first, short after; vaporix mode starts at the third series")
        << 3u << Codes{0, 1} << v1 << 0 << 5 << 2
        << QStringList{QString::fromUtf8("Set 0 (min 0.00 / ⌀ 0.75 / max 1.50 °C)"),
                       QStringLiteral("Set 1 (12.30 / 18.75 / 22.10 u1)")};
    QTest::newRow("all-invalid window keeps the plain name and passes the long text on")
        << 1u << Codes{1, 2} << Values{M, M, M, M, 5, 5} << 0 << 5 << 0
        << QStringList{QStringLiteral("Set 1"), QString::fromUtf8("Set 2 (min 20.00 / ⌀ 20.75 / max 21.50 u2)")};
    QTest::newRow("zoomed window, shifted one sample back")
        << 1u << Codes{0, 1} << v1 << 2 << 4 << 0
        << QStringList{QString::fromUtf8("Set 0 (min 0.50 / ⌀ 0.75 / max 1.00 °C)"),
                       QStringLiteral("Set 1 (21.85 / 21.98 / 22.10 u1)")};
}

void TestChartCore::seriesNames()
{
    QFETCH(quint32, flags);
    QFETCH(Codes, shownSets);
    QFETCH(Values, values1);
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(int, firstIndex);
    QFETCH(QStringList, names);
    auto model = std::make_unique<ChartModel>();
    chartfixture::fill(*model, 3, 6);
    g_char2Buffer(model->settings.unit[0], "\xB0" "C", kUnitWidth);
    std::copy(values1.begin(), values1.end(), model->data(1)->value);
    model->settings.flags = flags;
    chartfixture::showOnly(*model, shownSets);
    const QVector<SeriesName> result =
        g_seriesNames(*model, chartfixture::timeOf(from), chartfixture::timeOf(to),
                      QString::fromUtf8(kLongStatisticsText), QString::fromUtf8(kShortStatisticsText));
    QStringList got;
    for (int i = 0; i < result.size(); ++i) {
        QCOMPARE(result[i].seriesIndex, firstIndex + i);
        got << result[i].name;
    }
    QCOMPARE(got, names);
    model->settings.dataSetCount = 0;
    QVERIFY(g_seriesNames(*model, 0, chartfixture::timeOf(5), QString(), QString()).isEmpty());
}

QTEST_APPLESS_MAIN(TestChartCore)
#include "tst_chartcore.moc"

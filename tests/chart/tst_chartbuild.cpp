// Chart building on a plain chart view: series, state bands, axes, fonts,
// legend and title.
#include "chart/chartbuilder.h"
#include "chart/chartfixture.h"
#include "chart/reduction.h"
#include "project/fixedstring.h"

#include <QtCharts/QAreaSeries>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QDateTimeAxis>
#include <QtCharts/QLegend>
#include <QtCharts/QLegendMarker>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>
#include <QtTest>

#include <memory>

using namespace QtCharts;
using namespace qv;
using chartfixture::timeOf;

using Ints = QVector<int>;

namespace {

QValueAxis *valueAxisOf(QAbstractSeries *series)
{
    for (QAbstractAxis *axis : series->attachedAxes()) {
        if (axis->orientation() == Qt::Vertical)
            return qobject_cast<QValueAxis *>(axis);
    }
    return nullptr;
}

// A chart view of a fixed size with a freshly built chart of the model; the
// band lines, which nobody else owns here, go with it.
struct Built {
    Built(ChartModel &model, int width = 1480, bool forPrint = false)
    {
        view.resize(width, 1000);
        build = g_buildChart(model, view.width(), forPrint);
        if (build.chart)
            g_installChart(&view, build.chart);
    }
    ~Built()
    {
        delete build.upperBand;
        delete build.lowerBand;
    }
    QChartView view;
    ChartBuild build;
};

std::unique_ptr<ChartModel> makeModel(int dataSets, int samples)
{
    auto model = std::make_unique<ChartModel>();
    chartfixture::fill(*model, dataSets, samples);
    return model;
}

}  // namespace

class TestChartBuild : public QObject
{
    Q_OBJECT

private slots:
    void seriesLayout_data();
    void seriesLayout();
    void reducedPoints();
    void valueAxes_data();
    void valueAxes();
    void legendAndFonts_data();
    void legendAndFonts();
};

void TestChartBuild::seriesLayout_data()
{
    QTest::addColumn<int>("lineType");
    QTest::addColumn<bool>("vaporix");
    QTest::addColumn<Ints>("shown");
    QTest::addColumn<Ints>("types");  // of the series in order
    const int area = QAbstractSeries::SeriesTypeArea;
    const int line = QAbstractSeries::SeriesTypeLine;
    const int spline = QAbstractSeries::SeriesTypeSpline;
    QTest::newRow("lines") << 1 << false << Ints{0, 1, 2} << Ints{line, line, line};
    QTest::newRow("splines") << 2 << false << Ints{1} << Ints{spline};
    QTest::newRow("other line type draws splines") << 0 << false << Ints{0} << Ints{spline};
    QTest::newRow("bands come before the lead series") << 1 << true << Ints{1, 3} << Ints{area, area, line, line};
}

void TestChartBuild::seriesLayout()
{
    QFETCH(int, lineType);
    QFETCH(bool, vaporix);
    QFETCH(Ints, shown);
    QFETCH(Ints, types);
    auto model = makeModel(4, 100);
    model->settings.lineType = quint8(lineType);
    chartfixture::showOnly(*model, shown);
    if (vaporix)
        chartfixture::setModes(*model, Ints{5, 12});
    Built b(*model);
    QCOMPARE(b.view.chart(), b.build.chart);
    const QList<QAbstractSeries *> series = b.build.chart->series();
    Ints actual;
    for (QAbstractSeries *s : series)
        actual << s->type();
    QCOMPARE(actual, types);
    QCOMPARE(b.build.dataSeries.size(), shown.size());
    const int first = vaporix ? 2 : 0;
    for (int j = 0; j < shown.size(); ++j) {
        QCOMPARE(b.build.dataSeries[j], series.at(first + j));
        QCOMPARE(b.build.dataSeries[j]->name(), QStringLiteral("Set %1 (D=)").arg(shown[j]));
        QCOMPARE(b.build.dataSeries[j]->pen().color().rgba(), model->settings.color[shown[j]]);
    }
    if (vaporix) {  // red under the lower band line, green under the upper, on one hidden 0..8200 axis
        auto *red = qobject_cast<QAreaSeries *>(series.at(0));
        auto *green = qobject_cast<QAreaSeries *>(series.at(1));
        QVERIFY(b.build.upperBand && red->upperSeries() == b.build.lowerBand && !red->lowerSeries());
        QVERIFY(b.build.lowerBand && green->upperSeries() == b.build.upperBand && !green->lowerSeries());
        QValueAxis *axis = valueAxisOf(red);
        QCOMPARE(valueAxisOf(green), axis);
        QCOMPARE(QPointF(axis->min(), axis->max()), QPointF(0, 8200));
        QVERIFY(!axis->isVisible() && !axis->isGridLineVisible());
    } else {
        QVERIFY(!b.build.upperBand && !b.build.lowerBand);
    }
    // Only the band markers are hidden; the bands and the lead data set
    // carry the time axis.
    const QList<QLegendMarker *> markers = b.build.chart->legend()->markers();
    QCOMPARE(markers.size(), series.size());
    const QList<QAbstractAxis *> horizontal = b.build.chart->axes(Qt::Horizontal);
    QCOMPARE(horizontal.size(), 1);
    for (int m = 0; m < markers.size(); ++m) {
        QCOMPARE(markers[m]->isVisible(), m >= first);
        QCOMPARE(series[m]->attachedAxes().contains(horizontal.first()), m <= first);
    }
    auto *time = qobject_cast<QDateTimeAxis *>(horizontal.first());
    QCOMPARE(time->format(), QStringLiteral("dd.MM.yyyy "));
    QVERIFY(time->isVisible() && time->alignment() == Qt::AlignBottom);
    QCOMPARE(double(time->min().toMSecsSinceEpoch()), b.build.dataSeries[0]->at(0).x());  // the first point
}

// 20000 samples in range: groups of 10 for every data set.
void TestChartBuild::reducedPoints()
{
    auto model = makeModel(4, 20000);
    model->data(1)->value[0] = kMissingValue;    // drawn at 0
    model->data(1)->value[301] = kMissingValue;  // its group is left out
    for (int k = 9; k < 20000; ++k)              // only 9 samples in range
        model->data(2)->time[k] += 10 * timeOf(20000);
    model->data(3)->count = 10;  // exactly g samples: no point
    Built b(*model);
    const double middle = 30000;  // half a minute: times 0..9 average to 4.5
    const QVector<QPointF> set0 = b.build.dataSeries[0]->pointsVector();
    QCOMPARE(set0.size(), 1999);  // k = 0, 10, ..., 19980 stops below 20000 - 10
    QCOMPARE(set0[0], QPointF(timeOf(4) + middle, 2.25));
    QCOMPARE(set0.last().x(), timeOf(19984) + middle);
    const QVector<QPointF> set1 = b.build.dataSeries[1]->pointsVector();
    QCOMPARE(set1.size(), 1998);
    QCOMPARE(set1[0].y(), 0.0);
    QCOMPARE(set1[30].x(), timeOf(314) + middle);
    QCOMPARE(b.build.dataSeries[2]->count(), 1);
    QCOMPARE(b.build.dataSeries[3]->count(), 0);
}

void TestChartBuild::valueAxes_data()
{
    QTest::addColumn<Ints>("lineFlags");   // of data sets 0..5
    QTest::addColumn<QString>("expected"); // per shown set: visible side format grid

    QTest::newRow("defaults: three left, three right")
        << Ints{3, 3, 3, 7, 7, 7}
        << QStringLiteral("shown left | %.0f grid; shown left | %.1f; shown left | %.2f; "
                          "shown right | %.0f; shown right | %.1f; shown right | %.2f");
    QTest::newRow("no axis bit: hidden but drawn")
        << Ints{1, 3, 5, 0, 7, 1}
        << QStringLiteral("hidden left | %.0f grid; shown left | %.1f; hidden right | %.2f; "
                          "shown right | %.1f; hidden left | %.2f");
    QTest::newRow("grid goes with the first shown set")
        << Ints{0, 0, 7, 3, 0, 0} << QStringLiteral("shown right | %.2f grid; shown left | %.0f");
}

void TestChartBuild::valueAxes()
{
    QFETCH(Ints, lineFlags);
    QFETCH(QString, expected);
    auto model = makeModel(6, 50);
    for (int i = 0; i < 6; ++i)
        model->settings.lineFlags[i] = quint32(lineFlags[i]);
    Built b(*model);
    QStringList described;
    int shownIndex = 0;
    for (int i = 0; i < 6; ++i) {
        if (!(lineFlags[i] & 1))
            continue;
        QValueAxis *axis = valueAxisOf(b.build.dataSeries.at(shownIndex++));
        QCOMPARE(axis->titleText(), QStringLiteral("u%1").arg(i));
        QCOMPARE(axis->min(), double(-i));
        QCOMPARE(axis->max(), double(100 + i));
        described << QStringLiteral("%1 %2 |%3%4")
                         .arg(QLatin1String(axis->isVisible() ? "shown" : "hidden"),
                              QLatin1String(axis->alignment() == Qt::AlignRight ? "right" : "left"),
                              axis->labelFormat(), QLatin1String(axis->isGridLineVisible() ? " grid" : ""));
    }
    QCOMPARE(described.join(QStringLiteral("; ")), expected);
    QCOMPARE(b.build.chart->axes(Qt::Vertical).size(), b.build.dataSeries.size());
}

void TestChartBuild::legendAndFonts_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("position");
    QTest::addColumn<int>("alignment");  // 0: legend hidden
    QTest::addColumn<Ints>("fonts");     // legend W/148, title W/80, axis W/140
    QTest::addColumn<bool>("titleShown");
    QTest::newRow("1480, top") << 1480 << 1 << int(Qt::AlignTop) << Ints{10, 18, 10} << true;
    QTest::newRow("740, right") << 740 << 2 << int(Qt::AlignRight) << Ints{5, 9, 5} << true;
    QTest::newRow("2959, bottom, no title") << 2959 << 3 << int(Qt::AlignBottom) << Ints{19, 36, 21} << false;
    QTest::newRow("below 148: never 0 points, left") << 140 << 4 << int(Qt::AlignLeft) << Ints{1, 1, 1} << true;
    QTest::newRow("position 0 hides") << 1480 << 0 << 0 << Ints{10, 18, 10} << true;
    QTest::newRow("position 5 hides") << 1480 << 5 << 0 << Ints{10, 18, 10} << true;
}

void TestChartBuild::legendAndFonts()
{
    QFETCH(int, width);
    QFETCH(int, position);
    QFETCH(int, alignment);
    QFETCH(Ints, fonts);
    QFETCH(bool, titleShown);
    auto model = makeModel(2, 50);
    if (!titleShown)
        model->settings.flags &= ~kFlagShowTitle;
    chartfixture::setModes(*model, Ints{2});
    model->settings.legendPosition = quint8(position);
    g_char2Buffer(model->settings.description, "Cellar", kDescriptionWidth);
    Built b(*model, width);
    QChart *chart = b.build.chart;
    QCOMPARE(chart->title(), titleShown ? QStringLiteral("Cellar") : QString());
    QCOMPARE(chart->legend()->isVisible(), alignment != 0);
    if (alignment != 0)
        QCOMPARE(int(chart->legend()->alignment()), alignment);
    QCOMPARE(chart->legend()->font().pointSize(), fonts[0]);
    QCOMPARE(chart->titleFont().pointSize(), fonts[1]);
    for (QAbstractAxis *a : chart->axes()) {
        QCOMPARE(a->labelsFont().pointSize(), fonts[2]);
        if (a->orientation() == Qt::Vertical)
            QCOMPARE(a->titleFont().pointSize(), fonts[2]);
    }
}

QTEST_MAIN(TestChartBuild)
#include "tst_chartbuild.moc"

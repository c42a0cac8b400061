// Chart building on a plain chart view: series, state bands, axes, fonts,
// legend, print styling, zoom restore and legend statistics.
#include "support/testsupport.h"

#include "chart/chartbuilder.h"
#include "chart/chartfixture.h"
#include "chart/chartplan.h"
#include "chart/reduction.h"
#include "chart/stateband.h"
#include "project/fixedstring.h"

#include <QtCharts/QAreaSeries>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QDateTimeAxis>
#include <QtCharts/QLegend>
#include <QtCharts/QLegendMarker>
#include <QtCharts/QLineSeries>
#include <QtCharts/QSplineSeries>
#include <QtCharts/QValueAxis>
#include <QtTest>

#include <memory>

using namespace QtCharts;
using namespace qv;
using chartfixture::timeOf;

using Ints = QVector<int>;

namespace {

QString layoutOf(QChart *chart)
{
    QStringList parts;
    for (QAbstractSeries *s : chart->series()) {
        switch (s->type()) {
        case QAbstractSeries::SeriesTypeArea: parts << QStringLiteral("area"); break;
        case QAbstractSeries::SeriesTypeLine: parts << QStringLiteral("line"); break;
        case QAbstractSeries::SeriesTypeSpline: parts << QStringLiteral("spline"); break;
        default: parts << QStringLiteral("other"); break;
        }
    }
    return parts.join(QLatin1Char(' '));
}

QValueAxis *valueAxisOf(QAbstractSeries *series)
{
    for (QAbstractAxis *axis : series->attachedAxes()) {
        if (axis->orientation() == Qt::Vertical)
            return qobject_cast<QValueAxis *>(axis);
    }
    return nullptr;
}

// A chart view of a fixed size with a freshly built chart of the model.
struct Built {
    std::unique_ptr<QChartView> view;
    ChartBuild build;
};

Built buildInView(ChartModel &model, int width = 1480, bool forPrint = false)
{
    Built b;
    b.view = std::make_unique<QChartView>();
    b.view->resize(width, 1000);
    b.build = g_buildChart(model, b.view->width(), forPrint);
    if (b.build.chart)
        g_installChart(b.view.get(), b.build.chart);
    return b;
}

}  // namespace

class TestChartBuild : public QObject
{
    Q_OBJECT

private slots:
    void seriesLayout_data();
    void seriesLayout();
    void reducedPoints();
    void dataSetOfExactlyGroupSizeIsEmpty();
    void stateBands();
    void valueAxes_data();
    void valueAxes();
    void timeAxis();
    void legend_data();
    void legend();
    void fontsFollowWidth_data();
    void fontsFollowWidth();
    void printStyling();
    void zoomRestore();
};

void TestChartBuild::seriesLayout_data()
{
    QTest::addColumn<int>("lineType");
    QTest::addColumn<bool>("vaporix");
    QTest::addColumn<Ints>("shown");
    QTest::addColumn<QString>("layout");
    QTest::addColumn<QStringList>("names");  // of the data series, in order

    QTest::newRow("lines") << 1 << false << Ints{0, 1, 2} << QStringLiteral("line line line")
                           << QStringList{QStringLiteral("Set 0 (D=)"), QStringLiteral("Set 1 (D=)"),
                                          QStringLiteral("Set 2 (D=)")};
    QTest::newRow("splines") << 2 << false << Ints{1} << QStringLiteral("spline")
                             << QStringList{QStringLiteral("Set 1 (D=)")};
    QTest::newRow("other line type draws splines") << 0 << false << Ints{0} << QStringLiteral("spline")
                                                   << QStringList{QStringLiteral("Set 0 (D=)")};
    QTest::newRow("bands come before the lead series")
        << 1 << true << Ints{1, 3} << QStringLiteral("area area line line")
        << QStringList{QStringLiteral("Set 1 (D=)"), QStringLiteral("Set 3 (D=)")};
    QTest::newRow("bands with splines") << 2 << true << Ints{0} << QStringLiteral("area area spline")
                                        << QStringList{QStringLiteral("Set 0 (D=)")};
}

void TestChartBuild::seriesLayout()
{
    QFETCH(int, lineType);
    QFETCH(bool, vaporix);
    QFETCH(Ints, shown);
    QFETCH(QString, layout);
    QFETCH(QStringList, names);

    auto model = std::make_unique<ChartModel>();
    chartfixture::fill(*model, 4, 100);
    model->settings.lineType = quint8(lineType);
    chartfixture::showOnly(*model, shown);
    if (vaporix)
        chartfixture::setModes(*model, Ints{5, 12});

    Built b = buildInView(*model);
    QVERIFY(b.build.chart);
    QCOMPARE(b.view->chart(), b.build.chart);
    QCOMPARE(layoutOf(b.build.chart), layout);
    QCOMPARE(b.build.dataSeries.size(), names.size());
    const int first = vaporix ? 2 : 0;
    for (int j = 0; j < names.size(); ++j) {
        QCOMPARE(b.build.dataSeries[j], b.build.chart->series().at(first + j));
        QCOMPARE(b.build.dataSeries[j]->name(), names[j]);
        const int set = shown[j];
        QCOMPARE(b.build.dataSeries[j]->pen().color().rgba(), model->settings.color[set]);
        QCOMPARE(b.build.dataSeries[j]->pen().width(), 1);
    }
    QCOMPARE(b.build.upperBand != nullptr, vaporix);
    QCOMPARE(b.build.lowerBand != nullptr, vaporix);

    // Only the band markers are hidden.
    const QList<QLegendMarker *> markers = b.build.chart->legend()->markers();
    QCOMPARE(markers.size(), b.build.chart->series().size());
    for (int m = 0; m < markers.size(); ++m)
        QCOMPARE(markers[m]->isVisible(), m >= first);

    delete b.build.upperBand;
    delete b.build.lowerBand;
}

void TestChartBuild::reducedPoints()
{
    // 5000 samples in range: groups of 3. Data set 1 has a missing first
    // sample and one missing in the middle; data set 2 is outside the range
    // except for its first 9 samples.
    auto model = std::make_unique<ChartModel>();
    chartfixture::fill(*model, 3, 5000);
    model->data(1)->value[0] = kMissingValue;
    model->data(1)->value[301] = kMissingValue;
    for (int k = 0; k < 5000; ++k)
        model->data(2)->time[k] = k < 9 ? timeOf(k) : timeOf(k) + 10 * timeOf(5000);
    Built b = buildInView(*model);
    QVERIFY(b.build.chart);

    const QVector<QPointF> set0 = b.build.dataSeries[0]->pointsVector();
    QCOMPARE(set0.size(), 1666);  // k = 0, 3, ..., 4995 stops below 5000 - 3
    QCOMPARE(set0[0], QPointF(double(timeOf(1)), (0.0 + 0.5 + 1.0) / 3));
    QCOMPARE(set0[1665].x(), double(timeOf(4996)));

    const QVector<QPointF> set1 = b.build.dataSeries[1]->pointsVector();
    QCOMPARE(set1.size(), 1665);  // the group 300..302 is left out
    QCOMPARE(set1[0], QPointF(double(timeOf(1)), 0.0));
    QCOMPARE(set1[99].x(), double(timeOf(298)));
    QCOMPARE(set1[100].x(), double(timeOf(304)));

    const QVector<QPointF> set2 = b.build.dataSeries[2]->pointsVector();
    QCOMPARE(set2.size(), 3);
    QCOMPARE(set2[2].x(), double(timeOf(7)));
}

void TestChartBuild::dataSetOfExactlyGroupSizeIsEmpty()
{
    // Data set 0 sets the group size: 20000 samples in range give g = 10.
    auto model = std::make_unique<ChartModel>();
    chartfixture::fill(*model, 3, 20000);
    model->data(1)->count = 10;
    model->data(2)->count = 11;
    QCOMPARE(g_groupSize(model->settings.rangeSampleCount, false, 1), 10);
    Built b = buildInView(*model);
    QCOMPARE(b.build.dataSeries.size(), 3);
    QCOMPARE(b.build.dataSeries[1]->count(), 0);
    QCOMPARE(b.build.dataSeries[2]->count(), 1);
}

void TestChartBuild::stateBands()
{
    // Codes 5, 5, 12, 12, 3 over the lead data set 1 (data set 0 hidden).
    auto model = std::make_unique<ChartModel>();
    chartfixture::fill(*model, 2, 8);
    chartfixture::setModes(*model, Ints{5, 5, 12, 12, 3, 3, 3, 3});
    chartfixture::showOnly(*model, Ints{1});
    model->settings.rangeEnd = timeOf(4);
    model->recountRange();

    Built b = buildInView(*model);
    QVERIFY(b.build.upperBand && b.build.lowerBand);
    const double t[] = {double(timeOf(0)), double(timeOf(2)), double(timeOf(4))};
    const QVector<QPointF> upper{{t[0], 8197}, {t[0], 5}, {t[1], 12}, {t[1], 8204}, {t[2], 8195}, {t[2], 3}};
    const QVector<QPointF> lower{{t[0], 5}, {t[0], 8197}, {t[1], 8204}, {t[1], 12}, {t[2], 3}, {t[2], 8195}};
    QCOMPARE(b.build.upperBand->pointsVector(), upper);
    QCOMPARE(b.build.lowerBand->pointsVector(), lower);

    auto *red = qobject_cast<QAreaSeries *>(b.build.chart->series().at(0));
    auto *green = qobject_cast<QAreaSeries *>(b.build.chart->series().at(1));
    QVERIFY(red && green);
    QCOMPARE(red->upperSeries(), b.build.lowerBand);
    QCOMPARE(green->upperSeries(), b.build.upperBand);
    QVERIFY(!red->lowerSeries() && !green->lowerSeries());
    QCOMPARE(red->brush().color().rgba(), 0xFFFFC0C0u);
    QCOMPARE(red->brush().style(), Qt::SolidPattern);
    QCOMPARE(red->borderColor().rgba(), 0xFFFFC0C0u);
    QCOMPARE(green->brush().color().rgba(), 0xFFC0FFC0u);
    QCOMPARE(green->borderColor().rgba(), 0xFFC0FFC0u);

    // The hidden band axis on the right scales both areas.
    for (QAreaSeries *band : {red, green}) {
        QCOMPARE(band->attachedAxes().size(), 2);
        auto *axis = valueAxisOf(band);
        QVERIFY(axis);
        QCOMPARE(axis->labelFormat(), QStringLiteral(" %i"));
        QCOMPARE(axis->min(), 0.0);
        QCOMPARE(axis->max(), 8200.0);
        QCOMPARE(axis->tickCount(), 21);
        QVERIFY(!axis->isVisible());
        QVERIFY(!axis->isGridLineVisible());
        QVERIFY(!axis->isLineVisible());
        QCOMPARE(axis->alignment(), Qt::AlignRight);
    }
    delete b.build.upperBand;
    delete b.build.lowerBand;
}

void TestChartBuild::valueAxes_data()
{
    QTest::addColumn<Ints>("lineFlags");  // of data sets 0..5
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
    auto model = std::make_unique<ChartModel>();
    chartfixture::fill(*model, 6, 50);
    for (int i = 0; i < 6; ++i)
        model->settings.lineFlags[i] = quint32(lineFlags[i]);
    Built b = buildInView(*model);
    QVERIFY(b.build.chart);

    QStringList described;
    int shownIndex = 0;
    for (int i = 0; i < 6; ++i) {
        if (!(lineFlags[i] & 1))
            continue;
        QXYSeries *series = b.build.dataSeries.at(shownIndex++);
        QValueAxis *axis = valueAxisOf(series);
        QVERIFY(axis);
        QCOMPARE(axis->titleText(), QStringLiteral("u%1").arg(i));
        QCOMPARE(axis->min(), double(-i));
        QCOMPARE(axis->max(), double(100 + i));
        QCOMPARE(axis->tickCount(), 21);
        QVERIFY(!axis->isLineVisible());
        described << QStringLiteral("%1 %2 |%3%4")
                         .arg(axis->isVisible() ? QStringLiteral("shown") : QStringLiteral("hidden"),
                              axis->alignment() == Qt::AlignRight ? QStringLiteral("right") : QStringLiteral("left"),
                              axis->labelFormat(),
                              axis->isGridLineVisible() ? QStringLiteral(" grid") : QString());
    }
    QCOMPARE(described.join(QStringLiteral("; ")), expected);
    QCOMPARE(b.build.chart->series().size(), b.build.dataSeries.size());
    QCOMPARE(b.build.chart->axes(Qt::Vertical).size(), b.build.dataSeries.size());
}

void TestChartBuild::timeAxis()
{
    auto model = std::make_unique<ChartModel>();
    chartfixture::fill(*model, 3, 50);
    chartfixture::setModes(*model, Ints{1, 11});
    chartfixture::showOnly(*model, Ints{1, 2});
    Built b = buildInView(*model);

    const QList<QAbstractAxis *> horizontal = b.build.chart->axes(Qt::Horizontal);
    QCOMPARE(horizontal.size(), 1);
    auto *axis = qobject_cast<QDateTimeAxis *>(horizontal.first());
    QVERIFY(axis);
    QCOMPARE(axis->format(), QStringLiteral("dd.MM.yyyy "));
    QCOMPARE(axis->labelsAngle(), 270);
    QCOMPARE(axis->tickCount(), 31);
    QCOMPARE(axis->alignment(), Qt::AlignBottom);
    QVERIFY(axis->isVisible());

    // The lead data set and the two bands carry it; the other series do not.
    QList<QAbstractSeries *> carriers;
    for (QAbstractSeries *s : b.build.chart->series()) {
        if (s->attachedAxes().contains(axis))
            carriers << s;
    }
    QCOMPARE(carriers.size(), 3);
    QCOMPARE(carriers[0], b.build.chart->series().at(0));
    QCOMPARE(carriers[1], b.build.chart->series().at(1));
    QCOMPARE(carriers[2], static_cast<QAbstractSeries *>(b.build.dataSeries.first()));
    QCOMPARE(b.build.dataSeries[1]->attachedAxes().size(), 1);
    QCOMPARE(axis->min().toMSecsSinceEpoch(), timeOf(0));
    delete b.build.upperBand;
    delete b.build.lowerBand;
}

void TestChartBuild::legend_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<bool>("visible");
    QTest::addColumn<int>("alignment");

    QTest::newRow("0 hidden") << 0 << false << 0;
    QTest::newRow("1 top") << 1 << true << int(Qt::AlignTop);
    QTest::newRow("2 right") << 2 << true << int(Qt::AlignRight);
    QTest::newRow("3 bottom") << 3 << true << int(Qt::AlignBottom);
    QTest::newRow("4 left") << 4 << true << int(Qt::AlignLeft);
    QTest::newRow("5 hidden") << 5 << false << 0;
}

void TestChartBuild::legend()
{
    QFETCH(int, position);
    QFETCH(bool, visible);
    QFETCH(int, alignment);
    auto model = std::make_unique<ChartModel>();
    chartfixture::fill(*model, 1, 50);
    model->settings.legendPosition = quint8(position);
    Built b = buildInView(*model);
    QCOMPARE(b.build.chart->legend()->isVisible(), visible);
    if (visible)
        QCOMPARE(int(b.build.chart->legend()->alignment()), alignment);
}

void TestChartBuild::fontsFollowWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("legend");
    QTest::addColumn<int>("title");
    QTest::addColumn<int>("axis");

    QTest::newRow("1480") << 1480 << 10 << 18 << 10;
    QTest::newRow("740") << 740 << 5 << 9 << 5;
    QTest::newRow("2959") << 2959 << 19 << 36 << 21;
    QTest::newRow("below 148: never 0 points") << 140 << 1 << 1 << 1;
}

void TestChartBuild::fontsFollowWidth()
{
    QFETCH(int, width);
    QFETCH(int, legend);
    QFETCH(int, title);
    QFETCH(int, axis);
    auto model = std::make_unique<ChartModel>();
    chartfixture::fill(*model, 2, 50);
    chartfixture::setModes(*model, Ints{2});
    g_char2Buffer(model->settings.description, "Cellar", kDescriptionWidth);
    Built b = buildInView(*model, width);
    QChart *chart = b.build.chart;
    QCOMPARE(chart->title(), QStringLiteral("Cellar"));
    QCOMPARE(chart->legend()->font().pointSize(), legend);
    QCOMPARE(chart->titleFont().pointSize(), title);
    for (QAbstractAxis *a : chart->axes()) {
        QCOMPARE(a->labelsFont().pointSize(), axis);
        if (a->orientation() == Qt::Vertical)
            QCOMPARE(a->titleFont().pointSize(), axis);
    }
    delete b.build.upperBand;
    delete b.build.lowerBand;
}

void TestChartBuild::printStyling()
{
    auto model = std::make_unique<ChartModel>();
    chartfixture::fill(*model, 2, 10000);
    model->settings.lineWidth[0] = 1;
    model->settings.lineWidth[1] = 3;
    model->settings.flags &= ~kFlagShowTitle;
    g_char2Buffer(model->settings.description, "Hidden title", kDescriptionWidth);

    Built screen = buildInView(*model, 1400, false);
    Built print = buildInView(*model, 1400, true);
    QCOMPARE(screen.build.chart->title(), QString());
    QCOMPARE(screen.build.dataSeries[0]->pen().width(), 1);
    QCOMPARE(screen.build.dataSeries[1]->pen().width(), 3);
    QCOMPARE(print.build.dataSeries[0]->pen().width(), 4);
    QCOMPARE(print.build.dataSeries[1]->pen().width(), 12);
    // Twice the points on paper: 10000 samples give g = 5 on screen, 3 in print.
    QCOMPARE(screen.build.dataSeries[0]->count(), 1999);
    QCOMPARE(print.build.dataSeries[0]->count(), 3333);

    auto *time = print.build.chart->axes(Qt::Horizontal).first();
    QCOMPARE(time->gridLinePen().width(), 2);
    QCOMPARE(time->linePen().width(), 2);
    QCOMPARE(valueAxisOf(print.build.dataSeries[0])->gridLinePen().width(), 2);
    QVERIFY(screen.build.chart->axes(Qt::Horizontal).first()->gridLinePen().width() != 2);
    QVERIFY(valueAxisOf(screen.build.dataSeries[0])->gridLinePen().width() != 2);
    // Colours and the rest of the pens stay the theme's.
    QCOMPARE(time->gridLinePen().color(), screen.build.chart->axes(Qt::Horizontal).first()->gridLinePen().color());
}

void TestChartBuild::zoomRestore()
{
    auto model = std::make_unique<ChartModel>();
    chartfixture::fill(*model, 2, 1000);
    settingsT &s = model->settings;
    Built b = buildInView(*model);

    // The view need not be on screen: the plot area follows its size.
    // Not zoomed: the whole range, the chart untouched.
    QVERIFY(!g_restoreZoom(b.build.chart, b.build.dataSeries.first(), s));
    QVERIFY(!b.build.chart->isZoomed());

    // Zoomed to samples 250..750: the time axis shows that window, to within
    // a pixel's worth of time.
    s.viewBegin = timeOf(250);
    s.viewEnd = timeOf(750);
    Built z = buildInView(*model);
    QVERIFY(g_restoreZoom(z.build.chart, z.build.dataSeries.first(), s));
    QVERIFY(z.build.chart->isZoomed());
    auto *time = qobject_cast<QDateTimeAxis *>(z.build.chart->axes(Qt::Horizontal).first());
    const double pixel = double(s.rangeEnd - s.rangeBegin) / z.build.chart->plotArea().width();
    QVERIFY2(qAbs(double(time->min().toMSecsSinceEpoch() - timeOf(250))) <= pixel,
             qPrintable(time->min().toString(Qt::ISODateWithMs)));
    QVERIFY2(qAbs(double(time->max().toMSecsSinceEpoch() - timeOf(750))) <= pixel,
             qPrintable(time->max().toString(Qt::ISODateWithMs)));
    // Value axes keep their ranges.
    QCOMPARE(valueAxisOf(z.build.dataSeries[1])->min(), -1.0);
    QCOMPARE(valueAxisOf(z.build.dataSeries[1])->max(), 101.0);
}

QTEST_MAIN(TestChartBuild)
#include "tst_chartbuild.moc"

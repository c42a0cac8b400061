// The chart widget's display members: m_displayChart on itself and on a print
// view, the early returns that keep the previous chart, deferred release of
// charts and band lines, the row check boxes (s_enableLine), zoom restore
// and the legend statistics.
#include "support/testsupport.h"

#include "chart/chartfixture.h"
#include "project/qvchartclass.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QLabel>
#include <QPointer>
#include <QtCharts/QAreaSeries>
#include <QtCharts/QChart>
#include <QtCharts/QDateTimeAxis>
#include <QtCharts/QLegend>
#include <QtCharts/QLineSeries>
#include <QtTest>

#include <memory>

using namespace QtCharts;
using namespace qv;
using chartfixture::timeOf;

using Ints = QVector<int>;

namespace {

// The widget with its row panel, rows shown and connected as after an import.
struct Widget {
    std::unique_ptr<QWidget> panel;  // outlives the chart, which deletes its rows
    std::unique_ptr<QVChartClass> chart;

    explicit Widget(int dataSets, int samples, bool modes)
    {
        panel = std::make_unique<QWidget>();
        auto *grid = new QGridLayout(panel.get());
        QString dir;
        chart = std::make_unique<QVChartClass>(nullptr, &dir, &dir, grid);
        chart->resize(1480, 1046);
        chartfixture::fill(chart->model(), dataSets, samples);
        if (modes) {
            chartfixture::setModes(chart->model(), Ints{5, 5, 12, 12, 3});
            chart->model().showModeBox();
        }
        chart->model().activateRows();
        showRows();
    }

    void showRows()
    {
        ChartModel &m = chart->model();
        for (int i = 0; i < kMaxDataSets; ++i) {
            if (!m.row[i].enabled)
                continue;
            QCheckBox *box = chart->enableBox[i];
            box->setEnabled(true);
            box->setChecked(m.row[i].checked);
            QObject::connect(box, &QCheckBox::stateChanged, chart.get(), &QVChartClass::s_enableLine,
                             Qt::UniqueConnection);
        }
        if (m.modeBoxVisible) {
            chart->modeBox->setVisible(true);
            chart->modeBox->setChecked(m.modeBoxChecked);
            QObject::connect(chart->modeBox, &QCheckBox::stateChanged, chart.get(), &QVChartClass::s_enableLine,
                             Qt::UniqueConnection);
        }
    }

    QStringList names() const
    {
        QStringList n;
        for (QAbstractSeries *s : chart->chart()->series())
            n << s->name();
        return n;
    }

    quint32 shownBits() const
    {
        quint32 bits = 0;
        for (int i = 0; i < chart->model().usedDataSets(); ++i) {
            if (chart->settings.lineFlags[i] & kLineShown)
                bits |= 1u << i;
        }
        return bits;
    }

    quint32 tickedBoxes() const
    {
        quint32 bits = 0;
        for (int i = 0; i < kMaxDataSets; ++i) {
            if (chart->enableBox[i]->isChecked())
                bits |= 1u << i;
        }
        return bits;
    }
};

void releaseDeferred()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

}  // namespace

class TestChartWidget : public QObject
{
    Q_OBJECT

private slots:
    void emptyWidgetDrawsNothing();
    void displayOnTheWidget();
    void earlyReturnsKeepThePreviousChart_data();
    void earlyReturnsKeepThePreviousChart();
    void rebuildReleasesOldChartAndBands();
    void printBuildLeavesTheScreenChart();
    void enableLine_data();
    void enableLine();
    void modeBoxSwitchesBands();
    void repeatedConnectionsLeaveTheSameChart();
    void zoomWindowSurvivesRebuild();
    void minMaxAvgFollowsTheWindow();
};

void TestChartWidget::emptyWidgetDrawsNothing()
{
    QWidget panel;
    auto *grid = new QGridLayout(&panel);
    QString dir;
    auto w = std::make_unique<QVChartClass>(nullptr, &dir, &dir, grid);
    QChart *before = w->chart();
    w->m_displayChart(w.get(), false);
    QCOMPARE(w->chart(), before);
    QVERIFY(!before || before->series().isEmpty());
    QVERIFY(!w->modeSeries && !w->modeSeries2);
    w.reset();
}

void TestChartWidget::displayOnTheWidget()
{
    Widget w(6, 500, true);
    w.chart->m_displayChart(w.chart.get(), false);
    QChart *chart = w.chart->chart();
    QCOMPARE(chart->series().size(), 8);
    QVERIFY(chart->acceptHoverEvents());
    QVERIFY(w.chart->renderHints() & QPainter::Antialiasing);
    QVERIFY(w.chart->modeSeries && w.chart->modeSeries2);
    QCOMPARE(qobject_cast<QAreaSeries *>(chart->series().at(0))->upperSeries(), w.chart->modeSeries2);
    QCOMPARE(qobject_cast<QAreaSeries *>(chart->series().at(1))->upperSeries(), w.chart->modeSeries);
    QCOMPARE(chart->legend()->font().pointSize(), 1480 / 148);  // the widget's own width
    // Statistics over the whole range: samples 0..497.
    const QStringList names = w.names();
    QCOMPARE(names[0], QString());
    QCOMPARE(names[2], QString::fromUtf8("Set 0 (min 0.00 / ⌀ 4.73 / max 9.50 u0)"));
    QCOMPARE(names[3], QStringLiteral("Set 1 (10.00 / 14.73 / 19.50 u1)"));
}

void TestChartWidget::earlyReturnsKeepThePreviousChart_data()
{
    QTest::addColumn<QString>("damage");
    QTest::newRow("7 samples in one data set") << QStringLiteral("count");
    QTest::newRow("no data sets") << QStringLiteral("none");
    QTest::newRow("nothing shown") << QStringLiteral("hidden");
}

void TestChartWidget::earlyReturnsKeepThePreviousChart()
{
    QFETCH(QString, damage);
    Widget w(3, 100, true);
    w.chart->m_displayChart(w.chart.get(), false);
    releaseDeferred();
    QPointer<QChart> chart = w.chart->chart();
    QPointer<QLineSeries> upper = w.chart->modeSeries;
    QPointer<QLineSeries> lower = w.chart->modeSeries2;
    const QStringList names = w.names();

    ChartModel &m = w.chart->model();
    if (damage == QLatin1String("count"))
        m.data(2)->count = 7;
    else if (damage == QLatin1String("none"))
        m.settings.dataSetCount = 0;
    else
        chartfixture::showOnly(m, Ints{});
    w.chart->m_displayChart(w.chart.get(), false);
    releaseDeferred();

    QVERIFY(chart);
    QCOMPARE(w.chart->chart(), chart.data());
    QCOMPARE(w.names(), names);
    QVERIFY(upper && lower);
    QCOMPARE(w.chart->modeSeries, upper.data());
    QCOMPARE(w.chart->modeSeries2, lower.data());
}

void TestChartWidget::rebuildReleasesOldChartAndBands()
{
    Widget w(2, 100, true);
    w.chart->m_displayChart(w.chart.get(), false);
    QPointer<QChart> old = w.chart->chart();
    QPointer<QLineSeries> upper = w.chart->modeSeries;
    QPointer<QLineSeries> lower = w.chart->modeSeries2;
    w.chart->m_displayChart(w.chart.get(), false);
    QVERIFY(w.chart->chart() != old);
    QVERIFY(w.chart->modeSeries != upper && w.chart->modeSeries2 != lower);
    QVERIFY(old && upper && lower);  // deferred, never at once
    releaseDeferred();
    QVERIFY(!old && !upper && !lower);
    QVERIFY(w.chart->modeSeries && w.chart->modeSeries2);
    QCOMPARE(w.chart->chart()->series().size(), 4);
    // The new chart paints with its own band lines.
    QVERIFY(!w.chart->grab().isNull());
}

void TestChartWidget::printBuildLeavesTheScreenChart()
{
    Widget w(2, 10000, true);
    // States that hold for a while, as recorded: 700 samples off, 300 on.
    QVector<int> codes(1000, 5);
    std::fill(codes.begin() + 700, codes.end(), 12);
    chartfixture::setModes(w.chart->model(), codes);
    w.chart->m_displayChart(w.chart.get(), false);
    QChart *screen = w.chart->chart();

    QChartView printView;
    printView.resize(2000, 1400);
    w.chart->m_displayChart(&printView, true);
    QChart *print = printView.chart();
    QCOMPARE(w.chart->chart(), screen);
    QCOMPARE(print->series().size(), 4);
    QVERIFY(!print->acceptHoverEvents());
    auto *lead = qobject_cast<QXYSeries *>(print->series().at(2));
    QCOMPARE(lead->pen().width(), 4);
    QCOMPARE(lead->count(), 3333);  // 4096 points at most on paper
    QCOMPARE(qobject_cast<QXYSeries *>(screen->series().at(2))->count(), 1999);
    QCOMPARE(print->legend()->font().pointSize(), 2000 / 148);
    QVERIFY(print->series().at(3)->name().startsWith(QStringLiteral("Set 1 (")));
    QCOMPARE(printView.grab().size(), QSize(2000, 1400));
    // Until the rebuild the screen chart still paints (its band lines are
    // released only when control returns to the event loop).
    QVERIFY(!w.chart->grab().isNull());

    // The screen chart is rebuilt after printing; everything released then
    // goes without touching freed band lines.
    w.chart->m_displayChart(w.chart.get(), false);
    QVERIFY(w.chart->chart() != screen);
    releaseDeferred();
    QVERIFY(!w.chart->grab().isNull());
}

void TestChartWidget::enableLine_data()
{
    QTest::addColumn<Ints>("clicks");       // boxes clicked in turn
    QTest::addColumn<quint32>("shown");     // shown bits afterwards
    QTest::addColumn<int>("series");        // data series in the chart

    QTest::newRow("untick one") << Ints{1} << 0xDu << 3;
    QTest::newRow("untick and tick again") << Ints{1, 1} << 0xFu << 4;
    QTest::newRow("untick all: the first comes back") << Ints{0, 1, 2, 3} << 0x1u << 1;
    QTest::newRow("untick the first alone keeps the others") << Ints{0} << 0xEu << 3;
    QTest::newRow("last one unticked while the first is off") << Ints{1, 2, 3, 0} << 0x1u << 1;
}

void TestChartWidget::enableLine()
{
    QFETCH(Ints, clicks);
    QFETCH(quint32, shown);
    QFETCH(int, series);
    Widget w(4, 100, false);
    w.chart->m_displayChart(w.chart.get(), false);
    w.chart->infoLabel->setText(QStringLiteral("State"));
    for (int i : clicks)
        w.chart->enableBox[i]->click();
    QCOMPARE(w.shownBits(), shown);
    QCOMPARE(w.tickedBoxes(), shown);
    QCOMPARE(w.chart->chart()->series().size(), series);
    QList<QAbstractSeries *> all = w.chart->chart()->series();
    for (int i = 0, j = 0; i < 4; ++i) {
        if ((shown >> i) & 1u)
            QVERIFY(all.at(j++)->name().startsWith(QStringLiteral("Set %1 (").arg(i)));
    }
    // The mode box is off (no mode data): the state label is cleared.
    QCOMPARE(w.chart->infoLabel->text(), QString());
    QCOMPARE(w.chart->settings.flags & kFlagShowModeTrack, 0u);
}

void TestChartWidget::modeBoxSwitchesBands()
{
    Widget w(2, 100, true);
    w.chart->m_displayChart(w.chart.get(), false);
    QVERIFY(w.chart->modeBox->isChecked());
    w.chart->infoLabel->setText(QStringLiteral("State: Manual On"));

    w.chart->modeBox->click();
    QCOMPARE(w.chart->settings.flags & kFlagShowModeTrack, 0u);
    QCOMPARE(w.chart->infoLabel->text(), QString());
    QCOMPARE(w.chart->chart()->series().size(), 2);
    QVERIFY(!w.chart->modeSeries && !w.chart->modeSeries2);
    QVERIFY(w.names().first().startsWith(QStringLiteral("Set 0 (min")));

    w.chart->infoLabel->setText(QStringLiteral("kept"));
    w.chart->modeBox->click();
    QCOMPARE(w.chart->settings.flags & kFlagShowModeTrack, kFlagShowModeTrack);
    QCOMPARE(w.chart->infoLabel->text(), QStringLiteral("kept"));
    QCOMPARE(w.chart->chart()->series().size(), 4);
    QVERIFY(w.chart->modeSeries && w.chart->modeSeries2);
    QVERIFY(w.names().at(2).startsWith(QStringLiteral("Set 0 (min")));
    releaseDeferred();
}

void TestChartWidget::repeatedConnectionsLeaveTheSameChart()
{
    Widget once(3, 100, true);
    Widget twice(3, 100, true);
    // A second import connects the rows again.
    for (int i = 0; i < 3; ++i)
        QObject::connect(twice.chart->enableBox[i], &QCheckBox::stateChanged, twice.chart.get(),
                         &QVChartClass::s_enableLine);
    for (Widget *w : {&once, &twice}) {
        w->chart->m_displayChart(w->chart.get(), false);
        w->chart->enableBox[1]->click();
        w->chart->enableBox[0]->click();
        releaseDeferred();
    }
    QCOMPARE(twice.shownBits(), once.shownBits());
    QCOMPARE(twice.names(), once.names());
    QCOMPARE(twice.shownBits(), 0x4u);
}

void TestChartWidget::zoomWindowSurvivesRebuild()
{
    Widget w(2, 1000, false);
    settingsT &s = w.chart->settings;
    s.viewBegin = timeOf(100);
    s.viewEnd = timeOf(300);
    w.chart->show();
    QVERIFY(QTest::qWaitForWindowExposed(w.chart.get()));
    w.chart->m_displayChart(w.chart.get(), false);

    QChart *chart = w.chart->chart();
    QVERIFY(chart->isZoomed());
    auto *time = qobject_cast<QDateTimeAxis *>(chart->axes(Qt::Horizontal).first());
    const double pixel = double(s.rangeEnd - s.rangeBegin) / chart->plotArea().width();
    QVERIFY(qAbs(double(time->min().toMSecsSinceEpoch() - timeOf(100))) <= pixel);
    QVERIFY(qAbs(double(time->max().toMSecsSinceEpoch() - timeOf(300))) <= pixel);
    // Statistics of the zoom window: samples 99..298.
    QCOMPARE(w.names().first(), QString::fromUtf8("Set 0 (min 0.00 / ⌀ 4.75 / max 9.50 u0)"));

    // A row toggle rebuilds and zooms again.
    w.chart->enableBox[1]->click();
    QVERIFY(w.chart->chart() != chart);
    QVERIFY(w.chart->chart()->isZoomed());
    QCOMPARE(s.viewBegin, timeOf(100));
    releaseDeferred();
}

void TestChartWidget::minMaxAvgFollowsTheWindow()
{
    Widget w(2, 100, true);
    w.chart->m_displayChart(w.chart.get(), false);
    // Samples at minutes 10..12 (values 5.0, 5.5, 6.0): window from minute 11
    // to minute 13 covers samples 10 and 11.
    w.chart->m_setMinMaxAvg(w.chart->chart(), timeOf(11), timeOf(13));
    QCOMPARE(w.names().at(2), QString::fromUtf8("Set 0 (min 5.00 / ⌀ 5.25 / max 5.50 u0)"));
    QCOMPARE(w.names().at(3), QStringLiteral("Set 1 (15.00 / 15.25 / 15.50 u1)"));
    QCOMPARE(w.names().at(0), QString());

    // A window without valid values leaves the plain name.
    for (int k = 0; k < 100; ++k)
        w.chart->model().data(0)->value[k] = kMissingValue;
    w.chart->m_setMinMaxAvg(w.chart->chart(), timeOf(11), timeOf(13));
    QCOMPARE(w.names().at(2), QStringLiteral("Set 0"));
    QCOMPARE(w.names().at(3), QString::fromUtf8("Set 1 (min 15.00 / ⌀ 15.25 / max 15.50 u1)"));
    w.chart->m_setMinMaxAvg(nullptr, 0, 1);  // no chart: nothing happens
    releaseDeferred();
}

QTEST_MAIN(TestChartWidget)
#include "tst_chartwidget.moc"

// The chart widget's display members: m_displayChart on itself and on a print
// view, the early returns that keep the previous chart, deferred release of
// charts and band lines, the row check boxes (s_enableLine), zoom restore
// and the legend statistics.
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
#include <QtCharts/QValueAxis>
#include <QtTest>

#include <memory>

using namespace QtCharts;
using namespace qv;
using chartfixture::timeOf;

using Ints = QVector<int>;

namespace {

// The widget with its row panel, rows shown and connected as after an import.
struct Widget {
    std::unique_ptr<QWidget> panel = std::make_unique<QWidget>();  // outlives the chart, which deletes its rows
    std::unique_ptr<QVChartClass> chart;

    Widget(int dataSets, int samples, bool modes)
    {
        QString dir;
        chart = std::make_unique<QVChartClass>(nullptr, &dir, &dir, new QGridLayout(panel.get()));
        chart->resize(1480, 1046);
        ChartModel &m = chart->model();
        chartfixture::fill(m, dataSets, samples);
        if (modes) {
            chartfixture::setModes(m, Ints{5, 5, 12, 12, 3});
            m.showModeBox();
        }
        m.activateRows();
        for (int i = 0; i < kMaxDataSets; ++i) {
            if (m.row[i].enabled)
                connectRow(box(i), m.row[i].checked);
        }
        if (m.modeBoxVisible)
            connectRow(panel->findChild<QCheckBox *>(QStringLiteral("modeBox")), m.modeBoxChecked);
    }

    void connectRow(QCheckBox *box, bool checked)
    {
        box->setEnabled(true);
        box->setVisible(true);
        box->setChecked(checked);
        QObject::connect(box, &QCheckBox::stateChanged, chart.get(), &QVChartClass::s_enableLine,
                         Qt::UniqueConnection);
    }

    QLineSeries *band(const char *name) const
    {
        return chart->findChild<QLineSeries *>(QLatin1String(name), Qt::FindDirectChildrenOnly);
    }
    QCheckBox *box(int i) const { return panel->findChild<QCheckBox *>(QStringLiteral("enableBox%1").arg(i)); }
    QLabel *infoLabel() const { return panel->findChild<QLabel *>(QStringLiteral("infoLabel")); }

    void display() { chart->m_displayChart(chart.get(), false); }

    QStringList names() const
    {
        QStringList n;
        for (QAbstractSeries *s : chart->chart()->series())
            n << s->name();
        return n;
    }

    // Bit i: data set i in use and shown in the model, or (boxes) its box ticked.
    quint32 bits(bool boxes) const
    {
        quint32 result = 0;
        for (int i = 0; i < kMaxDataSets; ++i) {
            const bool shown = i < chart->model().usedDataSets() && (chart->model().settings.lineFlags[i] & kLineShown);
            if (boxes ? box(i)->isChecked() : shown)
                result |= 1u << i;
        }
        return result;
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
    void displayOnTheWidget();
    void displayAgain_data();
    void displayAgain();
    void printBuildLeavesTheScreenChart();
    void enableLine_data();
    void enableLine();
    void zoomWindowSurvivesRebuild();
};

void TestChartWidget::displayOnTheWidget()
{
    Widget empty(0, 8, false);  // nothing to draw: nothing changes
    QChart *before = empty.chart->chart();
    empty.display();
    QCOMPARE(empty.chart->chart(), before);
    QVERIFY(!empty.band("modeSeries") && !empty.band("modeSeries2"));

    Widget w(6, 500, true);
    w.display();
    QChart *chart = w.chart->chart();
    QVERIFY(!chart->isZoomed() && chart->acceptHoverEvents());
    // The widget keeps the band lines of its chart.
    QCOMPARE(qobject_cast<QAreaSeries *>(chart->series().at(0))->upperSeries(), w.band("modeSeries2"));
    QCOMPARE(qobject_cast<QAreaSeries *>(chart->series().at(1))->upperSeries(), w.band("modeSeries"));
    QCOMPARE(chart->legend()->font().pointSize(), 1480 / 148);  // the widget's own width
    // Statistics over the whole range: samples 0..497.
    QCOMPARE(w.names().at(3), QStringLiteral("Set 1 (10.00 / 14.73 / 19.50 u1)"));
}

void TestChartWidget::displayAgain_data()
{
    QTest::addColumn<QString>("damage");  // "": a drawable model
    QTest::newRow("rebuild") << QString();
    QTest::newRow("7 samples in one data set keep the chart") << QStringLiteral("count");
    QTest::newRow("no data sets keep the chart") << QStringLiteral("none");
    QTest::newRow("nothing shown keeps the chart") << QStringLiteral("hidden");
}

// A rebuild replaces the chart and the band lines but releases the old ones
// only later (deferred); an early return keeps them all.
void TestChartWidget::displayAgain()
{
    QFETCH(QString, damage);
    Widget w(3, 100, true);
    w.display();
    releaseDeferred();
    QPointer<QChart> chart = w.chart->chart();
    QPointer<QLineSeries> upper = w.band("modeSeries");
    QPointer<QLineSeries> lower = w.band("modeSeries2");
    const QStringList names = w.names();
    ChartModel &m = w.chart->model();
    if (damage == QLatin1String("count"))
        m.data(2)->count = 7;
    else if (damage == QLatin1String("none"))
        m.settings.dataSetCount = 0;
    else if (damage == QLatin1String("hidden"))
        chartfixture::showOnly(m, Ints{});
    w.display();
    const bool kept = !damage.isEmpty();
    QVERIFY(chart && upper && lower);  // never released at once
    QCOMPARE(w.chart->chart() == chart, kept);
    QCOMPARE(w.band("modeSeries") == upper && w.band("modeSeries2") == lower, kept);
    releaseDeferred();
    QCOMPARE(int(!chart) + int(!upper) + int(!lower), kept ? 0 : 3);
    QVERIFY(w.band("modeSeries") && w.band("modeSeries2"));
    QCOMPARE(w.names(), names);
    QVERIFY(!w.chart->grab().isNull());  // paints with its own band lines
}

void TestChartWidget::printBuildLeavesTheScreenChart()
{
    Widget w(2, 10000, true);
    chartfixture::setModes(w.chart->model(), Ints{5});  // one long state: few band steps to paint
    w.display();
    QChart *screen = w.chart->chart();
    QChartView printView;
    printView.resize(2000, 1400);
    w.chart->m_displayChart(&printView, true);
    QChart *print = printView.chart();
    QCOMPARE(w.chart->chart(), screen);
    QCOMPARE(print->series().size(), 4);
    QVERIFY(!print->acceptHoverEvents());
    // Four times the pen width and twice the points on paper: 10000 samples
    // give groups of 3 (5 on screen).
    const auto lead = [](QChart *chart) { return qobject_cast<QXYSeries *>(chart->series().at(2)); };
    QCOMPARE(lead(screen)->pen().width(), 1);
    QCOMPARE(lead(print)->pen().width(), 4);
    QCOMPARE(lead(screen)->count(), 1999);
    QCOMPARE(lead(print)->count(), 3333);
    QCOMPARE(print->legend()->font().pointSize(), 2000 / 148);
    QVERIFY(!printView.grab().isNull());
    // Until the rebuild the screen chart still paints (its band lines are
    // released only when control returns to the event loop); then everything
    // goes without touching freed band lines.
    QVERIFY(!w.chart->grab().isNull());
    w.display();
    releaseDeferred();
    QVERIFY(!w.chart->grab().isNull());
}

void TestChartWidget::enableLine_data()
{
    QTest::addColumn<Ints>("clicks");      // boxes clicked in turn
    QTest::addColumn<bool>("connectedTwice");  // as after a second import
    QTest::addColumn<quint32>("shown");    // shown bits afterwards
    QTest::newRow("untick one") << Ints{1} << false << 0xDu;
    QTest::newRow("untick and tick again") << Ints{1, 1} << false << 0xFu;
    QTest::newRow("untick all: the first comes back") << Ints{0, 1, 2, 3} << false << 0x1u;
    QTest::newRow("untick the first alone keeps the others") << Ints{0} << false << 0xEu;
    QTest::newRow("last one unticked while the first is off") << Ints{1, 2, 3, 0} << false << 0x1u;
    QTest::newRow("rows connected twice: a click still counts once") << Ints{1, 0} << true << 0xCu;
}

void TestChartWidget::enableLine()
{
    QFETCH(Ints, clicks);
    QFETCH(bool, connectedTwice);
    QFETCH(quint32, shown);
    Widget w(4, 100, false);
    for (int i = 0; connectedTwice && i < 4; ++i)
        QObject::connect(w.box(i), &QCheckBox::stateChanged, w.chart.get(), &QVChartClass::s_enableLine);
    w.display();
    w.infoLabel()->setText(QStringLiteral("State"));
    for (int i : clicks)
        w.box(i)->click();
    QCOMPARE(w.bits(false), shown);
    QCOMPARE(w.bits(true), shown);
    QCOMPARE(w.chart->chart()->series().size(), qPopulationCount(shown));
    // The mode box is off (no mode data): the state label is cleared.
    QCOMPARE(w.infoLabel()->text(), QString());
    QCOMPARE(w.chart->model().settings.flags & kFlagShowModeTrack, 0u);
}

void TestChartWidget::zoomWindowSurvivesRebuild()
{
    Widget w(2, 1000, false);
    settingsT &s = w.chart->model().settings;
    s.viewBegin = timeOf(100);
    s.viewEnd = timeOf(300);
    w.display();
    // The time axis shows the zoom window to within a pixel's worth of time,
    // the value axes keep their ranges.
    QChart *chart = w.chart->chart();
    QVERIFY(chart->isZoomed());
    auto *time = qobject_cast<QDateTimeAxis *>(chart->axes(Qt::Horizontal).first());
    const double pixel = double(s.rangeEnd - s.rangeBegin) / chart->plotArea().width();
    QVERIFY(qAbs(double(time->min().toMSecsSinceEpoch() - timeOf(100))) <= pixel);
    QVERIFY(qAbs(double(time->max().toMSecsSinceEpoch() - timeOf(300))) <= pixel);
    auto *values = qobject_cast<QValueAxis *>(chart->axes(Qt::Vertical, chart->series().at(1)).first());
    QCOMPARE(QPointF(values->min(), values->max()), QPointF(-1, 101));
    // Statistics of the zoom window: samples 99..298.
    QCOMPARE(w.names().first(), QString::fromUtf8("Set 0 (min 0.00 / ⌀ 4.75 / max 9.50 u0)"));

    // A row toggle rebuilds and zooms again.
    w.box(1)->click();
    QVERIFY(w.chart->chart() != chart);
    QVERIFY(w.chart->chart()->isZoomed());
    QCOMPARE(s.viewBegin, timeOf(100));
    // A later window (a zoom or scroll) renames the series: minutes 11..13
    // cover samples 10 and 11 (values 5.0 and 5.5).
    w.chart->m_setMinMaxAvg(w.chart->chart(), timeOf(11), timeOf(13));
    QCOMPARE(w.names().first(), QString::fromUtf8("Set 0 (min 5.00 / ⌀ 5.25 / max 5.50 u0)"));
    w.chart->m_setMinMaxAvg(nullptr, 0, 1);  // no chart: nothing happens
    releaseDeferred();
}

QTEST_MAIN(TestChartWidget)
#include "tst_chartwidget.moc"

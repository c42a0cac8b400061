// The chart: group size, reduction, window statistics, legend texts and the
// other rules of the living chart (no widgets); what a build puts into the
// chart; on the chart widget the row boxes and the zoom window, kept through
// a print preview, the data selection dialog, wheel, drag and keys, the state
// label and bands and the hover callout.
#include "core/chart/chartplan.h"
#include "core/chart/choosetable.h"
#include "core/chart/pagelayout.h"
#include "core/chart/reduction.h"
#include "core/chart/stateband.h"
#include "core/chart/statistics.h"
#include "core/chart/zoomwindow.h"
#include "core/model/fixedstring.h"
#include "core/project/projectfile.h"
#include "document/qvchartclass.h"
#include "gui/chart/chartbuilder.h"
#include "gui/chart/tooltipclass.h"
#include "support/scripteddialogs.h"
#include "support/testsupport.h"

#include <QtCharts>
#include <QtPrintSupport>
#include <QtWidgets>
#include <QtTest>

#include <functional>
#include <memory>

using namespace QtCharts;
using namespace qv;

Q_DECLARE_METATYPE(PixelWindow::Outcome)

namespace {

const qint64 kStart = 1700000000000, kMinute = 60000, kWide = 9000000000000000000;
const double M = kMissingValue;  // a missing value in the tables
using Doubles = QVector<double>;
using Ints = QVector<int>;
using Times = QVector<qint64>;

qint64 minute(int k)
{
    return kStart + k * kMinute;
}

qint64 march(int day, int hour, int minute, int second = 0)  // local time in March 2026
{
    return QDateTime(QDate(2026, 3, day), QTime(hour, minute, second)).toMSecsSinceEpoch();
}

QStringList texts(std::initializer_list<const char *> utf8)
{
    QStringList list;
    for (const char *text : utf8)
        list << QString::fromUtf8(text);
    return list;
}

// The current row's value in a column, as an expression.
template <typename T> T fetch(const char *column)
{
    return *static_cast<T *>(QTest::qData(column, qMetaTypeId<T>()));
}

// The legend names of the shown data sets over the window from..to.
QVector<SeriesName> legendNames(const ChartModel &model, qint64 from, qint64 to)
{
    return g_seriesNames(model, from, to, QString::fromUtf8(kLongStatisticsText),
                         QString::fromUtf8(kShortStatisticsText));
}

// Fills a store with times and values (0 where no value is given).
void fill(_chartDataType &store, const Times &times, const Doubles &values)
{
    store.count = times.size();
    for (int k = 0; k < times.size(); ++k)
        store.time[k] = times[k], store.value[k] = values.value(k);
}

// Data sets "Set i" (unit "u<i>", i mod 3 decimals, axis -i..100+i, the
// default colours), one sample a minute, value 10 i + (k mod 20) / 2; the
// whole range selected. The unit of the data set celsius (if any) is °C.
std::unique_ptr<ChartModel> makeModel(int dataSets, int samples, const Ints &shown, int celsius = -1)
{
    auto model = std::make_unique<ChartModel>();
    settingsT &s = model->settings;
    s.dataSetCount = dataSets;
    for (int i = 0; i < dataSets; ++i) {
        for (int k = 0; k < samples; ++k)
            model->data(i)->time[k] = minute(k), model->data(i)->value[k] = 10.0 * i + (k % 20) * 0.5;
        model->data(i)->count = samples;
        g_qString2Buffer(s.name[i], QStringLiteral("Set %1").arg(i), kNameWidth);
        g_qString2Buffer(s.unit[i], i == celsius ? QString::fromUtf8("°C") : QStringLiteral("u%1").arg(i), kUnitWidth);
        s.decimals[i] = quint8(i % 3);
        s.axisMin[i] = -i;
        s.axisMax[i] = 100 + i;
        s.lineFlags[i] = shown.contains(i) ? s.lineFlags[i] | kLineShown : s.lineFlags[i] & ~kLineShown;
    }
    s.firstTime = s.rangeBegin = s.viewBegin = minute(0);
    s.lastTime = s.rangeEnd = s.viewEnd = minute(samples - 1);
    model->recountRange();
    return model;
}

// The chart widget on a saved and reopened project, its rows in a panel.
struct Widget {
    QTemporaryDir dir;
    QString projectDir, importDir;
    QWidget panel;
    QVChartClass chart{nullptr, &projectDir, &importDir, new QGridLayout(&panel)};
    const settingsT &s = chart.model().settings;
    explicit Widget(ChartModel &model)
    {
        QString path = dir.filePath(QStringLiteral("w.qvj"));
        chart.resize(1480, 1046);
        if (!g_saveProjectFile(model, path, SaveOptions()).ok || !chart.m_openProject(&path))
            qFatal("cannot open the chart project");
    }
    QCheckBox *box(int i) { return panel.findChild<QCheckBox *>(QStringLiteral("enableBox%1").arg(i)); }
    // Time of one pixel of the plot when the whole range is shown.
    double pixel() { return double(s.rangeEnd - s.rangeBegin) / chart.chart()->plotArea().width(); }
    // Whether the time axis shows from..to to within the given error.
    bool timeAxisShows(qint64 from, qint64 to, double error)
    {
        auto *time = qobject_cast<QDateTimeAxis *>(chart.chart()->axes(Qt::Horizontal).first());
        return qAbs(double(time->min().toMSecsSinceEpoch() - from)) <= error &&
               qAbs(double(time->max().toMSecsSinceEpoch() - to)) <= error;
    }
};

struct Point {  // one reduced point
    qint64 time;
    double value;
    int state;
};

// One series of a built chart with its value axis.
constexpr QAbstractSeries::SeriesType Line = QAbstractSeries::SeriesTypeLine,
                                      Spline = QAbstractSeries::SeriesTypeSpline,
                                      Area = QAbstractSeries::SeriesTypeArea;
enum Trait { Right = 1, Hidden = 2, Grid = 4, OnTime = 8, NoMarker = 16 };
struct Built {
    QAbstractSeries::SeriesType type;
    const char *title;
    double min, max;
    const char *labelFormat;
    int traits;  // axis on the right, axis hidden, grid, series on the time axis, legend marker hidden
};

struct BandEntry {
    int labelX, valueX, y;
    const char *label, *value;
};

// The data selection dialog on three shown data sets of 100 samples (set 1
// in °C with one decimal, missing at row 3, 21.456 at row 4), opened on a
// range and zoom window in minutes (begin, end, zoom begin, zoom end); act
// works the open dialog.
struct Chosen {
    int top = -1, bottom = -1;  // the rows selected on opening
    bool open = false;          // the dialog still shows after act
    QString help;               // help pages asked for
    QList<MessageRecord> messages;
    Doubles window;   // afterwards
    int samples = 0;  // in the range afterwards
};
Chosen choose(const Doubles &window, const std::function<void(QTableView *, QDialogButtonBox *)> &act)
{
    auto model = makeModel(3, 100, {0, 1, 2}, 1);
    model->data(1)->value[3] = kMissingValue;
    model->data(1)->value[4] = 21.456;
    Widget w(*model);
    settingsT &s = w.chart.model().settings;
    qint64 *fields[] = {&s.rangeBegin, &s.rangeEnd, &s.viewBegin, &s.viewEnd};
    for (int i = 0; i < 4; ++i)
        *fields[i] = kStart + qint64(window[i] * kMinute);
    w.chart.model().recountRange();
    qvtest::ScriptedDialogs dialogs;
    Chosen c;
    QObject::connect(&w.chart, &QVChartClass::m_showHelp, [&](QWidget *, QString *page) { c.help += *page; });
    dialogs.onExec = [&](QDialog &d) {
        auto *table = d.findChild<QTableView *>(QStringLiteral("tableChoose"));
        const QModelIndexList rows = table->selectionModel()->selectedRows();
        c.top = rows.first().row();
        c.bottom = rows.last().row();
        d.show();
        act(table, d.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox")));
        c.open = d.isVisible();
        return d.result();
    };
    w.chart.s_chooseData();
    c.messages = dialogs.messages;
    for (qint64 *t : fields)
        c.window << double(*t - kStart) / kMinute;
    c.samples = s.rangeSampleCount;
    return c;
}

// An event on the chart widget and how it changes the zoom window.
enum Event { WheelIn, WheelOut, Press, Drag, Release, KeyPlus, KeyMinus, KeyLeft, KeyRight, KeyHome };
// AtBegin, AtEnd: moved or kept exactly at the range's end, the axis too;
// Slipped: a drag that moved without keeping the time under the pointer.
enum Change { Narrower, Wider, Earlier, Later, Kept, Whole, AtBegin, AtEnd, Slipped };
struct Step {
    Event event;
    double x;  // a fraction of the plot width
    Change change;
};

// Four data sets of 1000 samples, all shown (set 1 in °C, missing at sample
// 500), with states 5, then 12 from sample 250: in vaporix mode state bands.
std::unique_ptr<ChartModel> liveModel(bool vaporix)
{
    auto model = makeModel(4, 1000, {0, 1, 2, 3}, 1);
    model->data(1)->value[500] = kMissingValue;
    model->settings.sampleInterval = 60;
    model->modeCodes()->count = 1000;
    for (int k = 0; k < 1000; ++k)
        model->modeCodes()->code[k] = qint8(k < 250 ? 5 : 12);
    model->settings.hasModeData = 1;
    model->settings.flags |= vaporix ? kFlagShowModeTrack : 0;
    return model;
}

// The chart widget, shown, on the live model; x is a fraction of the plot width.
struct Live : Widget {
    explicit Live(bool vaporix) : Widget(*liveModel(vaporix)) { chart.show(); }
    QPointF at(double x)
    {
        const QRectF area = chart.chart()->plotArea();
        return {area.x() + x * area.width(), area.center().y()};
    }
    void mouse(QEvent::Type type, double x, Qt::MouseButton button, Qt::MouseButtons held)
    {
        QMouseEvent event(type, at(x), button, held, Qt::NoModifier);
        QApplication::sendEvent(chart.viewport(), &event);
    }
    double pointer = 0.5;  // where the last mouse event was
    double timeAt(double x) { return chart.chart()->mapToValue(at(x)).x(); }
    Change step(Event event, double x)
    {
        const qint64 begin = s.viewBegin, width0 = s.viewEnd - s.viewBegin;
        const double px = pixel(), grabbed = timeAt(pointer);
        if (event == WheelIn || event == WheelOut) {
            QWheelEvent wheel(at(x), chart.mapToGlobal(at(x).toPoint()), QPoint(),
                              QPoint(0, event == WheelIn ? 120 : -120), Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                              false);
            QApplication::sendEvent(chart.viewport(), &wheel);
        } else if (event == Press || event == Drag || event == Release) {
            const QEvent::Type types[] = {QEvent::MouseButtonPress, QEvent::MouseMove, QEvent::MouseButtonRelease};
            mouse(types[event - Press], x, event == Drag ? Qt::NoButton : Qt::LeftButton,
                  event == Release ? Qt::NoButton : Qt::LeftButton);
            pointer = x;
        } else {
            const Qt::Key keys[] = {Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home};
            QTest::keyClick(&chart, keys[event - KeyPlus]);
        }
        // A drag step shows two pixels less than a wheel step: not a zoom.
        const qint64 width1 = s.viewEnd - s.viewBegin;
        const bool exact = timeAxisShows(s.viewBegin, s.viewEnd, 0);
        const bool slipped = (event == Drag || event == Release) && s.viewBegin != begin &&
                             qAbs(timeAt(x) - grabbed) > 1.5 * width1 / chart.chart()->plotArea().width();
        return s.viewBegin == s.rangeBegin && s.viewEnd == s.rangeEnd ? Whole
               : width1 < width0 - 3 * px                             ? Narrower
               : width1 > width0 + 3 * px                             ? Wider
               : exact && s.viewBegin == s.rangeBegin                 ? AtBegin
               : exact && s.viewEnd == s.rangeEnd                     ? AtEnd
               : slipped                                              ? Slipped
               : s.viewBegin < begin                                  ? Earlier
               : s.viewBegin > begin                                  ? Later
                                                                      : Kept;
    }
    // The time axis (to within two pixels) and the lead series' legend
    // statistics follow the zoom window.
    bool showsWindow()
    {
        const QList<QAbstractSeries *> series = chart.chart()->series();
        const QString name = legendNames(chart.model(), s.viewBegin, s.viewEnd).first().name;
        return timeAxisShows(s.viewBegin, s.viewEnd, 2 * pixel()) && series[series.size() - 4]->name() == name;
    }
    QString state() { return panel.findChild<QLabel *>(QStringLiteral("infoLabel"))->text(); }
    QString hover(double x)  // the state label
    {
        mouse(QEvent::MouseMove, x, Qt::NoButton, Qt::NoButton);
        return state().section(QLatin1String("<center>"), 0, 0);
    }
    QRgb band(double x)  // the band colour under x, wherever no line is; 0 for none
    {
        const QImage shot = chart.viewport()->grab().toImage();
        const QRectF area = chart.chart()->plotArea();
        QRgb colour = 0;
        for (int k = 1; k < 10; ++k) {
            const QRgb rgb = shot.pixel(int(at(x).x()), int(area.top() + k * area.height() / 10)) | 0xFF000000u;
            colour = rgb == kRedBandColor || rgb == kGreenBandColor ? rgb : colour;
        }
        return colour;
    }
    // Hovering a sample of data set 1 (°C): the text of every callout, empty
    // for a hidden one.
    QStringList callout(int sample, double value, bool entering)
    {
        const QList<QAbstractSeries *> series = chart.chart()->series();
        auto *xy = qobject_cast<QXYSeries *>(series[series.size() - 3]);
        emit xy->hovered(QPointF(double(minute(sample)), value), entering);
        QStringList shown;
        for (QGraphicsItem *item : chart.scene()->items()) {
            if (auto *callout = dynamic_cast<ToolTipClass *>(item))
                shown << (callout->isVisible() ? callout->m_getText() : QString());
        }
        return shown;
    }
};

}  // namespace

Q_DECLARE_METATYPE(Point)
Q_DECLARE_METATYPE(Built)
Q_DECLARE_METATYPE(BandEntry)
Q_DECLARE_METATYPE(Step)

class TestChart : public QObject
{
    Q_OBJECT

private slots:
    void groupSize_data()
    {
        QTest::addColumn<int>("samples");
        QTest::addColumn<bool>("print");
        QTest::addColumn<int>("lineType");
        QTest::addColumn<int>("group");
        QTest::newRow("5000 spline") << 5000 << false << 2 << 12;
        QTest::newRow("2048 fits") << 2048 << false << 1 << 1;
        QTest::newRow("4096 fit in print") << 4096 << true << 1 << 1;
        QTest::newRow("largest count") << 2147483647 << false << 1 << 1048065;
    }
    void groupSize()
    {
        QCOMPARE(g_groupSize(fetch<int>("samples"), fetch<bool>("print"), LineType(fetch<int>("lineType"))),
                 fetch<int>("group"));
    }

    void reduction_data()
    {
        QTest::addColumn<Times>("times");     // the state of each sample is its index
        QTest::addColumn<Doubles>("values");  // 0 where none is given
        QTest::addColumn<qint64>("begin");
        QTest::addColumn<qint64>("end");
        QTest::addColumn<int>("group");
        QTest::addColumn<int>("count");  // the stored count; 0: one per time
        QTest::addColumn<QVector<Point>>("points");
        const Times eight{0, 10, 20, 30, 40, 50, 60, 70};
        // clang-format off
        QTest::newRow("g + 1 samples give a point with the middle sample's state, summed in order") << Times{0, 10, 20, 30} << Doubles{0.1, 0.2, 0.3, 100} << -kWide << kWide << 3 << 0
            << QVector<Point>{{10, 0.20000000000000004, 1}};
        QTest::newRow("the last g never drawn; g = 4 takes the state of the third") << eight << Doubles{1, 1, 1, 1, 2, 2, 2, 2} << -kWide << kWide << 4 << 0
            << QVector<Point>{{15, 1, 2}};
        QTest::newRow("samples before the range skipped one by one") << eight << Doubles{1, 2, 3, 4, 5, 6, 7, 8} << qint64(25) << kWide << 2 << 0
            << QVector<Point>{{35, 4.5, 4}, {55, 6.5, 6}};
        QTest::newRow("missing value spoils its group; time mean truncates") << Times{0, 0, 1, 1, 4, 7, 8} << Doubles{1, M, 3, 4, 5, 6, 7} << -kWide << kWide << 2 << 0
            << QVector<Point>{{0, M, 1}, {1, 3.5, 3}, {5, 5.5, 5}};
        QTest::newRow("range bounds are inclusive; a damaged count is clamped to the store") << Times{0, 1000, 2000, 3000} << Doubles{} << qint64(1000) << qint64(2000) << 1 << 100000000
            << QVector<Point>{{1000, 0, 1}, {2000, 0, 2}};
        // clang-format on
    }
    void reduction()
    {
        const Times times = fetch<Times>("times");
        const QVector<Point> points = fetch<QVector<Point>>("points");
        auto model = std::make_unique<ChartModel>();
        fill(*model->data(0), times, fetch<Doubles>("values"));
        model->data(0)->count = fetch<int>("count") ? fetch<int>("count") : times.size();
        for (int k = 0; k < times.size(); ++k)
            model->modeCodes()->code[k] = qint8(k);
        _chartDataType &out = *model->displayData();
        modeCodesT &outModes = *model->displayModeCodes();
        const int n = g_reduceSamples(*model->data(0), *model->modeCodes(), fetch<qint64>("begin"),
                                      fetch<qint64>("end"), fetch<int>("group"), out, outModes);
        QCOMPARE(n, points.size());
        QCOMPARE(out.count, n);
        QCOMPARE(outModes.count, n);
        for (int j = 0; j < n; ++j) {
            QCOMPARE(out.time[j], points[j].time);
            QV_COMPARE_DOUBLE(out.value[j], points[j].value);
            QCOMPARE(int(outModes.code[j]), points[j].state);
        }
    }

    void statistics_data()
    {
        // Data set 0 holds the times 0, 10, 20, 30, 40.
        QTest::addColumn<Doubles>("values");  // of data set 1
        QTest::addColumn<int>("from");
        QTest::addColumn<int>("to");
        QTest::addColumn<QString>("legend");  // empty without a valid value
        QTest::newRow("20..40 covers 10 and 20") << Doubles{1, 2, 4, 8, 16} << 20 << 40 << " (2.00 / 3.00 / 4.00 u)";
        QTest::newRow("end beyond this set's count") << Doubles{1, 2} << 0 << 40 << " (1.00 / 1.50 / 2.00 u)";
        QTest::newRow("missing values skipped") << Doubles{M, 4, M, 8, 0} << 0 << 45 << " (4.00 / 6.00 / 8.00 u)";
        QTest::newRow("all missing") << Doubles{M, M, M, M, 1} << 0 << 40 << "";
        QTest::newRow("two decimals, no separators")
            << Doubles{-0.004, 0.256, 1234567.891, 0, 0} << -5 << 35 << " (-0.00 / 411522.71 / 1234567.89 u)";
    }
    void statistics()
    {
        const Doubles values = fetch<Doubles>("values");
        const QString legend = fetch<QString>("legend");
        auto model = std::make_unique<ChartModel>();
        fill(*model->data(0), {0, 10, 20, 30, 40}, {});
        fill(*model->data(1), Times(values.size()), values);
        const SampleWindow w = g_statisticsWindow(*model->data(0), fetch<int>("from"), fetch<int>("to"));
        const SeriesStatistics s = g_seriesStatistics(*model->data(1), w);
        QCOMPARE(s.valid, !legend.isEmpty());
        if (s.valid)
            QCOMPARE(g_statisticsText(QString::fromUtf8(kShortStatisticsText), s, QStringLiteral("u")), legend);
    }

    void seriesNames_data()
    {
        QTest::addColumn<bool>("vaporix");
        QTest::addColumn<Ints>("shown");    // of three data sets; set 0 in °C
        QTest::addColumn<Doubles>("set1");  // the six values of data set 1
        QTest::addColumn<int>("from");      // sample of the window
        QTest::addColumn<int>("to");
        QTest::addColumn<Ints>("seriesIndex");
        QTest::addColumn<QStringList>("names");
        // clang-format off
        QTest::newRow("all-invalid window keeps the plain name and passes the long text on") << false << Ints{1, 2} << Doubles{M, M, M, M, 5, 5} << 0 << 5
            << Ints{0, 1} << texts({"Set 1", "Set 2 (min 20.00 / ⌀ 20.75 / max 21.50 u2)"});
        QTest::newRow("zoomed window shifted one sample back; long text first; vaporix starts at the third series") << true << Ints{0, 1} << Doubles{12.3, 21.85, 22.1, 18.75, 1000, -1000} << 2 << 4
            << Ints{2, 3} << texts({"Set 0 (min 0.50 / ⌀ 0.75 / max 1.00 °C)", "Set 1 (21.85 / 21.98 / 22.10 u1)"});
        // clang-format on
    }
    void seriesNames()
    {
        const Doubles set1 = fetch<Doubles>("set1");
        auto model = makeModel(3, 6, fetch<Ints>("shown"), 0);
        std::copy(set1.begin(), set1.end(), model->data(1)->value);
        model->settings.flags = kFlagShowTitle | (fetch<bool>("vaporix") ? kFlagShowModeTrack : 0);
        Ints index;
        QStringList names;
        for (const SeriesName &n : legendNames(*model, minute(fetch<int>("from")), minute(fetch<int>("to"))))
            index << n.seriesIndex, names << n.name;
        QCOMPARE(index, fetch<Ints>("seriesIndex"));
        QCOMPARE(names, fetch<QStringList>("names"));
    }

    void build_data()
    {
        QTest::addColumn<int>("lineType");
        QTest::addColumn<bool>("vaporix");                // on the live model
        QTest::addColumn<QVector<quint32>>("lineFlags");  // of its four data sets
        QTest::addColumn<QVector<Built>>("series");       // in chart order
        const quint32 S = kLineShown, A = kLineOwnAxis, R = kLineAxisRight;
        const Built band{Area, "", 0, 8200, " %i", Right | Hidden | OnTime | NoMarker};
        // clang-format off
        QTest::newRow("lines; the axis bit shows the axis, the right bit moves it, grid with the lead")
            << 1 << false << QVector<quint32>{S | A, S, S | A | R, S | R}
            << QVector<Built>{{Line, "u0", 0, 100, " %.0f", Grid | OnTime}, {Line, "°C", -1, 101, " %.1f", Hidden},
                              {Line, "u2", -2, 102, " %.2f", Right}, {Line, "u3", -3, 103, " %.0f", Right | Hidden}};
        QTest::newRow("other line types draw splines; the lead is the first shown")
            << 0 << false << QVector<quint32>{0, 0, S | A, S | A | R}
            << QVector<Built>{{Spline, "u2", -2, 102, " %.2f", Grid | OnTime}, {Spline, "u3", -3, 103, " %.0f", Right}};
        QTest::newRow("state bands come first on one hidden axis, without markers")
            << 1 << true << QVector<quint32>{0, S | A, 0, S | A | R}
            << QVector<Built>{band, band, {Line, "°C", -1, 101, " %.1f", Grid | OnTime}, {Line, "u3", -3, 103, " %.0f", Right}};
        // clang-format on
    }
    void build()
    {
        const QVector<quint32> lineFlags = fetch<QVector<quint32>>("lineFlags");
        const QVector<Built> series = fetch<QVector<Built>>("series");
        auto model = liveModel(fetch<bool>("vaporix"));
        std::copy(lineFlags.begin(), lineFlags.end(), model->settings.lineFlags);
        model->settings.lineType = quint8(fetch<int>("lineType"));
        QChartView view;
        const ChartBuild b = g_buildChart(*model, 1480, false);
        g_installChart(&view, b.chart);
        const std::unique_ptr<QLineSeries> upper(b.upperBand), lower(b.lowerBand);
        const QList<QAbstractSeries *> built = b.chart->series();
        QCOMPARE(built.size(), series.size());
        for (int j = 0; j < built.size(); ++j) {
            QAbstractSeries *s = built[j];
            const Built &e = series[j];
            auto *y = qobject_cast<QValueAxis *>(b.chart->axes(Qt::Vertical, s).value(0));
            QCOMPARE(s->type(), e.type);
            QCOMPARE(y->titleText(), QString::fromUtf8(e.title));
            QCOMPARE(y->min(), e.min);
            QCOMPARE(y->max(), e.max);
            QCOMPARE(y->alignment() == Qt::AlignRight, bool(e.traits & Right));
            QCOMPARE(y->labelFormat(), QString::fromUtf8(e.labelFormat));
            QCOMPARE(y->isVisible(), !(e.traits & Hidden));
            QCOMPARE(y->isGridLineVisible(), bool(e.traits & Grid));
            QCOMPARE(!b.chart->axes(Qt::Horizontal, s).isEmpty(), bool(e.traits & OnTime));
            QCOMPARE(b.chart->legend()->markers(s).value(0)->isVisible(), !(e.traits & NoMarker));
            if (auto *area = qobject_cast<QAreaSeries *>(s)) {  // red first, each over its own line
                QCOMPARE(area->upperSeries(), j ? b.upperBand : b.lowerBand);
                QVERIFY(!area->lowerSeries());
            } else {  // the data series in slot order, each axis in its series' colour
                QCOMPARE(s, b.dataSeries.value(j - (built.size() - b.dataSeries.size())));
                QCOMPARE(y->labelsColor(), qobject_cast<QXYSeries *>(s)->pen().color());
                QCOMPARE(y->titleBrush().color(), qobject_cast<QXYSeries *>(s)->pen().color());
            }
        }
    }

    void emptyChart_data()
    {
        QTest::addColumn<int>("samples");  // stored in data set 0 of two
        QTest::addColumn<Ints>("shown");
        QTest::addColumn<QString>("message");  // what the chart area says instead of a chart
        QTest::newRow("7 samples") << 7 << Ints{0, 1} << "Too few samples to draw a chart (at least 8 per data set).";
        QTest::newRow("nothing shown") << 8 << Ints{} << "No data set is shown: tick a row to draw it.";
    }
    void emptyChart()
    {
        Widget w(*makeModel(2, 8, fetch<Ints>("shown")));
        w.chart.model().data(0)->count = fetch<int>("samples");
        w.chart.m_displayChart(&w.chart, false);
        QString said;
        const QList<QGraphicsItem *> items = w.chart.chart()->childItems();
        for (QGraphicsItem *item : items) {
            if (auto *text = dynamic_cast<QGraphicsSimpleTextItem *>(item))
                said += text->text();
        }
        QCOMPARE(said, fetch<QString>("message"));
        QVERIFY(w.chart.chart()->series().isEmpty());
    }

    void timeAxisFormat_data()
    {
        QTest::addColumn<qint64>("begin");
        QTest::addColumn<qint64>("end");
        QTest::addColumn<QString>("format");  // for 31 ticks
        QTest::newRow("31 ticks on 31 days keep the date") << march(1, 0, 0) << march(31, 0, 0) << "dd.MM.yyyy ";
        QTest::newRow("13 days repeat days: date and time") << march(1, 10, 0) << march(14, 10, 0) << "dd.MM. hh:mm ";
        QTest::newRow("70 minutes in one day: time alone") << march(1, 10, 0) << march(1, 11, 10) << "hh:mm ";
        QTest::newRow("10 minutes need seconds") << march(1, 10, 0) << march(1, 10, 10) << "hh:mm:ss ";
        QTest::newRow("2 seconds need milliseconds") << march(1, 10, 0) << march(1, 10, 0, 2) << "hh:mm:ss.zzz ";
        QTest::newRow("over midnight, seconds apart") << march(1, 23, 59) << march(2, 0, 1) << "dd.MM. hh:mm:ss ";
        QTest::newRow("no span keeps the date") << march(1, 10, 0) << march(1, 10, 0) << "dd.MM.yyyy ";
    }
    void timeAxisFormat()
    {
        QCOMPARE(g_timeAxisFormat(fetch<qint64>("begin"), fetch<qint64>("end"), 31), fetch<QString>("format"));
    }

    void legendRows_data()
    {
        QTest::addColumn<QVector<qreal>>("entries");
        QTest::addColumn<qreal>("line");
        QTest::addColumn<int>("rows");
        QTest::newRow("all in one line") << QVector<qreal>{100, 100, 100} << qreal(300) << 1;
        QTest::newRow("wraps if the next as wide passes the end") << QVector<qreal>{100, 100, 100} << qreal(299) << 2;
        QTest::newRow("16 entries of 250 in 1100") << QVector<qreal>(16, 250) << qreal(1100) << 4;
        QTest::newRow("none") << QVector<qreal>{} << qreal(500) << 0;
    }
    void legendRows()
    {
        QCOMPARE(g_legendRows(fetch<QVector<qreal>>("entries"), fetch<qreal>("line")), fetch<int>("rows"));
    }

    // On a plot 1000 pixels wide, 1000 ms a pixel; ranges in pixels.
    void wheelWindow_data()
    {
        QTest::addColumn<int>("plotX");
        QTest::addColumn<int>("pointer");
        QTest::addColumn<int>("delta");
        QTest::addColumn<int>("rangeBegin");
        QTest::addColumn<int>("rangeEnd");
        QTest::addColumn<PixelWindow::Outcome>("outcome");
        QTest::addColumn<int>("left");  // the window's pixels, on a zoom
        QTest::addColumn<int>("right");
        const auto zoom = PixelWindow::Zoom, reset = PixelWindow::ResetZoom, ignore = PixelWindow::Ignore;
        QTest::newRow("forward: 95 %, pulled to the pointer") << 100 << 100 << 120 << 0 << 2000 << zoom << 101 << 1049;
        QTest::newRow("no delta") << 0 << 500 << 0 << 0 << 1000 << ignore << 0 << 0;
        QTest::newRow("back, wider than the range: shown whole") << 0 << 500 << -120 << -10 << 1010 << reset << 0 << 0;
        QTest::newRow("back past the end walks left") << 0 << 500 << -120 << -100 << 1010 << zoom << -40 << 1010;
        QTest::newRow("back past the begin walks right") << 0 << 500 << -120 << -10 << 2000 << zoom << -10 << 1040;
        QTest::newRow("back, walk meets the begin: reset") << 0 << 0 << -120 << 0 << 1000 << reset << 0 << 0;
        QTest::newRow("forward, walk meets the begin: ignored") << 0 << 500 << 120 << 0 << 900 << ignore << 0 << 0;
        QTest::newRow("4096 pixel steps") << 0 << 500 << 120 << -10000 << -3122 << zoom << -4070 << -3122;
        QTest::newRow("4097 are too many") << 0 << 500 << 120 << -10000 << -3123 << ignore << 0 << 0;
    }
    void wheelWindow()
    {
        const PixelToTime pixelTime = [](int pixel) { return pixel * 1000LL; };
        const PixelWindow w =
            g_wheelWindow(fetch<int>("plotX"), 1000, fetch<int>("pointer"), fetch<int>("delta"),
                          fetch<int>("rangeBegin") * 1000LL, fetch<int>("rangeEnd") * 1000LL, pixelTime);
        QCOMPARE(w.outcome, fetch<PixelWindow::Outcome>("outcome"));
        if (w.outcome == PixelWindow::Zoom) {  // its pixels and their times
            QCOMPARE(w.left, fetch<int>("left"));
            QCOMPARE(w.right, fetch<int>("right"));
            QCOMPARE(w.begin, pixelTime(w.left));
            QCOMPARE(w.end, pixelTime(w.right));
        }
    }

    // In the range 0..400 ms; a move keeps the window's width.
    void panWindow_data()
    {
        QTest::addColumn<qint64>("begin");
        QTest::addColumn<qint64>("end");
        QTest::addColumn<double>("pixels");
        QTest::addColumn<double>("plotWidth");
        QTest::addColumn<bool>("moved");
        QTest::addColumn<qint64>("newBegin");
        QTest::newRow("a tenth of the plot moves a tenth of the window")
            << qint64(100) << qint64(300) << 100.0 << 1000.0 << true << qint64(120);
        QTest::newRow("past the end stops exactly at it")
            << qint64(100) << qint64(300) << 1000.0 << 1000.0 << true << qint64(200);
        QTest::newRow("past the begin stops exactly at it")
            << qint64(100) << qint64(300) << -1000.0 << 1000.0 << true << qint64(0);
        QTest::newRow("at the end already stays")
            << qint64(200) << qint64(400) << 10.0 << 1000.0 << false << qint64(200);
        QTest::newRow("half a millisecond rounds away from zero")
            << qint64(100) << qint64(300) << -2.5 << 1000.0 << true << qint64(99);
        QTest::newRow("a plot without width stays")
            << qint64(100) << qint64(300) << 10.0 << 0.0 << false << qint64(100);
    }
    void panWindow()
    {
        const qint64 begin = fetch<qint64>("begin"), end = fetch<qint64>("end");
        const PanWindow w = g_panWindow(begin, end, fetch<double>("pixels"), fetch<double>("plotWidth"), 0, 400);
        QCOMPARE(w.moved, fetch<bool>("moved"));
        QCOMPARE(w.begin, fetch<qint64>("newBegin"));
        QCOMPARE(w.end - w.begin, end - begin);
    }

    void stateIndex_data()
    {
        QTest::addColumn<qint64>("t");
        QTest::addColumn<qint64>("firstTime");
        QTest::addColumn<int>("interval");  // seconds
        QTest::addColumn<qint64>("index");
        QTest::newRow("5 minutes at 60 s, 3.5 rounds up") << qint64(300000) << qint64(0) << 60 << qint64(4);
        QTest::newRow("no interval, -0.5 rounds away from zero") << qint64(1000) << qint64(0) << 0 << qint64(-1);
        QTest::newRow("recording start") << minute(1) << kStart << 60 << qint64(-1);
    }
    void stateIndex()
    {
        QCOMPARE(g_stateIndex(fetch<qint64>("t"), fetch<qint64>("firstTime"), fetch<int>("interval")),
                 fetch<qint64>("index"));
    }

    void calloutSpike_data()
    {
        QTest::addColumn<QPointF>("anchor");  // of a balloon at 0, 0, 100 x 50
        QTest::addColumn<bool>("drawn");
        QTest::addColumn<QPointF>("foot1");
        QTest::addColumn<QPointF>("foot2");
        // clang-format off
        QTest::newRow("anchor inside") << QPointF(50, 25) << false << QPointF() << QPointF();
        QTest::newRow("far below right, from the bottom right corner up") << QPointF(300, 200) << true << QPointF(100, 30) << QPointF(100, 40);
        QTest::newRow("below, left of centre") << QPointF(30, 80) << true << QPointF(10, 50) << QPointF(20, 50);
        QTest::newRow("far above left, along the top") << QPointF(-50, -200) << true << QPointF(10, 0) << QPointF(20, 0);
        QTest::newRow("right, above centre") << QPointF(150, 20) << true << QPointF(100, 10) << QPointF(100, 20);
        // clang-format on
    }
    void calloutSpike()
    {
        const CalloutSpike spike = g_calloutSpike(QRectF(0, 0, 100, 50), fetch<QPointF>("anchor"));
        QCOMPARE(spike.drawn, fetch<bool>("drawn"));
        QCOMPARE(spike.foot1, fetch<QPointF>("foot1"));
        QCOMPARE(spike.foot2, fetch<QPointF>("foot2"));
    }

    void pageBand_data()
    {
        QTest::addColumn<bool>("modeData");
        QTest::addColumn<Doubles>("parameters");
        QTest::addColumn<int>("controlTime");
        QTest::addColumn<int>("interval");
        QTest::addColumn<QVector<BandEntry>>("entries");  // on a page 4960 pixels high
        // clang-format off
        QTest::newRow("no parameter block, no band") << false << Doubles{} << 0 << 0 << QVector<BandEntry>{};
        // Values in five places, six with decimals, rounded half away from zero, never cut.
        QTest::newRow("five columns on three lines, the last two columns short")
            << true << Doubles{55, 72, 5, 15, 2, 1.5, 0.5, -0.25, 0.2, 1.5, -2} << 15 << 123456
            << QVector<BandEntry>{{592, 1272, 4720, "min. Humidity In:", "   55 %"}, {592, 1272, 4816, "max. Humidity In:", "   72 %"},
                                  {592, 1272, 4912, "Frost Protection:", "   2.0 °C"}, {1798, 2478, 4720, "min. Temp In:", "   5.0 °C"},
                                  {1798, 2478, 4816, "max. Temp In:", "  15.0 °C"}, {1798, 2478, 4912, "Intervall:", "123456 sec"},
                                  {3004, 3684, 4720, "Offset Temp In:", "  -0.3 °C"}, {3004, 3684, 4816, "Offset Temp Out:", "   0.2 °C"},
                                  {3004, 3684, 4912, "control Time:", "   15 min"}, {4210, 4890, 4720, "Offset Humidity In:", "   1.5 %"},
                                  {4210, 4890, 4816, "Offset Humidity Out:", "  -2.0 %"}, {5416, 6096, 4720, "Hysteresis On:", "  1.50 g/kg"},
                                  {5416, 6096, 4816, "Hysteresis Off:", "  0.50 g/kg"}};
        // clang-format on
    }
    void pageBand()
    {
        const Doubles parameters = fetch<Doubles>("parameters");
        const QVector<BandEntry> entries = fetch<QVector<BandEntry>>("entries");
        auto model = std::make_unique<ChartModel>();
        model->settings.hasModeData = quint8(fetch<bool>("modeData"));
        std::copy(parameters.begin(), parameters.end(), model->modeParameters()->parameter);
        model->modeParameters()->intParameter[0] = quint32(fetch<int>("controlTime"));
        model->modeParameters()->interval = fetch<int>("interval");
        const QVector<PageBandEntry> band = g_pageBand(model->settings, *model->modeParameters(), 4960);
        QCOMPARE(band.size(), entries.size());
        for (int k = 0; k < band.size(); ++k) {
            QCOMPARE(band[k].labelX, entries[k].labelX);
            QCOMPARE(band[k].valueX, entries[k].valueX);
            QCOMPARE(band[k].y, entries[k].y);
            QCOMPARE(QLatin1String(band[k].label), QLatin1String(entries[k].label));
            QCOMPARE(band[k].value, QString::fromUtf8(entries[k].value));
        }
    }

    // The row boxes drive the model and the chart, and unticking the last shown
    // row brings the first back. Each rebuild zooms the time axis to the model's
    // window again (to within a pixel's worth of time), with its statistics;
    // a PDF preview in between draws its page and leaves both as they were.
    void rowBoxesKeepTheZoomWindow()
    {
        Widget w(*makeModel(4, 1000, {0, 1, 2, 3}));
        settingsT &s = w.chart.model().settings;  // a load shows the whole range
        s.viewBegin = minute(100);
        s.viewEnd = minute(300);
        w.chart.m_displayChart(&w.chart, false);
        qvtest::ScriptedDialogs dialogs;  // the PDF preview (-2) draws its page once
        int pages = 0;
        dialogs.onExec = [&](QDialog &d) {
            d.show();
            pages = d.findChild<QPrintPreviewWidget *>()->pageCount();
            return 0;
        };
        for (int click : {1, -2, 2, 3, 0, -1}) {
            QVERIFY(w.timeAxisShows(minute(100), minute(300), w.pixel()));
            QCOMPARE(w.chart.chart()->series().first()->name(),
                     QString::fromUtf8("Set 0 (min 0.00 / ⌀ 4.75 / max 9.50 u0)"));
            if (click >= 0)
                w.box(click)->click();
            if (click == -2)
                w.chart.s_exportPDF();
        }
        QCOMPARE(pages, 1);
        for (int i = 0; i < 4; ++i) {
            QCOMPARE(bool(s.lineFlags[i] & kLineShown), i == 0);
            QCOMPARE(w.box(i)->isChecked(), i == 0);
        }
        QCOMPARE(w.chart.chart()->series().size(), 1);
    }

    void chooseRows_data()
    {
        QTest::addColumn<int>("first");  // the rows selected before OK; -1 none
        QTest::addColumn<int>("last");
        QTest::addColumn<QString>("error");   // the message that keeps the dialog open
        QTest::addColumn<Doubles>("window");  // afterwards, in minutes
        QTest::addColumn<int>("samples");
        // From the range 10..80 (rows 10 to 80) zoomed to 20..70:
        // clang-format off
        QTest::newRow("16 rows accepted; begin kept leaves the zoom begin") << 10 << 25 << "" << Doubles{10, 25, 20, 25} << 16;
        QTest::newRow("end kept leaves the zoom end") << 5 << 80 << "" << Doubles{5, 80, 5, 70} << 76;
        QTest::newRow("15 rows refused, the dialog stays open") << 10 << 24 << "Please select at least 16 rows !" << Doubles{10, 80, 20, 70} << 71;
        QTest::newRow("no selection keeps the range") << -1 << -1 << "" << Doubles{10, 80, 20, 70} << 71;
        // clang-format on
    }
    void chooseRows()
    {
        const int first = fetch<int>("first"), last = fetch<int>("last");
        const QString error = fetch<QString>("error");
        const Chosen c = choose({10, 80, 20, 70}, [&](QTableView *table, QDialogButtonBox *buttons) {
            const QItemSelection rows(table->model()->index(first, 0), table->model()->index(last, 0));
            table->selectionModel()->select(rows, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
            buttons->button(QDialogButtonBox::Ok)->click();
        });
        QCOMPARE(c.top, 10);
        QCOMPARE(c.bottom, 80);
        QCOMPARE(c.open, !error.isEmpty());
        QCOMPARE(c.messages.size(), error.isEmpty() ? 0 : 1);
        QCOMPARE(c.messages.value(0).text, error);
        QCOMPARE(c.window, fetch<Doubles>("window"));
        QCOMPARE(c.samples, fetch<int>("samples"));
    }

    void chooseTable_data()
    {
        QTest::addColumn<Doubles>("window");  // range and zoom window in minutes
        QTest::addColumn<int>("row");         // whose data cells are read
        QTest::addColumn<int>("top");         // the rows selected on opening
        QTest::addColumn<int>("bottom");
        QTest::addColumn<QStringList>("cells");
        QTest::newRow("a range between samples opens on the samples before")
            << Doubles{10.5, 79.5, 10.5, 79.5} << 4 << 10 << 79 << texts({"2 u0", "21.5 °C", "22.00 u2"});
        QTest::newRow("a range before the first sample opens on row 0")
            << Doubles{-5, 0, -5, 0} << 3 << 0 << 0 << texts({"2 u0", "Invalid Data", "21.50 u2"});
    }
    // The table's headers and cells, then Help and Cancel: the range stays.
    void chooseTable()
    {
        const Doubles window = fetch<Doubles>("window");
        QStringList headers, cells;
        const Chosen c = choose(window, [&](QTableView *table, QDialogButtonBox *buttons) {
            for (int k = 0; k < 4; ++k)
                headers << table->model()->headerData(k, Qt::Horizontal).toString();
            for (int k = 1; k < 4; ++k)
                cells << table->model()->index(fetch<int>("row"), k).data().toString();
            buttons->button(QDialogButtonBox::Help)->click();
            buttons->button(QDialogButtonBox::Cancel)->click();
        });
        QCOMPARE(c.top, fetch<int>("top"));
        QCOMPARE(c.bottom, fetch<int>("bottom"));
        QCOMPARE(headers, texts({"Date/Time", "Set 0", "Set 1", "Set 2"}));
        QCOMPARE(cells, fetch<QStringList>("cells"));
        QCOMPARE(c.help, QStringLiteral("choose.html"));
        QVERIFY(!c.open);
        QVERIFY(c.messages.isEmpty());
        QCOMPARE(c.window, window);
    }

    void chooseColumnWidths_data()
    {
        QTest::addColumn<int>("available");
        QTest::addColumn<int>("columns");
        QTest::addColumn<Ints>("widths");  // of all but the last column
        QTest::newRow("a wide table does not overflow") << 100000 << 3 << Ints{33332, 33332};
        QTest::newRow("none below zero, the only column stretches") << -5 << 2 << Ints{0};
    }
    void chooseColumnWidths()
    {
        QCOMPARE(g_chooseColumnWidths(fetch<int>("available"), fetch<int>("columns")), fetch<Ints>("widths"));
    }

    // Each step also moves the time axis and the legend statistics along.
    void zoomSteps_data()
    {
        QTest::addColumn<QVector<Step>>("steps");
        QTest::newRow("wheel in and out; out on the whole range keeps it")
            << QVector<Step>{{WheelIn, 0.5, Narrower}, {WheelIn, 0.1, Narrower}, {WheelOut, 0.5, Wider},
                             {WheelOut, 0.5, Wider},   {WheelOut, 0.5, Whole},   {WheelOut, 0.5, Whole}};
        QTest::newRow("drag stops exactly at the ends, back at once") << QVector<Step>{
            {WheelIn, 0.5, Narrower}, {WheelIn, 0.5, Narrower}, {Press, 0.5, Kept}, {Drag, 0.52, Earlier},
            {Drag, 0.9, AtBegin},     {Drag, 0.95, AtBegin},    {Drag, 0.9, Later}, {Drag, 0.5, AtEnd},
            {Drag, 0.4, AtEnd},       {Drag, 0.45, Earlier}};
        QTest::newRow("a flick pans from press to release") << QVector<Step>{
            {WheelIn, 0.5, Narrower}, {WheelIn, 0.5, Narrower}, {Press, 0.5, Kept},      {Release, 0.47, Later},
            {Press, 0.5, Kept},       {Drag, 0.52, Earlier},    {Release, 0.55, Earlier}};
        QTest::newRow("keys zoom, pan up to the ends and show the range") << QVector<Step>{
            {KeyPlus, 0, Narrower}, {KeyPlus, 0, Narrower}, {KeyLeft, 0, AtBegin}, {KeyRight, 0, Later},
            {KeyRight, 0, AtEnd},   {KeyRight, 0, AtEnd},   {KeyMinus, 0, Wider},  {KeyHome, 0, Whole}};
    }
    void zoomSteps()
    {
        Live w(false);
        const QVector<Step> steps = fetch<QVector<Step>>("steps");
        for (int k = 0; k < steps.size(); ++k) {
            const QByteArray at = "step " + QByteArray::number(k);
            QVERIFY2(w.step(steps[k].event, steps[k].x) == steps[k].change, at.constData());
            QVERIFY2(w.showsWindow(), at.constData());
        }
    }

    // The state under the pointer in vaporix mode; none at the plot's edge,
    // none after a zoom step or a rebuild until the pointer moves again.
    void stateLabel()
    {
        Live w(true);
        QCOMPARE(w.hover(0.5), QStringLiteral("State: System running"));
        QCOMPARE(w.hover(0), QString());
        QCOMPARE(w.hover(0.1), QStringLiteral("State: Conditions OK"));
        w.step(WheelIn, 0.1);
        QCOMPARE(w.state(), QString());
        QCOMPARE(w.hover(0.1), QStringLiteral("State: Conditions OK"));
        w.box(0)->click();
        QCOMPARE(w.state(), QString());
    }

    // Red below state 11, green from it; the bands follow the zoom.
    void stateBands()
    {
        Live w(true);
        QVERIFY(w.s.viewBegin == w.s.rangeBegin && w.s.viewEnd == w.s.rangeEnd && w.showsWindow());
        QCOMPARE(w.band(0.2), kRedBandColor);
        QCOMPARE(w.band(0.3), kGreenBandColor);
        for (int k = 0; k < 8; ++k)
            w.step(WheelIn, 0.9);
        QVERIFY(w.showsWindow());
        QCOMPARE(w.band(0.05), kGreenBandColor);
    }

    // The hover callout: the sample's time, then its value (or that there is
    // none) with the unit; leaving the point hides it.
    void callout()
    {
        Live w(false);
        const struct {
            int sample;
            double value;
            bool entering;
            const char *text;  // below the time line; none for a hidden callout
        } hovers[] = {
            {10, 19.456, true, "19.46 °C"},
            {500, M, true, "No Data °C"},
            {10, 19.456, false, nullptr},
        };
        for (const auto &h : hovers) {
            const QString time =
                QDateTime::fromMSecsSinceEpoch(minute(h.sample)).toString(QStringLiteral("dd.MM.yyyy hh:mm"));
            QCOMPARE(w.callout(h.sample, h.value, h.entering),
                     QStringList{h.text ? time + QLatin1Char('\n') + QString::fromUtf8(h.text) : QString()});
        }
    }
};

QTEST_MAIN(TestChart)
#include "tst_chart.moc"

// The chart: group size, reduction, window statistics and legend texts (no
// widgets); what a build puts into the chart; the chart widget's row boxes
// and zoom window, kept through a print preview.
#include "app/scripteddialogs.h"
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

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPrintPreviewWidget>
#include <QPushButton>
#include <QTableView>
#include <QGraphicsSimpleTextItem>
#include <QGraphicsScene>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QWheelEvent>
#include <QtCharts/QAreaSeries>
#include <QtCharts/QChart>
#include <QtCharts/QDateTimeAxis>
#include <QtCharts/QLegend>
#include <QtCharts/QLegendMarker>
#include <QtCharts/QLineSeries>
#include <QtCharts/QValueAxis>
#include <QtTest>

#include <memory>

using namespace QtCharts;
using namespace qv;

namespace {

const qint64 kStart = 1700000000000, kMinute = 60000;
qint64 minute(int k)
{
    return kStart + k * kMinute;
}

// Space-separated numbers; "M" is a missing value, "*" the widest bound.
QVector<double> nums(const QString &text)
{
    QVector<double> n;
    for (const QString &word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts))
        n << (word == QLatin1String("M") ? kMissingValue : word == QLatin1String("*") ? 9e18 : word.toDouble());
    return n;
}

// Fills a store with times and values (0 where no value is given).
void fill(_chartDataType &store, const QVector<double> &times, const QVector<double> &values)
{
    store.count = times.size();
    for (int k = 0; k < times.size(); ++k)
        store.time[k] = qint64(times[k]), store.value[k] = values.value(k);
}

QVector<double> tens(int count)  // 0, 10, 20, ...
{
    QVector<double> t;
    for (int k = 0; k < count; ++k)
        t << 10 * k;
    return t;
}

QString number(double v)
{
    return v == kMissingValue ? QStringLiteral("M") : QString::number(v, 'g', 17);
}

// Data sets "Set i" (unit "u<i>", i mod 3 decimals, axis -i..100+i), one
// sample a minute, value 10 i + (k mod 20) / 2; the whole range selected.
std::unique_ptr<ChartModel> makeModel(int dataSets, int samples, const QVector<double> &shown)
{
    auto model = std::make_unique<ChartModel>();
    settingsT &s = model->settings;
    s.dataSetCount = dataSets;
    for (int i = 0; i < dataSets; ++i) {
        for (int k = 0; k < samples; ++k)
            model->data(i)->time[k] = minute(k), model->data(i)->value[k] = 10.0 * i + (k % 20) * 0.5;
        model->data(i)->count = samples;
        g_qString2Buffer(s.name[i], QStringLiteral("Set %1").arg(i), kNameWidth);
        g_qString2Buffer(s.unit[i], QStringLiteral("u%1").arg(i), kUnitWidth);
        s.decimals[i] = quint8(i % 3);
        s.axisMin[i] = -i;
        s.axisMax[i] = 100 + i;
        s.color[i] = 0xFF000000u | (0x203040u * quint32(i + 1));
    }
    for (int i = 0; i < kMaxDataSets; ++i)
        s.lineFlags[i] = shown.contains(i) ? s.lineFlags[i] | kLineShown : s.lineFlags[i] & ~kLineShown;
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
    explicit Widget(ChartModel &model)
    {
        QString path = dir.filePath(QStringLiteral("w.qvj"));
        chart.resize(1480, 1046);
        if (!g_saveProjectFile(model, path, SaveOptions()).ok || !chart.m_openProject(&path))
            qFatal("cannot open the chart project");
    }
    QCheckBox *box(int i) { return panel.findChild<QCheckBox *>(QStringLiteral("enableBox%1").arg(i)); }
};

// Per series in chart order: type, value axis (title, range, side, label
// format, hidden, grid), "T" on the time axis, "-" for a hidden legend marker.
QString buildText(ChartModel &model)
{
    QChartView view;
    const ChartBuild b = g_buildChart(model, 1480, false);
    g_installChart(&view, b.chart);
    QStringList described;
    const QList<QAbstractSeries *> series = b.chart->series();
    const int bands = series.size() - b.dataSeries.size();
    for (int j = 0; j < series.size(); ++j) {
        QAbstractSeries *s = series[j];
        auto *area = qobject_cast<QAreaSeries *>(s);
        if (area ? area->upperSeries() != (j ? b.upperBand : b.lowerBand) || area->lowerSeries()
                 : b.dataSeries.value(j - bands) != s)
            described << QStringLiteral("wrong band lines or data series");
        auto *xy = qobject_cast<QXYSeries *>(s);
        auto *axis = qobject_cast<QValueAxis *>(b.chart->axes(Qt::Vertical, s).value(0));
        if (!area && (axis->labelsColor() != xy->pen().color() || axis->titleBrush().color() != xy->pen().color()))
            described << QStringLiteral("axis not in its series' colour");
        auto *y = qobject_cast<QValueAxis *>(b.chart->axes(Qt::Vertical, s).value(0));
        const bool line = s->type() == QAbstractSeries::SeriesTypeLine;
        described << QStringList{QLatin1String(area   ? "area"
                                               : line ? "line"
                                                      : "spline"),
                                 y->titleText(),
                                 QStringLiteral("%1..%2").arg(y->min()).arg(y->max()),
                                 QLatin1String(y->alignment() == Qt::AlignRight ? "R" : "L"),
                                 y->labelFormat(),
                                 QLatin1String(y->isVisible() ? "" : "hidden"),
                                 QLatin1String(y->isGridLineVisible() ? "grid" : ""),
                                 QLatin1String(b.chart->axes(Qt::Horizontal, s).isEmpty() ? "" : "T"),
                                 QLatin1String(b.chart->legend()->markers(s).value(0)->isVisible() ? "" : "-")}
                         .join(QLatin1Char(' '))
                         .simplified();
    }
    delete b.upperBand;
    delete b.lowerBand;
    return described.join(QStringLiteral("; "));
}

// One chart rule applied to its input in text form (fields split at '|').
QString applyRule(const QString &rule, const QString &input)
{
    const QStringList f = input.split(QLatin1Char('|'));
    const QVector<double> a = nums(f.value(0)), b = nums(f.value(1)), c = nums(f.value(2)), d = nums(f.value(3));
    auto model = std::make_unique<ChartModel>();
    if (rule == QLatin1String("group"))  // samples, print, line type
        return QString::number(g_groupSize(int(a[0]), a[1] != 0, qv::LineType(a[2])));
    if (rule == QLatin1String("reduce")) {  // times (none: 0, 10, ...) | values | states | begin end group [count]
        fill(*model->data(0), a.isEmpty() ? tens(b.size()) : a, b);
        model->data(0)->count = int(d.value(3, model->data(0)->count));
        for (int k = 0; k < c.size(); ++k)
            model->modeCodes()->code[k] = qint8(c[k]);
        model->modeCodes()->count = c.size();
        const int n = g_reduceSamples(*model->data(0), *model->modeCodes(), qint64(d[0] == 9e18 ? -9e18 : d[0]),
                                      qint64(d[1]), int(d[2]), *model->displayData(), *model->displayModeCodes());
        if (model->displayData()->count != n || model->displayModeCodes()->count != n)
            return QStringLiteral("stored counts differ");
        QStringList out{QString::number(n)};
        for (int j = 0; j < n; ++j)
            out << QStringLiteral("(%1 %2 %3)")
                       .arg(model->displayData()->time[j])
                       .arg(number(model->displayData()->value[j]),
                            QString::number(model->displayModeCodes()->code[j]));
        return out.join(QLatin1Char(' '));
    }
    if (rule == QLatin1String("stats")) {  // time base (none: 0, 10, ... 40) | values at 0, 10, ... | from to
        fill(*model->data(0), a.isEmpty() ? tens(5) : a, {});
        fill(*model->data(3), tens(b.size()), b);
        const SampleWindow w = g_statisticsWindow(*model->data(0), qint64(c[0]), qint64(c[1]));
        const SeriesStatistics s = g_seriesStatistics(*model->data(3), w);
        return QStringLiteral("%1..%2").arg(w.first).arg(w.end) +
               (s.valid ? g_statisticsText(QString::fromUtf8(kShortStatisticsText), s, QStringLiteral("u"))
                        : QString());
    }
    if (rule == QLatin1String("names")) {  // flags, data sets | shown sets | values of set 1 | window in samples
        model = makeModel(int(a[1]), 6, b);
        g_char2Buffer(model->settings.unit[0],
                      "\xB0"
                      "C",
                      kUnitWidth);
        std::copy(c.begin(), c.end(), model->data(1)->value);
        model->settings.flags = quint32(a[0]);
        QStringList got;
        for (const SeriesName &n :
             g_seriesNames(*model, minute(int(d[0])), minute(int(d[1])), QString::fromUtf8(kLongStatisticsText),
                           QString::fromUtf8(kShortStatisticsText)))
            got << QStringLiteral("#%1:").arg(n.seriesIndex) + n.name;
        return got.join(QLatin1String(", "));
    }
    if (rule == QLatin1String("build")) {  // line type, state data | line flags of sets 0..3
        model = makeModel(4, 100, {});
        for (int i = 0; i < 4; ++i)
            model->settings.lineFlags[i] = quint32(b[i]);
        model->settings.lineType = quint8(a[0]);
        if (a[1] != 0) {
            model->modeCodes()->count = 100;
            for (int k = 0; k < 100; ++k)
                model->modeCodes()->code[k] = qint8(k < 50 ? 5 : 12);
            model->settings.hasModeData = 1;
            model->settings.flags |= kFlagShowModeTrack;
        }
        return buildText(*model);
    }
    if (rule == QLatin1String("timeaxis"))  // begin, end as "yyyy-MM-dd hh:mm:ss.zzz" local | ticks
        return g_timeAxisFormat(
            QDateTime::fromString(f[0], QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")).toMSecsSinceEpoch(),
            QDateTime::fromString(f[1], QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")).toMSecsSinceEpoch(), int(c[0]));
    if (rule == QLatin1String("legend"))  // entry widths | line width
        return QString::number(g_legendRows(a, b[0]));
    if (rule == QLatin1String("empty")) {  // data sets, samples | shown sets: what the chart area says
        Widget w(*makeModel(int(a[0]), 8, b));
        w.chart.model().data(0)->count = int(a[1]);
        w.chart.m_displayChart(&w.chart, false);
        const QList<QGraphicsItem *> items = w.chart.chart()->childItems();
        for (QGraphicsItem *item : items) {
            if (auto *text = dynamic_cast<QGraphicsSimpleTextItem *>(item))
                return text->text() + QLatin1String(w.chart.chart()->series().isEmpty() ? "" : " over series");
        }
        return QStringLiteral("%1 series").arg(w.chart.chart()->series().size());
    }
    if (rule == QLatin1String("bandvalue"))  // value decimals | unit
        return g_bandValue(a[0], int(a[1]), f[1]);
    if (rule == QLatin1String("band")) {  // mode data flag | the 11 doubles | control time, interval | page height
        model->settings.hasModeData = quint8(a[0]);
        std::copy(b.begin(), b.end(), model->modeParameters()->parameter);
        model->modeParameters()->intParameter[0] = quint32(c[0]);
        model->modeParameters()->interval = qint32(c[1]);
        QStringList entries;
        for (const PageBandEntry &e : g_pageBand(model->settings, *model->modeParameters(), int(d[0])))
            entries << QStringLiteral("%1/%2@%3 %4[%5]")
                           .arg(e.labelX)
                           .arg(e.valueX)
                           .arg(e.y)
                           .arg(QLatin1String(e.label), e.value);
        return entries.join(QStringLiteral("; "));
    }
    if (rule == QLatin1String("wheel") || rule == QLatin1String("drag")) {
        // plot x, width, pointer x (last x) and delta (x) | range | time = pixel * c[0] ms
        const double perPixel = c[0];
        const PixelToTime at = [perPixel](int pixel) { return qint64(pixel * perPixel); };
        const PixelWindow w = rule == QLatin1String("wheel")
                                  ? g_wheelWindow(a[0], a[1], a[2], int(a[3]), qint64(b[0]), qint64(b[1]), at)
                                  : g_dragWindow(a[0], a[1], int(a[2]), int(a[3]), qint64(b[0]), qint64(b[1]), at);
        const char *outcome[] = {"ignore", "reset", "zoom"};
        return QLatin1String(outcome[w.outcome]) +
               (w.outcome == PixelWindow::Zoom
                    ? QStringLiteral(" %1..%2 %3..%4").arg(w.left).arg(w.right).arg(w.begin).arg(w.end)
                    : QString());
    }
    if (rule == QLatin1String("state"))  // t, first time, interval in seconds
        return QString::number(g_stateIndex(qint64(a[0]), qint64(a[1]), qint32(a[2])));
    if (rule == QLatin1String("spike")) {  // balloon x y w h | anchor x y
        const CalloutSpike sp = g_calloutSpike(QRectF(a[0], a[1], a[2], a[3]), QPointF(b[0], b[1]));
        return sp.drawn ? QStringLiteral("%1,%2 %3,%4")
                              .arg(sp.foot1.x())
                              .arg(sp.foot1.y())
                              .arg(sp.foot2.x())
                              .arg(sp.foot2.y())
                        : QStringLiteral("none");
    }
    return QStringLiteral("no such rule");
}

// The data selection command on three shown data sets of 100 samples (set 1
// in °C with one decimal, missing at row 3, 21.456 at row 4), started from a
// range and zoom window in minutes: the rows selected on opening, what the
// action did, the messages, then the range, the window and the recount.
QString chooseRun(const QString &input)
{
    const QStringList f = input.split(QLatin1Char('|'));
    const QVector<double> r = nums(f[0]), a = nums(f[1].section(QLatin1Char(' '), 1));
    auto model = makeModel(3, 100, {0, 1, 2});
    g_char2Buffer(model->settings.unit[1],
                  "\xB0"
                  "C",
                  kUnitWidth);
    model->data(1)->value[3] = kMissingValue;
    model->data(1)->value[4] = 21.456;
    Widget w(*model);
    settingsT &s = w.chart.model().settings;
    qint64 *fields[] = {&s.rangeBegin, &s.rangeEnd, &s.viewBegin, &s.viewEnd};
    for (int i = 0; i < 4; ++i)
        *fields[i] = kStart + qint64(r[i] * kMinute);
    w.chart.model().recountRange();
    qvtest::ScriptedDialogs dialogs;
    QString seen;
    QObject::connect(&w.chart, &QVChartClass::m_showHelp,
                     [&](QWidget *, QString *page) { seen += QLatin1String(" help ") + *page; });
    dialogs.onExec = [&](QDialog &d) {
        auto *table = d.findChild<QTableView *>(QStringLiteral("tableChoose"));
        auto *buttons = d.findChild<QDialogButtonBox *>(QStringLiteral("buttonBox"));
        const QModelIndexList rows = table->selectionModel()->selectedRows();
        seen = QStringLiteral("rows %1-%2").arg(rows.first().row()).arg(rows.last().row());
        d.show();
        if (f[1].startsWith(QLatin1String("cells"))) {
            for (int c = 0; c < 4; ++c)
                seen += QLatin1Char(',') + table->model()->headerData(c, Qt::Horizontal).toString();
            for (int c = 1; c < 4; ++c)
                seen += QLatin1Char(',') + table->model()->index(int(a[0]), c).data().toString();
            buttons->button(QDialogButtonBox::Help)->click();
            buttons->button(QDialogButtonBox::Cancel)->click();
        } else {
            table->clearSelection();
            if (!a.isEmpty())
                table->selectionModel()->select(
                    QItemSelection(table->model()->index(int(a[0]), 0), table->model()->index(int(a[1]), 0)),
                    QItemSelectionModel::Select | QItemSelectionModel::Rows);
            buttons->button(QDialogButtonBox::Ok)->click();
        }
        seen += QLatin1String(d.isVisible() ? " open" : " closed");
        return d.result();
    };
    w.chart.s_chooseData();
    for (const MessageRecord &m : dialogs.messages)
        seen += QStringLiteral("; %1: %2").arg(m.title, m.text);
    QStringList minutes;
    for (qint64 *t : fields)
        minutes << QString::number(double(*t - kStart) / kMinute);
    return seen + QLatin1String("; ") + minutes.join(QLatin1Char(' ')) +
           QStringLiteral(" (%1)").arg(s.rangeSampleCount);
}

// Events sent to the chart widget (four shown data sets of 1000 samples,
// set 1 in °C, states 5 then 12 from sample 250, vaporix mode when the
// script starts with "vaporix"); x as a fraction of the plot width. Per
// event: how the zoom window changed (< narrower, > wider, L earlier, R
// later, = kept, W the whole range), the state label, or the callout text.
// Every step also checks the time axis and the legend against the window.
QString interactionRun(const QString &script)
{
    auto model = makeModel(4, 1000, {0, 1, 2, 3});
    g_char2Buffer(model->settings.unit[1],
                  "\xB0"
                  "C",
                  kUnitWidth);
    model->data(1)->value[500] = kMissingValue;
    model->settings.sampleInterval = 60;
    model->modeCodes()->count = 1000;
    for (int k = 0; k < 1000; ++k)
        model->modeCodes()->code[k] = qint8(k < 250 ? 5 : 12);
    model->settings.hasModeData = 1;
    if (script.startsWith(QLatin1String("vaporix")))
        model->settings.flags |= kFlagShowModeTrack;
    Widget w(*model);
    w.chart.show();
    const settingsT &s = w.chart.model().settings;
    auto *label = w.panel.findChild<QLabel *>(QStringLiteral("infoLabel"));
    QStringList out;
    for (const QString &step : script.split(QStringLiteral(", "))) {
        const QStringList f = step.split(QLatin1Char(' '));
        QChart *chart = w.chart.chart();
        const QRectF area = chart->plotArea();
        const QPointF at(area.x() + f.value(1).toDouble() * area.width(), area.center().y());
        const qint64 begin = s.viewBegin, end = s.viewEnd;
        const QList<QAbstractSeries *> series = chart->series();
        const int lead = series.size() - 4;
        if (f[0] == QLatin1String("in") || f[0] == QLatin1String("out")) {
            QWheelEvent wheel(at, w.chart.mapToGlobal(at.toPoint()), QPoint(),
                              QPoint(0, f[0] == QLatin1String("in") ? 120 : -120), Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QApplication::sendEvent(w.chart.viewport(), &wheel);
        } else if (f[0] == QLatin1String("press") || f[0] == QLatin1String("drag") || f[0] == QLatin1String("hover")) {
            const bool press = f[0] == QLatin1String("press");
            const Qt::MouseButtons held = f[0] == QLatin1String("hover") ? Qt::NoButton : Qt::LeftButton;
            QMouseEvent mouse(press ? QEvent::MouseButtonPress : QEvent::MouseMove, at,
                              press ? Qt::LeftButton : Qt::NoButton, held, Qt::NoModifier);
            QApplication::sendEvent(w.chart.viewport(), &mouse);
            if (f[0] == QLatin1String("hover")) {
                out << label->text().section(QLatin1String("<center>"), 0, 0);
                continue;
            }
        } else if (f[0] == QLatin1String("band")) {  // the band colour under x, wherever no line is
            const QImage shot = w.chart.viewport()->grab().toImage();
            QString colour = QStringLiteral("none");
            for (int k = 1; k < 10; ++k) {
                const QRgb rgb = shot.pixel(int(at.x()), int(area.top() + k * area.height() / 10)) | 0xFF000000u;
                if (rgb == kRedBandColor || rgb == kGreenBandColor)
                    colour = QLatin1String(rgb == kRedBandColor ? "red" : "green");
            }
            out << colour;
            continue;
        } else if (f[0] == QLatin1String("key")) {
            QKeyEvent key(QEvent::KeyPress, QKeySequence::fromString(f[1])[0], Qt::NoModifier, f[1]);
            QApplication::sendEvent(&w.chart, &key);
        } else if (f[0] == QLatin1String("callout")) {  // series, sample, value (M missing), shown
            auto *xy = qobject_cast<QXYSeries *>(series[lead + f[1].toInt()]);
            const double value = f[3] == QLatin1String("M") ? kMissingValue : f[3].toDouble();
            emit xy->hovered(QPointF(double(minute(f[2].toInt())), value), f[4] == QLatin1String("1"));
            for (QGraphicsItem *item : w.chart.scene()->items()) {
                if (auto *callout = dynamic_cast<ToolTipClass *>(item))
                    out << (callout->isVisible()
                                ? callout->m_getText().section(QLatin1Char('\n'), 1) +
                                      QLatin1String(callout->m_getText().section(QLatin1Char('\n'), 0, 0) ==
                                                            QDateTime::fromMSecsSinceEpoch(minute(f[2].toInt()))
                                                                .toString(QStringLiteral("dd.MM.yyyy hh:mm"))
                                                        ? ""
                                                        : " (wrong time)")
                                : QStringLiteral("hidden"));
            }
            continue;
        }
        // A drag step shows two pixels less than a wheel step: not a zoom.
        const qint64 width0 = end - begin, width1 = s.viewEnd - s.viewBegin;
        const double pixel = double(s.rangeEnd - s.rangeBegin) / area.width();
        QString token = s.viewBegin == s.rangeBegin && s.viewEnd == s.rangeEnd ? QStringLiteral("W")
                        : width1 < width0 - 3 * pixel                          ? QStringLiteral("<")
                        : width1 > width0 + 3 * pixel                          ? QStringLiteral(">")
                        : s.viewBegin < begin                                  ? QStringLiteral("L")
                        : s.viewBegin > begin                                  ? QStringLiteral("R")
                                                                               : QStringLiteral("=");
        auto *time = qobject_cast<QDateTimeAxis *>(chart->axes(Qt::Horizontal).first());
        if (qAbs(double(time->min().toMSecsSinceEpoch() - s.viewBegin)) > 2 * pixel ||
            qAbs(double(time->max().toMSecsSinceEpoch() - s.viewEnd)) > 2 * pixel)
            token += QLatin1String("(axis elsewhere)");
        const QVector<SeriesName> names =
            g_seriesNames(w.chart.model(), s.viewBegin, s.viewEnd, QString::fromUtf8(kLongStatisticsText),
                          QString::fromUtf8(kShortStatisticsText));
        if (series[lead]->name() != names.first().name)
            token += QLatin1String("(legend stale)");
        out << token;
    }
    return out.join(QLatin1Char(' '));
}

}  // namespace

class TestChart : public QObject
{
    Q_OBJECT

private slots:
    void rules_data();
    void rules();
    void rowBoxesKeepTheZoomWindow();
    void chooseData_data();
    void chooseData();
    void interaction_data();
    void interaction();
};

void TestChart::rules_data()
{
    // clang-format off
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    QTest::newRow("group: 5000 spline") << "5000 0 2" << "12";
    QTest::newRow("group: 2048 fits") << "2048 0 1" << "1";
    QTest::newRow("group: 2049 halves") << "2049 0 1" << "2";
    QTest::newRow("group: 4097 print") << "4097 1 1" << "2";
    QTest::newRow("group: largest count") << "2147483647 0 1" << "1048065";
    // Times | values | states | begin end group [stored count]: the number of reduced points and each point.
    QTest::newRow("reduce: exactly g samples give no point") << "|1 2 3||* * 3" << "0";
    QTest::newRow("reduce: g + 1 give a point, state k + 1, sum in order")
        << "|0.1 0.2 0.3 100|0 9 0 0|* * 3" << "1 (10 0.20000000000000004 9)";
    QTest::newRow("reduce: the last g never drawn, state k + 2")
        << "|1 1 1 1 2 2 2 2|0 1 2 3 4 5 6 7|* * 4" << "1 (15 1 2)";
    QTest::newRow("reduce: samples before the range skipped one by one")
        << "|1 2 3 4 5 6 7 8|0 1 2 3 4 5 6 7|25 * 2" << "2 (35 4.5 4) (55 6.5 6)";
    QTest::newRow("reduce: range bounds are inclusive")
        << "|1 2 3 4 5 6 7 8||10 30 1" << "3 (10 2 0) (20 3 0) (30 4 0)";
    QTest::newRow("reduce: missing value spoils its group; time mean truncates")
        << "0 0 1 1 4 7 8|1 M 3 4 5 6 7||* * 2" << "3 (0 M 0) (1 3.5 0) (5 5.5 0)";
    QTest::newRow("reduce: a damaged count is clamped to the store")
        << "0 1000 2000|||1000 2000 1 100000000" << "2 (1000 0 0) (2000 0 0)";
    // Statistics of data set 3 (times 0, 10, ...) over the window on data set 0's time base.
    QTest::newRow("stats: 20..40 covers 10 and 20") << "|1 2 4 8 16|20 40" << "1..3 (2.00 / 3.00 / 4.00 u)";
    QTest::newRow("stats: whole range leaves out two") << "|1 2 4 8 16|0 40" << "0..3 (1.00 / 2.33 / 4.00 u)";
    QTest::newRow("stats: beyond both ends leaves out one") << "|1 2 4 8 16|-5 45" << "0..4 (1.00 / 3.75 / 8.00 u)";
    QTest::newRow("stats: equal times take the last") << "0 10 10 10 20|1 2 4 8 16|11 20" << "3..3";
    QTest::newRow("stats: end beyond this set's count") << "|1 2|0 40" << "0..3 (1.00 / 1.50 / 2.00 u)";
    QTest::newRow("stats: missing values skipped") << "|M 4 M 8 0|0 45" << "0..4 (4.00 / 6.00 / 8.00 u)";
    QTest::newRow("stats: all missing") << "|M M M M 1|0 40" << "0..3";
    QTest::newRow("stats: two decimals, no separators")
        << "|-0.004 0.256 1234567.891 0 0|-5 35" << "0..3 (-0.00 / 411522.71 / 1234567.89 u)";
    QTest::newRow("names: long text first, short after; vaporix mode starts at the third series")
        << "3 3|0 1|12.3 21.85 22.1 18.75 1000 -1000|0 5"
        << QString::fromUtf8("#2:Set 0 (min 0.00 / ⌀ 0.75 / max 1.50 °C), #3:Set 1 (12.30 / 18.75 / 22.10 u1)");
    QTest::newRow("names: all-invalid window keeps the plain name and passes the long text on")
        << "1 3|1 2|M M M M 5 5|0 5"
        << QString::fromUtf8("#0:Set 1, #1:Set 2 (min 20.00 / ⌀ 20.75 / max 21.50 u2)");
    QTest::newRow("names: zoomed window, shifted one sample back")
        << "1 3|0 1|12.3 21.85 22.1 18.75 1000 -1000|2 4"
        << QString::fromUtf8("#0:Set 0 (min 0.50 / ⌀ 0.75 / max 1.00 °C), #1:Set 1 (21.85 / 21.98 / 22.10 u1)");
    QTest::newRow("build: lines; the axis bit shows the axis, the right bit moves it, grid with the lead")
        << "1 0|3 1 7 5"
        << "line u0 0..100 L %.0f grid T; line u1 -1..101 L %.1f hidden; "
           "line u2 -2..102 R %.2f; line u3 -3..103 R %.0f hidden";
    QTest::newRow("build: other line types draw splines; the lead is the first shown")
        << "0 0|0 0 3 7" << "spline u2 -2..102 L %.2f grid T; spline u3 -3..103 R %.0f";
    QTest::newRow("build: state bands come first on one hidden axis, without markers")
        << "1 1|0 3 0 7"
        << "area 0..8200 R %i hidden T -; area 0..8200 R %i hidden T -; "
           "line u1 -1..101 L %.1f grid T; line u3 -3..103 R %.0f";
    QTest::newRow("timeaxis: 31 ticks on 31 days keep the date") << "2026-03-01 00:00:00.000|2026-03-31 00:00:00.000|31" << "dd.MM.yyyy ";
    QTest::newRow("timeaxis: 13 days repeat days: date and time") << "2026-03-01 10:00:00.000|2026-03-14 10:00:00.000|31" << "dd.MM. hh:mm ";
    QTest::newRow("timeaxis: 70 minutes in one day: time alone") << "2026-03-01 10:00:00.000|2026-03-01 11:10:00.000|31" << "hh:mm ";
    QTest::newRow("timeaxis: 10 minutes need seconds") << "2026-03-01 10:00:00.000|2026-03-01 10:10:00.000|31" << "hh:mm:ss ";
    QTest::newRow("timeaxis: 2 seconds need milliseconds") << "2026-03-01 10:00:00.000|2026-03-01 10:00:02.000|31" << "hh:mm:ss.zzz ";
    QTest::newRow("timeaxis: over midnight, seconds apart") << "2026-03-01 23:59:00.000|2026-03-02 00:01:00.000|31" << "dd.MM. hh:mm:ss ";
    QTest::newRow("timeaxis: no span keeps the date") << "2026-03-01 10:00:00.000|2026-03-01 10:00:00.000|31" << "dd.MM.yyyy ";
    QTest::newRow("legend: all in one line") << "100 100 100|300" << "1";
    QTest::newRow("legend: wraps when the next as wide would pass the end") << "100 100 100|299" << "2";
    QTest::newRow("legend: 16 entries of 250 in 1100") << "250 250 250 250 250 250 250 250 250 250 250 250 250 250 250 250|1100" << "4";
    QTest::newRow("legend: none") << "|500" << "0";
    // Plot x, width, pointer x, delta | range | milliseconds per pixel: outcome, pixels, window.
    QTest::newRow("wheel: forward over the centre keeps 950 pixels, centred") << "0 1000 500.7 120|0 1000000|1000" << "zoom 26..974 26000..974000";
    QTest::newRow("wheel: pulled toward the pointer") << "100 1000 100 120|0 2000000|1000" << "zoom 101..1049 101000..1049000";
    QTest::newRow("wheel: no delta") << "0 1000 500 0|0 1000000|1000" << "ignore";
    QTest::newRow("wheel: back, wider than the range shows it whole") << "0 1000 500 -120|-10000 1010000|1000" << "reset";
    QTest::newRow("wheel: back past the end walks left") << "0 1000 500 -120|-100000 1010000|1000" << "zoom -40..1010 -40000..1010000";
    QTest::newRow("wheel: back past the begin walks right") << "0 1000 500 -120|-10000 2000000|1000" << "zoom -10..1040 -10000..1040000";
    QTest::newRow("wheel: back on the whole range, walk meets the begin: reset") << "0 1000 0 -120|0 1000000|1000" << "reset";
    QTest::newRow("wheel: forward, walk meets the begin: ignored") << "0 1000 500 120|0 900000|1000" << "ignore";
    QTest::newRow("wheel: 4096 pixel steps") << "0 1000 500 120|-10000 -3122|1" << "zoom -4070..-3122 -4070..-3122";
    QTest::newRow("wheel: 4097 are too many") << "0 1000 500 120|-10000 -3123|1" << "ignore";
    // Plot x, width, last x, x | range | milliseconds per pixel.
    QTest::newRow("drag: left shows later times") << "0 1000 500 400|0 2000000|1000" << "zoom 101..1099 101000..1099000";
    QTest::newRow("drag: up to the begin") << "0 1000 500 501|0 2000000|1000" << "zoom 0..998 0..998000";
    QTest::newRow("drag: past the begin ignored") << "0 1000 500 502|0 2000000|1000" << "ignore";
    QTest::newRow("drag: past the end ignored") << "0 1000 500 400|0 1098000|1000" << "ignore";
    QTest::newRow("state: 5 minutes at 60 s, 3.5 rounds up") << "300000 0 60" << "4";
    QTest::newRow("state: no interval, 2000 ms") << "2000 0 0" << "1";
    QTest::newRow("state: -0.5 rounds away from zero") << "1000 0 0" << "-1";
    QTest::newRow("state: recording start") << "1700000060000 1700000000000 60" << "-1";
    // Balloon | anchor: the two spike feet.
    QTest::newRow("spike: anchor inside") << "0 0 100 50|50 25" << "none";
    QTest::newRow("spike: far below right, from the bottom right corner up") << "0 0 100 50|300 200" << "100,30 100,40";
    QTest::newRow("spike: below, left of centre") << "0 0 100 50|30 80" << "10,50 20,50";
    QTest::newRow("spike: far above left, along the top") << "0 0 100 50|-50 -200" << "10,0 20,0";
    QTest::newRow("spike: right, above centre") << "0 0 100 50|150 20" << "100,10 100,20";
    QTest::newRow("empty: too few samples says so") << "2 7|0 1" << "Too few samples to draw a chart (at least 8 per data set).";
    QTest::newRow("empty: nothing shown says so") << "2 8|" << "No data set is shown: tick a row to draw it.";
    QTest::newRow("empty: drawable draws") << "2 8|1" << "1 series";
    QTest::newRow("bandvalue: two decimals in five places") << "1.5 2|g/kg" << "  1.50 g/kg";
    QTest::newRow("bandvalue: whole seconds in five places") << "60 0|sec" << "   60 sec";
    QTest::newRow("bandvalue: sign takes a place, half rounds away from zero") << "-0.25 1|%" << "  -0.3 %";
    QTest::newRow("bandvalue: a wider number is not cut") << "123456 0|%" << "123456 %";
    QTest::newRow("band: no parameter block, no band") << "0|1 2 3 4 5 6 7 8 9 10 11|15 300|4960" << "";
    QTest::newRow("band: five columns on three lines, the last two columns short")
        << "1|55 72 5 15 2 1.5 0.5 -0.3 0.2 1.5 -2|15 60|4960"
        << QString::fromUtf8("592/1272@4720 min. Humidity In:[   55 %]; 592/1272@4816 max. Humidity In:[   72 %]; "
                             "592/1272@4912 Frost Protection:[   2.0 °C]; 1798/2478@4720 min. Temp In:[   5.0 °C]; "
                             "1798/2478@4816 max. Temp In:[  15.0 °C]; 1798/2478@4912 Intervall:[   60 sec]; "
                             "3004/3684@4720 Offset Temp In:[  -0.3 °C]; 3004/3684@4816 Offset Temp Out:[   0.2 °C]; "
                             "3004/3684@4912 control Time:[   15 min]; 4210/4890@4720 Offset Humidity In:[   1.5 %]; "
                             "4210/4890@4816 Offset Humidity Out:[  -2.0 %]; 5416/6096@4720 Hysteresis On:[  1.50 g/kg]; "
                             "5416/6096@4816 Hysteresis Off:[  0.50 g/kg]");
    // clang-format on
}

void TestChart::rules()
{
    QFETCH(QString, input);
    QFETCH(QString, expected);
    QCOMPARE(applyRule(QString::fromUtf8(QTest::currentDataTag()).section(QLatin1Char(':'), 0, 0), input), expected);
}

// The row boxes drive the model and the chart, and unticking the last shown
// row brings the first back. Each rebuild zooms the time axis to the model's
// window again (to within a pixel's worth of time), with its statistics;
// a PDF preview in between draws its page and leaves both as they were.
void TestChart::rowBoxesKeepTheZoomWindow()
{
    Widget w(*makeModel(4, 1000, {0, 1, 2, 3}));
    settingsT &s = w.chart.model().settings;  // a load shows the whole range
    s.viewBegin = minute(100);
    s.viewEnd = minute(300);
    w.chart.m_displayChart(&w.chart, false);
    qvtest::ScriptedDialogs dialogs;  // the PDF preview (-2) draws its page once
    QString preview;
    dialogs.onExec = [&](QDialog &d) {
        d.show();
        preview = d.windowTitle() + QStringLiteral(" %1").arg(d.findChild<QPrintPreviewWidget *>()->pageCount());
        return 0;
    };
    for (int click : {1, -2, 2, 3, 0, -1}) {
        QChart *chart = w.chart.chart();
        QVERIFY(chart->isZoomed());
        auto *time = qobject_cast<QDateTimeAxis *>(chart->axes(Qt::Horizontal).first());
        const double pixel = double(s.rangeEnd - s.rangeBegin) / chart->plotArea().width();
        QVERIFY(qAbs(double(time->min().toMSecsSinceEpoch() - minute(100))) <= pixel);
        QVERIFY(qAbs(double(time->max().toMSecsSinceEpoch() - minute(300))) <= pixel);
        QCOMPARE(chart->series().first()->name(), QString::fromUtf8("Set 0 (min 0.00 / ⌀ 4.75 / max 9.50 u0)"));
        if (click >= 0)
            w.box(click)->click();
        if (click == -2)
            w.chart.s_exportPDF();
    }
    QCOMPARE(preview, QStringLiteral("Quorvanta PDF Preview 1"));
    QString rows;
    for (int i = 0; i < 4; ++i)
        rows +=
            QLatin1Char(bool(s.lineFlags[i] & kLineShown) ? '+' : '-') + QLatin1Char(w.box(i)->isChecked() ? '+' : '-');
    QCOMPARE(rows, QStringLiteral("++------"));
    QCOMPARE(w.chart.chart()->series().size(), 1);
    QCOMPARE(s.viewBegin, minute(100));
}

void TestChart::chooseData_data()
{
    // clang-format off
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    // Range and zoom window in minutes | action on the dialog.
    QTest::newRow("16 rows accepted; begin kept leaves the zoom begin") << "10 80 20 70|select 10 25" << "rows 10-80 closed; 10 25 20 25 (16)";
    QTest::newRow("end kept leaves the zoom end") << "10 80 20 70|select 5 80" << "rows 10-80 closed; 5 80 5 70 (76)";
    QTest::newRow("15 rows refused, the dialog stays open") << "10 80 20 70|select 10 24" << "rows 10-80 open; Quorvanta Error: Please select at least 16 rows !; 10 80 20 70 (71)";
    QTest::newRow("no selection keeps the range") << "10 80 20 70|select" << "rows 10-80 closed; 10 80 20 70 (71)";
    QTest::newRow("a range between samples opens on the samples before") << "10.5 79.5 10.5 79.5|cells 4" << QString::fromUtf8("rows 10-79,Date/Time,Set 0,Set 1,Set 2,2 u0,21.5 °C,22.00 u2 help choose.html closed; 10.5 79.5 10.5 79.5 (69)");
    QTest::newRow("a range before the first sample opens on row 0") << "-5 0 -5 0|cells 3" << "rows 0-0,Date/Time,Set 0,Set 1,Set 2,2 u0,Invalid Data,21.50 u2 help choose.html closed; -5 0 -5 0 (1)";
    // Available width, columns | widths of all but the last column.
    QTest::newRow("widths: three shown data sets in 1000 pixels") << "|1000 4" << "250 250 250";
    QTest::newRow("widths: a wide table does not overflow") << "|100000 3" << "33332 33332";
    QTest::newRow("widths: none below zero, the only column stretches") << "|-5 2" << "0";
    // clang-format on
}

void TestChart::chooseData()
{
    QFETCH(QString, input);
    QFETCH(QString, expected);
    QString got;
    if (input.startsWith(QLatin1Char('|'))) {
        const QVector<double> a = nums(input.mid(1));
        for (int width : g_chooseColumnWidths(int(a[0]), int(a[1])))
            got += QString::number(width) + QLatin1Char(' ');
    } else {
        got = chooseRun(input);
    }
    QCOMPARE(got.trimmed(), expected);
}

void TestChart::interaction_data()
{
    // clang-format off
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("expected");
    QTest::newRow("wheel in and out; out on the whole range keeps it") << "in 0.5, in 0.1, out 0.5, out 0.5, out 0.5, out 0.5" << "< < > > W W";
    QTest::newRow("drag stops at the edges, back at once") << "in 0.5, in 0.5, press 0.5, drag 0.52, drag 0.9, drag 0.5, drag 0.48, drag 0.1" << "< < = L = R R =";
    QTest::newRow("keys zoom, pan and show the range") << "key +, key +, key Left, key Right, key Right, key -, key Home" << "< < L R R > W";
    QTest::newRow("state label in vaporix mode") << "vaporix 0, hover 0.5, hover 0, hover 0.1" << QString::fromUtf8("W State: System running  State: Conditions OK");
    QTest::newRow("state bands follow the zoom") << "vaporix 0, band 0.2, band 0.3, in 0.9, in 0.9, in 0.9, in 0.9, in 0.9, in 0.9, in 0.9, in 0.9, band 0.05" << "W red green < < < < < < < < green";
    QTest::newRow("callout: value, missing, leaving") << "callout 1 10 19.456 1, callout 1 500 M 1, callout 0 10 3 1, callout 0 10 3 0" << QString::fromUtf8("19.46 °C No Data °C 3.00 u0 hidden");
    // clang-format on
}

void TestChart::interaction()
{
    QFETCH(QString, script);
    QFETCH(QString, expected);
    QCOMPARE(interactionRun(script), expected);
}

QTEST_MAIN(TestChart)
#include "tst_chart.moc"

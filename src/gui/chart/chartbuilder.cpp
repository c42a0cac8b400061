#include "gui/chart/chartbuilder.h"

#include "core/base/coretexts.h"
#include "core/chart/chartplan.h"
#include "core/chart/reduction.h"
#include "core/chart/stateband.h"
#include "core/chart/statistics.h"
#include "core/model/fixedstring.h"
#include "gui/chart/chartaxes.h"
#include "gui/chart/statebanditem.h"

#include <QFontMetricsF>
#include <QGraphicsSimpleTextItem>
#include <QtCharts/QDateTimeAxis>
#include <QtCharts/QAreaSeries>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QLegend>
#include <QtCharts/QLegendMarker>
#include <QtCharts/QLineSeries>
#include <QtCharts/QSplineSeries>
#include <QtCharts/QValueAxis>

#include <cmath>

using namespace QtCharts;

namespace qv {

namespace {

QFont resized(QFont font, int pointSize)
{
    font.setPointSize(pointSize);
    return font;
}

// Height a legend of the given font needs for its entries in a line of the
// given width.
qreal legendHeight(QLegend *legend, const QFont &font, qreal line)
{
    const QFontMetricsF metrics(font);
    // A marker entry: symbol, spacing and the text item's own margins.
    const qreal extra = metrics.height() + 24;
    QVector<qreal> widths;
    for (QLegendMarker *marker : legend->markers()) {
        // The band areas have no entry (their markers are hidden).
        if (marker->series()->type() != QAbstractSeries::SeriesTypeArea)
            widths << metrics.horizontalAdvance(marker->label()) + extra;
    }
    return std::ceil(g_legendRows(widths, line) * (metrics.height() + 11));
}

// Height below which a value axis starts cutting its labels: each of its
// ticks needs a label line and some padding.
qreal valueAxisNeed(QChart *chart)
{
    for (QAbstractAxis *axis : chart->axes(Qt::Vertical)) {
        auto *values = qobject_cast<QValueAxis *>(axis);
        if (values && values->isVisible())
            return values->tickCount() * (QFontMetricsF(values->labelsFont()).height() + 10);
    }
    return 0;
}

// A legend above or below the plot shows every entry in full: it stands
// free of the chart's layout, wraps into as many rows as its entries need,
// and the chart's margin on its side grows by their height. Where that would
// leave the value axes too short for their labels, the legend font shrinks,
// but not below 7 points. Relaid out when the chart is resized and when the
// statistics rename the series. An entry wider than the whole line is cut
// and shows its full text as a tool tip. On the printed page the parameter
// band follows right below the chart, so a legend at the bottom keeps a
// line's height more distance from the chart's lower edge there.
void flowLegend(QChart *chart, Qt::Alignment side, bool forPrint)
{
    QLegend *legend = chart->legend();
    legend->setShowToolTips(true);
    if (side != Qt::AlignTop && side != Qt::AlignBottom)
        return;
    legend->detachFromChart();
    legend->setAlignment(Qt::AlignTop);  // rows in reading order
    const QMargins base = chart->margins();
    const QFont chosen = legend->font();
    const qreal outer = base.bottom() / 2.0 + (forPrint ? QFontMetricsF(chosen).height() : 0.0);
    auto relayout = [chart, legend, side, base, chosen, outer]() {
        const QRectF area = chart->rect();
        const qreal line = area.width() - base.left() - base.right();
        if (line <= 0)
            return;
        const qreal room = area.height() - base.top() - base.bottom() - valueAxisNeed(chart);
        QFont font = chosen;
        qreal height = legendHeight(legend, font, line);
        while (height > room && font.pointSize() > 7) {
            font.setPointSize(font.pointSize() - 1);
            height = legendHeight(legend, font, line);
        }
        if (legend->font() != font)
            legend->setFont(font);
        QMargins margins = base;
        if (side == Qt::AlignTop) {
            margins.setTop(base.top() + int(height));
            legend->setGeometry(QRectF(base.left(), base.top() / 2.0, line, height));
        } else {
            margins.setBottom(int(outer + base.bottom() / 2.0 + height));
            legend->setGeometry(QRectF(base.left(), area.bottom() - outer - height, line, height));
        }
        chart->setMargins(margins);
        legend->update();
    };
    QObject::connect(chart, &QGraphicsWidget::geometryChanged, chart, relayout);
    for (QAbstractSeries *series : chart->series())
        QObject::connect(series, &QAbstractSeries::nameChanged, chart, relayout);
}

void styleChart(QChart *chart, const settingsT &s, const FontSizes &sizes)
{
    QLegend *legend = chart->legend();
    legend->setFont(resized(legend->font(), sizes.legend));
    chart->setTitleFont(resized(chart->titleFont(), sizes.title));
    Qt::Alignment alignment;
    if (g_legendAlignment(LegendPosition(s.legendPosition), alignment))
        legend->setAlignment(alignment);
    else
        legend->hide();
    if (s.flags & kFlagShowTitle)
        chart->setTitle(g_buffer2QString(s.description, kDescriptionWidth));
}

QAreaSeries *addBandArea(QChart *chart, QLineSeries *line, quint32 argb)
{
    auto *area = new QAreaSeries(line);
    chart->addSeries(area);
    // After adding, so that the theme does not paint over the band colours.
    const QColor colour = QColor::fromRgba(argb);
    area->setBrush(QBrush(colour, Qt::SolidPattern));
    // The border has the fill colour, so it is never stroked: stroking an
    // outline of thousands of full-height steps costs seconds per paint and
    // adds nothing that can be seen.
    QPen border(colour);
    border.setStyle(Qt::NoPen);
    area->setPen(border);
    for (QLegendMarker *marker : chart->legend()->markers(area))
        marker->setVisible(false);
    return area;
}

}  // namespace

ChartBuild g_buildChart(ChartModel &model, int viewWidth, bool forPrint)
{
    ChartBuild build;
    if (g_checkChartData(model) != ChartCheck::Drawable)
        return build;

    const settingsT &s = model.settings;
    const bool bands = g_showsStateBands(s);
    const FontSizes sizes = g_fontSizes(viewWidth);
    auto *chart = new QChart;
    build.chart = chart;
    styleChart(chart, s, sizes);

    const LineType lineType = LineType(s.lineType);
    const int group = g_groupSize(s.rangeSampleCount, forPrint, lineType);
    QVector<int> shownSets;
    QVector<QAbstractSeries *> timeSeries;  // series on the time axis
    QVector<QAbstractSeries *> bandAreas;
    QVector<QPointF> points;
    StateBands bandLines;
    const int dataSets = model.usedDataSets();
    for (int i = 0; i < dataSets; ++i) {
        if (!(s.lineFlags[i] & kLineShown))
            continue;
        QXYSeries *series = lineType == LineType::Straight ? static_cast<QXYSeries *>(new QLineSeries)
                                                           : static_cast<QXYSeries *>(new QSplineSeries);
        series->setName(g_provisionalSeriesName(s, i));
        g_reduceSamples(*model.data(i), *model.modeCodes(), s.rangeBegin, s.rangeEnd, group, *model.displayData(),
                        *model.displayModeCodes());
        g_drawnPoints(*model.displayData(), points);
        series->replace(points);

        const bool lead = build.dataSeries.isEmpty();
        if (lead && bands) {
            g_buildStateBands(*model.displayData(), *model.displayModeCodes(), bandLines);
            build.upperBand = new QLineSeries;
            build.upperBand->replace(bandLines.upper);
            build.lowerBand = new QLineSeries;
            build.lowerBand->replace(bandLines.lower);
            // Red (below the lower line) first, then green (below the upper line).
            bandAreas << addBandArea(chart, build.lowerBand, kRedBandColor)
                      << addBandArea(chart, build.upperBand, kGreenBandColor);
        }
        chart->addSeries(series);
        QPen pen = series->pen();
        pen.setWidth(g_penWidth(s.lineWidth[i], forPrint));
        pen.setColor(QColor::fromRgba(s.color[i]));
        series->setPen(pen);
        if (lead)
            timeSeries << series << bandAreas;
        build.dataSeries << series;
        shownSets << i;
    }

    AxisStyle style;
    style.fontSize = sizes.axis;
    style.forPrint = forPrint;
    g_addTimeAxis(chart, timeSeries, style);
    g_addValueAxes(chart, s, shownSets, build.dataSeries, style);
    if (!bandAreas.isEmpty()) {
        g_addBandAxis(chart, bandAreas, style);
        new StateBandItem(chart,
                          {qobject_cast<QAreaSeries *>(bandAreas[0]), qobject_cast<QAreaSeries *>(bandAreas[1])});
    }
    g_applyTimeWindow(chart, s.viewBegin, s.viewEnd);
    Qt::Alignment side;
    if (g_legendAlignment(LegendPosition(s.legendPosition), side))
        flowLegend(chart, side, forPrint);
    return build;
}

QChart *g_buildMessageChart(const QString &text, int viewWidth)
{
    auto *chart = new QChart;
    chart->legend()->hide();
    auto *item = new QGraphicsSimpleTextItem(text, chart);
    item->setFont(resized(item->font(), g_fontSizes(viewWidth).legend));
    item->setBrush(chart->titleBrush());
    QObject::connect(chart, &QGraphicsWidget::geometryChanged, chart, [chart, item]() {
        const QRectF box = item->boundingRect();
        item->setPos(chart->rect().center() - box.center());
    });
    return chart;
}

void g_applyTimeWindow(QChart *chart, qint64 from, qint64 to)
{
    if (!chart)
        return;
    for (QAbstractAxis *axis : chart->axes(Qt::Horizontal)) {
        if (auto *time = qobject_cast<QDateTimeAxis *>(axis))
            time->setFormat(g_timeAxisFormat(from, to, time->tickCount()));
    }
}

void g_installChart(QChartView *view, QChart *chart)
{
    QChart *previous = view->chart();
    view->setChart(chart);
    if (previous && previous != chart)
        previous->deleteLater();
    view->setRenderHint(QPainter::Antialiasing, true);
}

bool g_restoreZoom(QChart *chart, QXYSeries *lead, const settingsT &s)
{
    if (s.viewBegin == s.rangeBegin && s.viewEnd == s.rangeEnd)
        return false;
    // 128.0 is any value: only the x positions matter.
    QRectF area = chart->plotArea();
    const QPointF left = chart->mapToPosition(QPointF(double(s.viewBegin), 128.0), lead);
    const QPointF right = chart->mapToPosition(QPointF(double(s.viewEnd), 128.0), lead);
    area.setLeft(left.x());
    area.setWidth(right.x() - left.x());
    chart->zoomIn(area);
    return true;
}

void g_applySeriesStatistics(QChart *chart, const ChartModel &model, qint64 from, qint64 to)
{
    if (!chart)
        return;
    const QVector<SeriesName> names =
        g_seriesNames(model, from, to, g_coreText(kLongStatisticsText), g_coreText(kShortStatisticsText));
    const QList<QAbstractSeries *> series = chart->series();
    for (const SeriesName &entry : names) {
        if (entry.seriesIndex >= 0 && entry.seriesIndex < series.size())
            series[entry.seriesIndex]->setName(entry.name);
    }
}

}  // namespace qv

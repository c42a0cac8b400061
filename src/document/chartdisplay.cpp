#include "document/qvchartclass.h"

#include "core/base/coretexts.h"
#include "core/chart/chartplan.h"
#include "gui/chart/chartbuilder.h"

#include <QLabel>
#include <QtCharts/QLineSeries>
#include <QtCharts/QXYSeries>

// Draws the chart of the loaded project into a chart view: this widget, or a
// print view (thicker lines, more points, no hover). The chart is always
// built anew; a model that cannot be drawn gets a chart area that says why.
void QVChartClass::m_displayChart(QtCharts::QChartView *view, bool forPrint)
{
    if (!view)
        return;
    // The state named under the pointer belongs to the chart being replaced.
    if (view == this)
        infoLabel->clear();
    const qv::ChartCheck check = qv::g_checkChartData(model());
    if (check != qv::ChartCheck::Drawable) {
        qv::g_installChart(view, qv::g_buildMessageChart(qv::g_coreText(qv::g_chartCheckText(check)), view->width()));
        return;
    }

    // The band lines belong to no chart; release those of the last build
    // (nameless from now on, so that only the current pair is found by name).
    for (QtCharts::QLineSeries *band : {modeSeries, modeSeries2}) {
        if (band) {
            band->setObjectName(QString());
            band->deleteLater();
        }
    }
    modeSeries = nullptr;
    modeSeries2 = nullptr;

    const qv::ChartBuild build = qv::g_buildChart(model(), view->width(), forPrint);
    // Owned by the widget from now on, so the last pair goes with it.
    modeSeries = build.upperBand;
    modeSeries2 = build.lowerBand;
    if (modeSeries) {
        modeSeries->setParent(this);
        modeSeries->setObjectName(QStringLiteral("modeSeries"));
    }
    if (modeSeries2) {
        modeSeries2->setParent(this);
        modeSeries2->setObjectName(QStringLiteral("modeSeries2"));
    }
    QtCharts::QChart *chart = build.chart;

    if (!forPrint) {
        chart->setAcceptHoverEvents(true);
        for (QtCharts::QXYSeries *series : build.dataSeries)
            connect(series, &QtCharts::QXYSeries::hovered, this, &QVChartClass::s_tooltip);
    }
    // The legend gets its statistics of the visible window (the zoom window,
    // which equals the selected range when not zoomed) before the view lays
    // the chart out, so that the layout runs once and not again for the names.
    m_setMinMaxAvg(chart, settings.viewBegin, settings.viewEnd);
    qv::g_installChart(view, chart);
    qv::g_restoreZoom(chart, build.dataSeries.first(), settings);
}

#include "gui/chart/chartaxes.h"

#include "core/chart/chartplan.h"
#include "core/chart/stateband.h"
#include "core/model/fixedstring.h"

#include <QtCharts/QChart>
#include <QtCharts/QDateTimeAxis>
#include <QtCharts/QValueAxis>
#include <QtCharts/QXYSeries>

using namespace QtCharts;

namespace qv {

namespace {

constexpr int kTimeTicks = 31;
constexpr int kValueTicks = 21;
constexpr qreal kTimeLabelAngle = 270;
constexpr int kPrintLineWidth = 2;

// Fonts and pens are set once the axis belongs to the chart, so that they
// start from the theme's and only the size or width changes.
void setFonts(QAbstractAxis *axis, int pointSize)
{
    QFont labels = axis->labelsFont();
    labels.setPointSize(pointSize);
    axis->setLabelsFont(labels);
    QFont title = axis->titleFont();
    title.setPointSize(pointSize);
    axis->setTitleFont(title);
}

void widenGrid(QAbstractAxis *axis)
{
    QPen pen = axis->gridLinePen();
    pen.setWidth(kPrintLineWidth);
    axis->setGridLinePen(pen);
}

}  // namespace

void g_addTimeAxis(QChart *chart, const QVector<QAbstractSeries *> &attachTo, const AxisStyle &style)
{
    auto *axis = new QDateTimeAxis;
    axis->setFormat(QStringLiteral("dd.MM.yyyy "));
    axis->setLabelsAngle(kTimeLabelAngle);
    axis->setTickCount(kTimeTicks);
    chart->addAxis(axis, Qt::AlignBottom);
    if (style.forPrint) {
        widenGrid(axis);
        QPen line = axis->linePen();
        line.setWidth(kPrintLineWidth);
        axis->setLinePen(line);
    }
    QFont labels = axis->labelsFont();
    labels.setPointSize(style.fontSize);
    axis->setLabelsFont(labels);
    for (QAbstractSeries *series : attachTo)
        series->attachAxis(axis);
}

void g_addValueAxes(QChart *chart, const settingsT &settings, const QVector<int> &dataSets,
                    const QVector<QXYSeries *> &series, const AxisStyle &style)
{
    const int n = qMin(dataSets.size(), series.size());
    for (int j = 0; j < n; ++j) {
        const int i = dataSets[j];
        const quint32 flags = settings.lineFlags[i];
        auto *axis = new QValueAxis;
        axis->setLabelFormat(g_valueLabelFormat(settings.decimals[i]));
        axis->setTitleText(g_buffer2QString(settings.unit[i], kUnitWidth));
        axis->setRange(settings.axisMin[i], settings.axisMax[i]);
        axis->setTickCount(kValueTicks);
        axis->setGridLineVisible(j == 0);
        axis->setLineVisible(false);
        axis->setVisible((flags & kLineOwnAxis) != 0);
        chart->addAxis(axis, (flags & kLineAxisRight) ? Qt::AlignRight : Qt::AlignLeft);
        if (style.forPrint)
            widenGrid(axis);
        setFonts(axis, style.fontSize);
        // Each axis in its series' colour, so that several axes on one
        // side can be told apart.
        const QColor colour = QColor::fromRgba(settings.color[i]);
        axis->setLabelsColor(colour);
        axis->setTitleBrush(colour);
        series[j]->attachAxis(axis);
    }
}

void g_addBandAxis(QChart *chart, const QVector<QAbstractSeries *> &bands, const AxisStyle &style)
{
    auto *axis = new QValueAxis;
    axis->setLabelFormat(QStringLiteral(" %i"));
    axis->setRange(0.0, kBandAxisMax);
    axis->setTickCount(kValueTicks);
    axis->setGridLineVisible(false);
    axis->setLineVisible(false);
    axis->setVisible(false);
    chart->addAxis(axis, Qt::AlignRight);
    setFonts(axis, style.fontSize);
    for (QAbstractSeries *band : bands)
        band->attachAxis(axis);
}

}  // namespace qv

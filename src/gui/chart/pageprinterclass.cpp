#include "gui/chart/pageprinterclass.h"

#include "core/base/coretexts.h"
#include "core/chart/pagelayout.h"
#include "core/model/fixedstring.h"
#include "gui/chart/chartbuilder.h"

#include <QCoreApplication>
#include <QHash>
#include <QImage>
#include <QPageLayout>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QtCharts/QChart>
#include <QtCharts/QChartView>
#include <QtCharts/QLineSeries>

#include <memory>

namespace qv {

namespace {

// The view's edge that stays off the page: 16 pixels left and right, 12 at
// the top and the bottom (the chart's own frame margin).
QRect printSource(const QtCharts::QChartView &view)
{
    return view.rect().adjusted(16, 12, -16, -12);
}

// An off-screen chart view of the given size, ready to take a chart.
std::unique_ptr<QtCharts::QChartView> printView(int width, int height)
{
    auto view = std::make_unique<QtCharts::QChartView>();
    view->setAttribute(Qt::WA_DontShowOnScreen);
    view->setFrameShape(QFrame::NoFrame);
    view->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    view->resize(width, height);
    QCoreApplication::sendPostedEvents();
    return view;
}

QString chartTitle(const ChartModel &model)
{
    return g_buffer2QString(model.settings.description, kDescriptionWidth).trimmed();
}

}  // namespace

PagePrinterClass::PagePrinterClass(const ChartModel &model, ChartFill fill)
    : chartModel(model), chartFill(std::move(fill))
{
}

void PagePrinterClass::m_setupPrinter(QPrinter &printer, QPrinter::OutputFormat format)
{
    printer.setOutputFormat(format);
    printer.setResolution(kPageDpi);
    printer.setPageOrder(QPrinter::FirstPageFirst);
    printer.setPageLayout(
        QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(0, 0, 0, 0), QPageLayout::Point));
    printer.setFullPage(true);
    printer.setPrintRange(QPrinter::AllPages);
}

bool PagePrinterClass::m_paint(QPaintDevice *device, const Progress &progress) const
{
    QPainter painter;
    if (!painter.begin(device))
        return false;
    m_paint(painter, device->width(), device->height(), progress);
    return painter.end();
}

void PagePrinterClass::m_paint(QPainter &painter, int width, int height, const Progress &progress) const
{
    const auto report = [&](int main, int detail) {
        if (progress)
            progress(main, detail);
    };
    report(32, 128);
    painter.save();

    std::unique_ptr<QtCharts::QChartView> view = printView(width / 2, height / 2);
    if (chartFill)
        chartFill(view.get());
    QCoreApplication::sendPostedEvents();
    report(96, 128);

    // Drawn straight onto the page, scaled from the half-size view: a
    // printer or PDF gets vectors and text, no picture of the chart.
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    view->render(&painter, QRectF(g_pageChartRect(width, height)), printSource(*view), Qt::IgnoreAspectRatio);
    report(192, 128);

    const QVector<PageBandEntry> band = g_pageBand(chartModel.settings, *chartModel.modeParameters(), height);
    if (!band.isEmpty()) {
        QFont font = painter.font();
        font.setPointSize(8);
        font.setWeight(QFont::Normal);
        // Letter by letter, so that "Offset" stays searchable as typed.
        font.setStyleStrategy(QFont::PreferNoShaping);
        painter.setFont(font);
        painter.setPen(Qt::black);
        painter.setBrush(QBrush(Qt::black, Qt::SolidPattern));
        // A label longer in this language than the layout's label width
        // pushes the values of its column right, so no label runs into its
        // value.
        QHash<int, int> valueX;
        const int gap = 2 * painter.fontMetrics().horizontalAdvance(QLatin1Char(' '));
        for (const PageBandEntry &entry : band) {
            const int labelEnd = entry.labelX + painter.fontMetrics().horizontalAdvance(g_coreText(entry.label)) + gap;
            valueX[entry.labelX] = qMax(valueX.value(entry.labelX, entry.valueX), labelEnd);
        }
        for (const PageBandEntry &entry : band) {
            painter.drawText(entry.labelX, entry.y, g_coreText(entry.label));
            painter.drawText(valueX.value(entry.labelX), entry.y, entry.value);
        }
    }
    painter.restore();
    report(255, 255);
}

void g_fillPrintView(ChartModel &model, QtCharts::QChartView *view)
{
    const ChartBuild build = g_buildChart(model, view->width(), true);
    // The band lines belong to no chart; they go with the view.
    for (QtCharts::QLineSeries *line : {build.upperBand, build.lowerBand}) {
        if (line)
            line->setParent(view);
    }
    if (!build.chart)
        return;
    g_applySeriesStatistics(build.chart, model, model.settings.viewBegin, model.settings.viewEnd);
    g_installChart(view, build.chart);
    g_restoreZoom(build.chart, build.dataSeries.first(), model.settings);
}

bool g_writePagePdf(ChartModel &model, QIODevice &device)
{
    QPrinter printer(QPrinter::HighResolution);
    PagePrinterClass::m_setupPrinter(printer, QPrinter::PdfFormat);
    QPdfWriter pdf(&device);
    pdf.setResolution(printer.resolution());
    pdf.setPageLayout(printer.pageLayout());
    pdf.setTitle(chartTitle(model));
    pdf.setCreator(QStringLiteral("Quorvanta"));
    const PagePrinterClass page(model, [&model](QtCharts::QChartView *view) { g_fillPrintView(model, view); });
    return page.m_paint(&pdf);
}

bool g_writeChartImage(ChartModel &model, QIODevice &device, const QByteArray &format, int width)
{
    // The chart as the page shows it: the same view size, scaled to width.
    QPrinter printer(QPrinter::HighResolution);
    PagePrinterClass::m_setupPrinter(printer, QPrinter::PdfFormat);
    const QRect page = printer.pageLayout().fullRectPixels(kPageDpi);
    const QRect chart = g_pageChartRect(page.width(), page.height());
    std::unique_ptr<QtCharts::QChartView> view = printView(page.width() / 2, page.height() / 2);
    g_fillPrintView(model, view.get());
    QCoreApplication::sendPostedEvents();
    const int height = qMax(1, int(qint64(width) * chart.height() / chart.width()));
    QImage image(width, height, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setRenderHint(QPainter::TextAntialiasing, true);
    view->render(&painter, QRectF(image.rect()), printSource(*view), Qt::IgnoreAspectRatio);
    painter.end();
    return image.save(&device, format.constData());
}

}  // namespace qv

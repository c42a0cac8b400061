// Draws the printed page of a model onto any paint device (a printer, a PDF
// writer, a picture): the print chart, built into an off-screen chart view of
// half the page's size and drawn scaled into the chart rectangle (as vectors,
// so lines and labels stay sharp and text stays text), and below it the
// device parameter band.
#pragma once

#include "core/model/chartmodel.h"

#include <QPrinter>
#include <QString>

#include <functional>

class QIODevice;
class QPaintDevice;
class QPainter;

namespace QtCharts {
class QChartView;
}

namespace qv {

class PagePrinterClass
{
public:
    // Builds the print chart into a view; the desktop passes its chart
    // widget's builder, the command line g_fillPrintView.
    using ChartFill = std::function<void(QtCharts::QChartView *view)>;
    // Reports progress (main, detail; 0..255) while a page is drawn.
    using Progress = std::function<void(int main, int detail)>;

    PagePrinterClass(const ChartModel &model, ChartFill fill);

    // Draws the page onto device, which must be a page of the printer's
    // layout (any size works; the band coordinates assume 600 dpi A4).
    bool m_paint(QPaintDevice *device, const Progress &progress = Progress()) const;
    // Draws onto a painter already active on a device of width x height.
    void m_paint(QPainter &painter, int width, int height, const Progress &progress = Progress()) const;

    // Printer set-up of the page: high resolution, 600 dpi, A4 landscape,
    // no margins, first page first, all pages.
    static void m_setupPrinter(QPrinter &printer, QPrinter::OutputFormat format);

private:
    const ChartModel &chartModel;
    ChartFill chartFill;
};

// Builds the print chart of model into view (4096 points, thick pens, no
// hover), with the legend statistics and the zoom window of the model.
void g_fillPrintView(ChartModel &model, QtCharts::QChartView *view);

// Writes the page of model onto device as a one-page PDF whose title is the
// chart title.
bool g_writePagePdf(ChartModel &model, QIODevice &device);

// Draws the print chart alone into a picture of the given width (height in
// the page's proportion) and writes it onto device in format ("png", "jpg").
bool g_writeChartImage(ChartModel &model, QIODevice &device, const QByteArray &format, int width);

}  // namespace qv

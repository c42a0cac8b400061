// Print and PDF export: one A4 landscape page shown in a print preview, from
// which the user prints it or saves it as a PDF. The page itself is drawn by
// the chart subsystem's page printer; this widget lends it the print chart.
#include "document/qvchartclass.h"

#include "core/model/fixedstring.h"
#include "gui/chart/pageprinterclass.h"
#include "gui/ui/dialogseam.h"
#include "gui/ui/progressdialogclass.h"

#include <QIcon>
#include <QPainter>
#include <QPrintPreviewDialog>
#include <QPrinter>

void QVChartClass::s_print()
{
    m_printPreview(tr("Quorvanta Print Preview"), QIcon(QStringLiteral(":/new/prefix1/resources/print.png")),
                   QPrinter::NativeFormat);
}

void QVChartClass::s_exportPDF()
{
    m_printPreview(tr("Quorvanta PDF Preview"), QIcon(QStringLiteral(":/new/prefix1/resources/exportpdf.png")),
                   QPrinter::PdfFormat);
}

void QVChartClass::m_printPreview(const QString &title, const QIcon &icon, QPrinter::OutputFormat format)
{
    QPrinter printer(QPrinter::HighResolution);
    qv::PagePrinterClass::m_setupPrinter(printer, format);
    // A saved PDF carries the chart title as its document title.
    printer.setDocName(qv::g_buffer2QString(settings.description, qv::kDescriptionWidth).trimmed());

    QPrintPreviewDialog preview(&printer, this);
    connect(&preview, &QPrintPreviewDialog::paintRequested, this, &QVChartClass::s_printDocument);
    preview.setWindowTitle(title);
    preview.setWindowIcon(icon);
    // As tall as the chart's surroundings, 128 pixels narrower on each side,
    // starting 128 pixels right of the chart.
    const QWidget *frame = parentWidget() ? parentWidget() : this;
    const QPoint at = mapToGlobal(QPoint(0, 0));
    preview.setGeometry(at.x() + 128, at.y(), qMax(320, frame->width() - 256), qMax(240, frame->height()));
    qv::g_execDialog(preview);
}

void QVChartClass::s_printDocument(QPrinter *printer)
{
    if (!printer)
        return;
    auto *progress = new ProgressDialogClass(mainWindow, tr("Rendering chart for printing..."), tr("Page Setup..."));
    m_setWaitCursor();
    const qv::PagePrinterClass page(model(), [this](QtCharts::QChartView *view) { m_displayChart(view, true); });
    page.m_paint(printer, [progress](int main, int detail) {
        progress->m_setProgress(main);
        progress->m_setDetailProgress(detail);
    });
    // Hidden at once: the preview asks for its page inside its own event
    // loop, and the deferred deletion would only run once the preview closes.
    progress->hide();
    progress->deleteLater();
    m_restoreCursor();
    // The print build released this widget's state-band lines: draw the
    // screen chart again, with its zoom window and statistics.
    m_displayChart(this, false);
}

// Size of the chart widget in the scroll area and the zoom commands.
#include "app/quorvantaclass.h"

#include "core/chart/displaysize.h"
#include "document/qvchartclass.h"
#include "ui_quorvanta.h"

void QuorvantaClass::s_resizeDisplay()
{
    QScrollArea *area = ui->scrollArea;
    if (!chart) {
        area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        return;
    }
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    const QSize available(ui->centralWidget->width() - ui->frameData->width() - 14, ui->centralWidget->height() - 8);
    const qv::DisplaySize display = qv::g_displaySize(zoom, available, fittedSize);
    if (display.fitted)
        fittedSize = display.size;
    const QSize size = display.size.expandedTo(QSize(0, 0));
    if (size == chart->size())
        return;
    chart->resize(size);
    chart->m_displayChart(chart, false);  // fonts follow the width
}

void QuorvantaClass::s_zoomIn()
{
    zoom = qv::g_zoomIn(zoom);
    s_resizeDisplay();
}

void QuorvantaClass::s_zoomOut()
{
    zoom = qv::g_zoomOut(zoom);
    s_resizeDisplay();
}

void QuorvantaClass::s_zoomFull()
{
    zoom = qv::kZoomFitPage;
    s_resizeDisplay();
}

void QuorvantaClass::s_zoomWidth()
{
    zoom = qv::kZoomFitWidth;
    s_resizeDisplay();
}

void QuorvantaClass::s_zoomHeight()
{
    zoom = qv::kZoomFitHeight;
    s_resizeDisplay();
}

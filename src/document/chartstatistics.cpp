#include "document/qvchartclass.h"

#include "gui/chart/chartbuilder.h"

// Every legend entry carries min, average and max of its data set over the
// visible window; runs after every build and every zoom or pan step, which
// also suit the time axis labels to the window.
void QVChartClass::m_setMinMaxAvg(QtCharts::QChart *chart, qint64 from, qint64 to)
{
    qv::g_applyTimeWindow(chart, from, to);
    qv::g_applySeriesStatistics(chart, model(), from, to);
}

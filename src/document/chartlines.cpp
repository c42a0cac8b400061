#include "document/qvchartclass.h"

#include <QCheckBox>
#include <QLabel>
#include <QSignalBlocker>

// A row box or the "Show vaporix Mode" box was toggled: the model's rule
// decides which data sets are shown (at least one stays; unticking the last
// brings back the first), the boxes follow it without signalling again, and
// the chart is rebuilt.
void QVChartClass::s_enableLine()
{
    qv::ChartModel &m = model();
    for (int i = 0; i < qv::kMaxDataSets; ++i)
        m.row[i].checked = enableBox[i]->isChecked();
    m.modeBoxChecked = modeBox->isChecked();
    m.applyRowChecks();
    for (int i = 0; i < qv::kMaxDataSets; ++i) {
        const QSignalBlocker blocker(enableBox[i]);
        enableBox[i]->setChecked(m.row[i].checked);
    }
    if (!m.modeBoxChecked)
        infoLabel->clear();
    m_displayChart(this, false);
}

#include "document/qvchartclass.h"

#include "gui/chart/choosedialogclass.h"
#include "gui/ui/dialogseam.h"

#include <cstring>

// The data selection command: the dialog works on a copy of the settings and
// gets every data set in use; only an accepted dialog changes the range, and
// then the chart is drawn anew. The row boxes stay as they are.
void QVChartClass::s_chooseData()
{
    auto *dialog = new ChooseDialogClass(this, &settings);
    connect(dialog, &ChooseDialogClass::m_showHelp, this, &QVChartClass::s_showHelp);
    const int used = model().usedDataSets();
    for (int i = 0; i < used; ++i)
        dialog->m_setData(i, model().data(i));
    dialog->m_fillTable();
    if (qv::g_execDialog(*dialog) == QDialog::Accepted) {
        std::memcpy(&settings, dialog->m_getSettings(), sizeof(settingsT));
        model().recountRange();
        m_displayChart(this, false);
    }
    dialog->deleteLater();
}

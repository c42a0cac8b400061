#include "document/qvchartclass.h"

#include "gui/chart/choosedialogclass.h"

// The data selection command: the dialog gets every data set in use; only an
// accepted dialog changes the range. The row boxes stay as they are.
void QVChartClass::s_chooseData()
{
    auto *dialog = new ChooseDialogClass(this, &settings);
    connect(dialog, &ChooseDialogClass::m_showHelp, this, &QVChartClass::s_showHelp);
    const int used = model().usedDataSets();
    for (int i = 0; i < used; ++i)
        dialog->m_setData(i, model().data(i));
    dialog->m_fillTable();
    m_runSettingsDialog(dialog, *dialog->m_getSettings(), [this] { model().recountRange(); });
}

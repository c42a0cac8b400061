#include "document/qvchartclass.h"

#include "core/model/fixedstring.h"
#include "gui/dialogs/settingsdialogclass.h"
#include "gui/dialogs/settingssmalldialogclass.h"
#include "gui/ui/dialogseam.h"

#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>
#include <cstring>

// The chart settings command: the dialog edits a copy; only an accepted
// dialog is copied back, and then the rows follow the record (names, ticks
// set without a redraw per row), the chart is drawn anew and the project is
// marked modified.
void QVChartClass::s_formatChart()
{
    auto *dialog = new SettingsDialogClass(this, &settings);
    connect(dialog, &SettingsDialogClass::m_showHelp, this, &QVChartClass::s_showHelp);
    if (qv::g_execDialog(*dialog) == QDialog::Accepted) {
        std::memcpy(&settings, dialog->m_getSettings(), sizeof(settingsT));
        model().recountRange();
        for (int i = 0; i < model().usedDataSets(); ++i)
            m_showRow(i);
        m_displayChart(this, false);
        emit m_projectChanged();
    }
    dialog->deleteLater();
}

// The small button beside a row opens the settings of that data set.
void QVChartClass::s_setupLine()
{
    auto *button = qobject_cast<QToolButton *>(sender());
    if (!button)
        return;
    const int index = int(std::find(setupButton, setupButton + qv::kMaxDataSets, button) - setupButton);
    if (index >= qv::kMaxDataSets)
        return;
    auto *dialog = new SettingsSmallDialogClass(this, &settings, index);
    connect(dialog, &SettingsSmallDialogClass::m_showHelp, this, &QVChartClass::s_showHelp);
    if (qv::g_execDialog(*dialog) == QDialog::Accepted) {
        std::memcpy(&settings, dialog->m_getSettings(), sizeof(settingsT));
        m_showRow(index);
        m_displayChart(this, false);
        emit m_projectChanged();
    }
    dialog->deleteLater();
}

// The row box of data set index shows its name and its shown bit; the tick is
// set with the box's signals blocked, so it does not redraw by itself.
void QVChartClass::m_showRow(int index)
{
    const bool shown = settings.lineFlags[index] & qv::kLineShown;
    model().row[index].checked = shown;
    enableBox[index]->setFullText(g_buffer2QString(settings.name[index], qv::kNameWidth));
    const QSignalBlocker blocker(enableBox[index]);
    enableBox[index]->setChecked(shown);
}

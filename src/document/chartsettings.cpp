#include "document/qvchartclass.h"

#include "core/model/fixedstring.h"
#include "gui/dialogs/settingsdialogclass.h"
#include "gui/dialogs/settingssmalldialogclass.h"
#include "gui/ui/dialogseam.h"

#include <QSignalBlocker>
#include <QToolButton>

#include <algorithm>
#include <cstring>

bool QVChartClass::m_runSettingsDialog(QDialog *dialog, const settingsT &edited, const std::function<void()> &apply)
{
    // Modal to the main window only, so that the help window its Help button
    // opens (a window of its own) takes clicks, wheel and keys beside it.
    dialog->setWindowModality(Qt::WindowModal);
    const bool accepted = qv::g_execDialog(*dialog) == QDialog::Accepted;
    if (accepted) {
        std::memcpy(&settings, &edited, sizeof(settingsT));
        apply();
        m_displayChart(this, false);
    }
    dialog->deleteLater();
    return accepted;
}

// The chart settings command: after an accepted dialog the rows follow the
// record (names, ticks set without a redraw per row) and the project is
// marked modified.
void QVChartClass::s_formatChart()
{
    auto *dialog = new SettingsDialogClass(this, &settings);
    connect(dialog, &SettingsDialogClass::m_showHelp, this, &QVChartClass::s_showHelp);
    const bool accepted = m_runSettingsDialog(dialog, *dialog->m_getSettings(), [this] {
        model().recountRange();
        for (int i = 0; i < model().usedDataSets(); ++i)
            m_showRow(i);
    });
    if (accepted)
        emit m_projectChanged();
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
    if (m_runSettingsDialog(dialog, *dialog->m_getSettings(), [this, index] { m_showRow(index); }))
        emit m_projectChanged();
}

// The row box of data set index shows its name and its shown bit; the tick is
// set with the box's signals blocked, so it does not redraw by itself.
void QVChartClass::m_showRow(int index)
{
    const bool shown = settings.lineFlags[index] & qv::kLineShown;
    model().row[index].checked = shown;
    enableBox[index]->setFullText(qv::g_buffer2QString(settings.name[index], qv::kNameWidth));
    const QSignalBlocker blocker(enableBox[index]);
    enableBox[index]->setChecked(shown);
}

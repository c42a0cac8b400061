#include "document/qvchartclass.h"

#include "core/model/fixedstring.h"

#include <QCheckBox>
#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QToolButton>

namespace {

constexpr int kModeBoxRow = qv::kMaxDataSets;
constexpr int kInfoLabelRow = qv::kMaxDataSets + 1;

}  // namespace

QVChartClass::QVChartClass(QWidget *mainWindow, QString *projectDir, QString *importDir, QGridLayout *rowGrid)
    : QtCharts::QChartView(static_cast<QWidget *>(nullptr)), mainWindow(mainWindow),
      projectDir(projectDir ? *projectDir : QString()), importDir(importDir ? *importDir : QString()),
      chartModel(std::make_unique<qv::ChartModel>()), settings(chartModel->settings)
{
    QWidget *rowParent = rowGrid ? rowGrid->parentWidget() : nullptr;
    const QIcon settingsIcon(QStringLiteral(":/new/prefix1/resources/settings.png"));
    for (int i = 0; i < qv::kMaxDataSets; ++i) {
        enableBox[i] = new qv::ElidedCheckBox(rowParent);
        enableBox[i]->setObjectName(QStringLiteral("enableBox%1").arg(i));
        enableBox[i]->setEnabled(false);
        setupButton[i] = new QToolButton(rowParent);
        setupButton[i]->setObjectName(QStringLiteral("setupButton%1").arg(i));
        setupButton[i]->setEnabled(false);
        setupButton[i]->setIcon(settingsIcon);
        setupButton[i]->setIconSize(QSize(16, 16));
        if (rowGrid) {
            rowGrid->addWidget(enableBox[i], i, 0);
            rowGrid->addWidget(setupButton[i], i, 1);
        }
    }
    modeBox = new QCheckBox(rowParent);
    modeBox->setObjectName(QStringLiteral("modeBox"));
    modeBox->setVisible(false);
    infoLabel = new QLabel(rowParent);
    infoLabel->setObjectName(QStringLiteral("infoLabel"));
    infoLabel->setMinimumHeight(48);
    infoLabel->setAlignment(Qt::AlignCenter);
    infoLabel->setWordWrap(true);
    if (rowGrid) {
        rowGrid->addWidget(modeBox, kModeBoxRow, 0);
        rowGrid->addWidget(infoLabel, kInfoLabelRow, 0, 1, 2);
    }
    m_retranslate();
}

QVChartClass::~QVChartClass()
{
    // The row controls live in the main window's panel, not in this view.
    for (int i = 0; i < qv::kMaxDataSets; ++i) {
        delete enableBox[i];
        delete setupButton[i];
    }
    delete modeBox;
    delete infoLabel;
    m_restoreCursor();
}

void QVChartClass::m_setProjectFile(QString &file, QString &dir)
{
    projectFile = file;
    projectDir = dir;
    emit m_projectFileChanged(&projectFile, &projectDir);
}

void QVChartClass::s_projectChanged()
{
    emit m_projectChanged();
}

void QVChartClass::s_showHelp(QWidget *parent, QString *page)
{
    emit m_showHelp(parent, page);
}

void QVChartClass::m_showRows()
{
    const qv::ChartModel &m = *chartModel;
    for (int i = 0; i < qv::kMaxDataSets; ++i) {
        if (!m.row[i].enabled)
            continue;
        enableBox[i]->setFullText(qv::g_buffer2QString(settings.name[i], qv::kNameWidth));
        enableBox[i]->setEnabled(true);
        enableBox[i]->setChecked(m.row[i].checked);
        setupButton[i]->setEnabled(true);
        connect(enableBox[i], &QCheckBox::stateChanged, this, &QVChartClass::s_enableLine, Qt::UniqueConnection);
        connect(setupButton[i], &QToolButton::clicked, this, &QVChartClass::s_setupLine, Qt::UniqueConnection);
    }
    if (m.modeBoxVisible) {
        modeBox->setVisible(true);
        modeBox->setChecked(m.modeBoxChecked);
        connect(modeBox, &QCheckBox::stateChanged, this, &QVChartClass::s_enableLine, Qt::UniqueConnection);
    }
}

void QVChartClass::m_setWaitCursor()
{
    waitCursor.set();
}

void QVChartClass::m_restoreCursor()
{
    waitCursor.restore();
}

void QVChartClass::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        m_retranslate();
    QtCharts::QChartView::changeEvent(event);
}

void QVChartClass::m_retranslate()
{
    modeBox->setText(tr("Show vaporix Mode"));
}

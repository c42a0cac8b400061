#include "app/quorvantaclass.h"

#include "app/aboutdialogclass.h"
#include "app/startscreenclass.h"
#include "core/base/coretexts.h"
#include "core/chart/displaysize.h"
#include "core/import/controllersteps.h"
#include "core/project/recentfiles.h"
#include "document/qvchartclass.h"
#include "gui/help/helpwindowclass.h"
#include "gui/ui/dialogseam.h"
#include "gui/ui/resources.h"
#include "ui_quorvanta.h"

#include <QActionGroup>
#include <QCloseEvent>
#include <QLabel>
#include <QTranslator>

QuorvantaClass::QuorvantaClass(const QString &appDir, QWidget *parent, bool showStartScreen)
    : QMainWindow(parent), ui(std::make_unique<Ui_Quorvanta>()), appDir(appDir), zoom(qv::kZoomFitPage),
      appTranslator(new QTranslator(this)), qtTranslator(new QTranslator(this))
{
    qv::g_initResources();
    std::unique_ptr<StartScreenClass> startScreen;
    if (showStartScreen) {
        startScreen = std::make_unique<StartScreenClass>();
        startScreen->show();
    }
    ui->setupUi(this);
    setAcceptDrops(true);  // a project or sampling file dropped on the window
    recentGroup = new QActionGroup(this);
    recentGroup->setExclusionPolicy(QActionGroup::ExclusionPolicy::None);
    m_enableProjectActions(false);

    m_readSettings();
    m_connectActions();

    if (startScreen) {
        startScreen->m_waitForStartScreen();
        startScreen.reset();
    }
    ui->statusBar->hide();
    show();
}

QuorvantaClass::~QuorvantaClass()
{
    // The chart's row controls live in this window's panel: the chart goes first.
    delete chart;
    chart = nullptr;
    delete helpWindow;
}

void QuorvantaClass::m_connectActions()
{
    Ui_Quorvanta &u = *ui;
    connect(u.actionNew, &QAction::triggered, this, [this] { s_newProject(false); });
    connect(u.actionOpen, &QAction::triggered, this, [this] { s_openProject(QString()); });
    connect(u.actionClose, &QAction::triggered, this, &QuorvantaClass::s_closeProject);
    connect(u.actionExit, &QAction::triggered, this, &QuorvantaClass::s_exit);
    connect(u.actionEnglisch, &QAction::triggered, this, &QuorvantaClass::s_english);
    connect(u.actionDeutsch, &QAction::triggered, this, &QuorvantaClass::s_deutsch);
    connect(u.actionAutoSave, &QAction::toggled, this, &QuorvantaClass::s_autoSave);
    connect(u.actionHelp, &QAction::triggered, this, [this] { s_help(); });
    connect(u.actionAbout, &QAction::triggered, this, &QuorvantaClass::s_about);
    connect(u.actionCheckUpdates, &QAction::triggered, this, &QuorvantaClass::s_update);
    connect(u.actionZoomIn, &QAction::triggered, this, &QuorvantaClass::s_zoomIn);
    connect(u.actionZoomOut, &QAction::triggered, this, &QuorvantaClass::s_zoomOut);
    connect(u.actionZoomFull, &QAction::triggered, this, &QuorvantaClass::s_zoomFull);
    connect(u.actionZoomWidth, &QAction::triggered, this, &QuorvantaClass::s_zoomWidth);
    connect(u.actionZoomHeight, &QAction::triggered, this, &QuorvantaClass::s_zoomHeight);
}

// Commands that work on the open project; made anew for every chart widget.
void QuorvantaClass::m_connectChart()
{
    Ui_Quorvanta &u = *ui;
    connect(u.actionSave, &QAction::triggered, chart, &QVChartClass::s_saveProject);
    connect(u.actionSaveAs, &QAction::triggered, chart, &QVChartClass::s_saveProjectAs);
    connect(u.actionExportPDF, &QAction::triggered, chart, &QVChartClass::s_exportPDF);
    connect(u.actionExportCSV, &QAction::triggered, chart, &QVChartClass::s_exportCSV);
    connect(u.actionPrint, &QAction::triggered, chart, &QVChartClass::s_print);
    connect(u.actionSettings, &QAction::triggered, chart, &QVChartClass::s_formatChart);
    connect(u.actionChooseData, &QAction::triggered, chart, &QVChartClass::s_chooseData);
    connect(u.buttonData, &QPushButton::clicked, chart, &QVChartClass::s_chooseData);
    connect(chart, &QVChartClass::m_projectFileChanged, this, &QuorvantaClass::s_projectFileChanged);
    connect(chart, &QVChartClass::m_projectChanged, this, &QuorvantaClass::s_projectChanged);
    connect(chart, &QVChartClass::m_showHelp, this, &QuorvantaClass::s_help);
}

void QuorvantaClass::m_enableProjectActions(bool enable)
{
    Ui_Quorvanta &u = *ui;
    for (QAction *action : {u.actionClose, u.actionSave, u.actionSaveAs, u.actionExportPDF, u.actionExportCSV,
                            u.actionPrint, u.actionZoomIn, u.actionZoomOut, u.actionZoomFull, u.actionZoomWidth,
                            u.actionZoomHeight, u.actionSettings, u.actionChooseData})
        action->setEnabled(enable);
    u.buttonData->setEnabled(enable);
}

void QuorvantaClass::s_exit()
{
    close();
}

void QuorvantaClass::s_about()
{
    AboutDialogClass dialog(language, this);
    qv::g_execDialog(dialog);
}

void QuorvantaClass::closeEvent(QCloseEvent *event)
{
    if (!s_closeProject()) {
        event->ignore();
        return;
    }
    if (HelpWindowClass *window = helpWindow) {
        window->close();  // hands its geometry to s_helpClosed
        delete window;
    }
    m_saveSettings();
    event->accept();
}

void QuorvantaClass::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    s_resizeDisplay();
}

// The status bar says, while the project is open, that its recording was read
// as standard time; it is hidden otherwise.
void QuorvantaClass::m_showClockReading()
{
    QString text;
    if (chart && chart->model().clockReading == qv::ClockReading::StandardTime)
        text = qv::g_coreText(qv::kTextStandardTime).arg(qv::g_utcOffsetText(chart->model().standardOffset));
    if (!clockLabel && !text.isEmpty()) {
        clockLabel = new QLabel(ui->statusBar);
        clockLabel->setObjectName(QStringLiteral("clockLabel"));
        ui->statusBar->addWidget(clockLabel, 1);
    }
    if (clockLabel)
        clockLabel->setText(text);
    ui->statusBar->setVisible(!text.isEmpty());
}

void QuorvantaClass::m_setTitle(TitleKind kind, const QString &path)
{
    titleKind = kind;
    titlePath = path;
    switch (kind) {
    case TitleKind::Form:
        setWindowTitle(QCoreApplication::translate("Quorvanta", "Merovin Quorvanta [*]"));
        break;
    case TitleKind::NoProject:
        setWindowTitle(tr("Quorvanta [*]"));
        break;
    case TitleKind::Noname:
        setWindowTitle(tr("Quorvanta - Noname [*]"));
        break;
    case TitleKind::File:
        setWindowTitle(tr("Quorvanta - ") + qv::g_titlePath(path) + QStringLiteral(" [*]"));
        break;
    }
}

#include "gui/help/helpwindowclass.h"

#include "gui/ui/dialogseam.h"
#include "ui_helpwindow.h"

#include <QCloseEvent>
#include <QDir>
#include <QFileInfo>
#include <QPrintDialog>
#include <QPrinter>
#include <QUrl>

namespace qv {

QString g_helpFolder(const QString &appDir, qv::Language language)
{
    static const char *const codes[] = {"en", "de", "fr", "it"};
    const auto index = quint32(language);
    if (index >= sizeof codes / sizeof codes[0])
        return QString();
    const QString code = QLatin1String(codes[index]);
    const QString beside = appDir + QStringLiteral("/help/") + code;
    if (QFileInfo(beside).isDir())
        return beside;
    const QString installed = QDir::cleanPath(appDir + QStringLiteral("/../share/quorvanta/help/") + code);
    return QFileInfo(installed).isDir() ? installed : beside;
}

}  // namespace qv

HelpWindowClass::HelpWindowClass(QString *appDir, QWidget *parent, QString *page, qv::Language language)
    : QMainWindow(parent), ui(std::make_unique<Ui_HelpWindow>())
{
    ui->setupUi(this);
    delete ui->statusbar;
    ui->statusbar = nullptr;
    setWindowIcon(QIcon(QStringLiteral(":/new/prefix1/resources/help.png")));

    const QString folder = qv::g_helpFolder(appDir ? *appDir : QString(), language);
    if (!folder.isEmpty())
        searchPaths << folder;
    ui->helpBrowser->setSearchPaths(searchPaths);
    ui->helpBrowser->setOpenExternalLinks(true);

    connect(ui->actionExit, &QAction::triggered, this, &QWidget::close);
    connect(ui->actionPrevious, &QAction::triggered, ui->helpBrowser, &QTextBrowser::backward);
    connect(ui->actionNext, &QAction::triggered, ui->helpBrowser, &QTextBrowser::forward);
    connect(ui->actionHome, &QAction::triggered, ui->helpBrowser, &QTextBrowser::home);
    connect(ui->helpBrowser, &QTextBrowser::backwardAvailable, ui->actionPrevious, &QAction::setEnabled);
    connect(ui->helpBrowser, &QTextBrowser::forwardAvailable, ui->actionNext, &QAction::setEnabled);
    connect(ui->actionSearch, &QAction::triggered, this, &HelpWindowClass::s_search);
    connect(ui->actionPrint, &QAction::triggered, this, &HelpWindowClass::s_print);

    // The first page shown becomes the browser's home, so the index goes
    // first whenever another page is asked for: Home and Previous lead to it.
    // The comparison is exact, so "Index.html" lands in the history twice.
    const QString requested = page ? *page : QStringLiteral("index.html");
    if (requested != QLatin1String("index.html"))
        ui->helpBrowser->setSource(QUrl(QStringLiteral("index.html")));
    ui->helpBrowser->setSource(QUrl(requested));
}

HelpWindowClass::~HelpWindowClass() = default;

void HelpWindowClass::m_setSource(QString *page)
{
    if (page)
        ui->helpBrowser->setSource(QUrl(*page));
}

void HelpWindowClass::s_search()
{
    ui->helpBrowser->setSource(QUrl(QStringLiteral("search.html")));
}

void HelpWindowClass::s_print()
{
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    dialog.setWindowTitle(tr("Print Help Document"));
    dialog.setOption(QAbstractPrintDialog::PrintSelection, true);
    if (qv::g_execDialog(dialog) == QDialog::Accepted)
        ui->helpBrowser->print(&printer);  // honours "selection only"
}

void HelpWindowClass::closeEvent(QCloseEvent *event)
{
    closedGeometry = saveGeometry();
    closedState = saveState();
    emit m_closed(&closedGeometry, &closedState);
    event->accept();
}

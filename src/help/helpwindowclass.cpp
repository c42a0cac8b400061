#include "help/helpwindowclass.h"

#include <QCloseEvent>
#include <QFileInfo>
#include <QTextBrowser>
#include <QUrl>

HelpWindowClass::HelpWindowClass(const QString &appDir, const QString &page, quint32 language, QWidget *parent)
    : QMainWindow(parent), appDir(appDir), language(language), browser(new QTextBrowser(this))
{
    setObjectName(QStringLiteral("helpWindow"));
    setWindowTitle(tr("Quorvanta Help"));
    setWindowIcon(QIcon(QStringLiteral(":/new/prefix1/resources/help.png")));
    resize(800, 600);
    browser->setOpenExternalLinks(true);
    setCentralWidget(browser);
    m_setPage(page);
}

QString HelpWindowClass::m_helpFolder() const
{
    return appDir + (language == 1 ? QStringLiteral("/help/de") : QStringLiteral("/help/en"));
}

void HelpWindowClass::m_setPage(const QString &page)
{
    const QString path = m_helpFolder() + QLatin1Char('/') + page;
    if (QFileInfo::exists(path)) {
        browser->setSource(QUrl::fromLocalFile(path));
        return;
    }
    browser->setHtml(QStringLiteral("<h2>") + tr("Quorvanta Help") + QStringLiteral("</h2><p>") +
                     tr("The help pages are not installed.") + QStringLiteral("</p>"));
}

void HelpWindowClass::closeEvent(QCloseEvent *event)
{
    closedPos = saveGeometry();
    closedState = saveState();
    event->accept();
    emit m_closed(&closedPos, &closedState);
}

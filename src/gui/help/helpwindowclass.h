// The help window: a browser over the HTML pages of the language's help
// folder with Previous/Next/Home/Search/Print/Exit. Reports its geometry and
// tool-bar state when it closes, so the main window can store them.
#pragma once

#include "gui/ui/language.h"

#include <QByteArray>
#include <QMainWindow>
#include <QString>
#include <QStringList>

#include <memory>

class Ui_HelpWindow;

namespace qv {

// The folder the pages of a language live in: appDir + "/help/en", "/de",
// "/fr" or "/it" for English, German, French and Italian; when the program
// runs installed (appDir = <prefix>/bin) and no such folder is beside it, the
// one under <prefix>/share/quorvanta/help. Empty for any other language value.
QString g_helpFolder(const QString &appDir, qv::Language language);

}  // namespace qv

class HelpWindowClass : public QMainWindow
{
    Q_OBJECT

public:
    HelpWindowClass(QString *appDir, QWidget *parent, QString *page, qv::Language language);
    ~HelpWindowClass() override;

    void m_setSource(QString *page);

public slots:
    void s_search();
    void s_print();

signals:
    void m_closed(QByteArray *geometry, QByteArray *state);

protected:
    void closeEvent(QCloseEvent *event) override;

private:
    QByteArray closedGeometry;
    QByteArray closedState;
    QStringList searchPaths;
    std::unique_ptr<Ui_HelpWindow> ui;
};

// The main window: menus and tool bars, the settings store, the recent
// projects, the language, automatic saving, and at most one chart widget
// (the open project) in its scroll area.
#pragma once

#include "gui/ui/language.h"

#include <QByteArray>
#include <QMainWindow>
#include <QPointer>
#include <QSize>
#include <QString>
#include <QStringList>

#include <memory>

class HelpWindowClass;
class QAction;
class QActionGroup;
class QLabel;
class QTimer;
class QTranslator;
class QVChartClass;
class Ui_Quorvanta;
class WebUpdateClass;

class QuorvantaClass : public QMainWindow
{
    Q_OBJECT

public:
    // showStartScreen is false only where the window is built without a
    // person watching (tests, tools).
    explicit QuorvantaClass(const QString &appDir, QWidget *parent = nullptr, bool showStartScreen = true);
    ~QuorvantaClass() override;

    void m_checkUpdate();

    QVChartClass *m_chart() const { return chart; }
    const QString &m_settingsDir() const { return settingsDir; }

    // Opens a project (.qvj) or imports a sampling file as a new project, its
    // kind judged from the file as quorvanta-cli judges it; the close prompt
    // comes first. False for a file of neither kind.
    bool m_openFile(const QString &path);

public slots:
    void s_openProject(QString pFile = QString());
    void s_newProject(bool open = false);
    bool s_closeProject();
    void s_about();
    void s_exit();
    void s_help(QWidget *parent = nullptr, QString *hName = nullptr);
    void s_helpClosed(QByteArray *pos, QByteArray *state);
    void s_openRecentFile(QAction *action);
    void s_projectFileChanged(QString *file, QString *dir);
    void s_resizeDisplay();
    void s_projectChanged();
    void s_english();
    void s_deutsch();
    void s_update();
    void s_webUpdateReady(int found);
    void s_autoSave(bool on);
    void s_doAutoSave();
    void s_zoomIn();
    void s_zoomOut();
    void s_zoomFull();
    void s_zoomWidth();
    void s_zoomHeight();

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    enum class TitleKind { Form, NoProject, Noname, File };
    enum class OpenOutcome { Opened, Refused, Failed };  // Refused: the close prompt was cancelled

    OpenOutcome m_loadProject(const QString &path);

    void m_readSettings();
    void m_saveSettings();
    QString m_getSettingsDir() const;
    void m_enableProjectActions(bool enable);
    void m_connectActions();
    void m_connectChart();
    void m_syncRecentActions();
    void m_setTitle(TitleKind kind, const QString &path = QString());
    void m_showClockReading();
    void m_retranslate();
    void m_removeTranslators();

    std::unique_ptr<Ui_Quorvanta> ui;
    QString appDir;
    QString settingsDir;
    QByteArray helpPos;
    QByteArray helpState;
    QStringList recentFiles;
    QActionGroup *recentGroup;
    QString projectDir;
    QString importDir;
    QPointer<HelpWindowClass> helpWindow;
    QVChartClass *chart = nullptr;
    qint32 zoom;
    QSize fittedSize{-1, -1};
    QTimer *autoSaveTimer = nullptr;
    qint32 autoSaveTicks = 0;
    qv::Language language = qv::Language::English;
    QTranslator *appTranslator;
    QTranslator *qtTranslator;
    QPointer<WebUpdateClass> webUpdate;
    QString updateServer;  // "UpdateServer" of the settings store, empty for our own

    TitleKind titleKind = TitleKind::Form;
    QString titlePath;
    QLabel *clockLabel = nullptr;  // in the status bar, shown for a recording read as standard time
};

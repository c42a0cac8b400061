// The main window driven through its slots with redirected dialogs:
// settings on a first start and after a round trip, recent projects,
// project actions, the close prompt, new/open/save, automatic saving,
// language, help and update hooks.
#include "app/scripteddialogs.h"
#include "app/shellfixture.h"
#include "support/testsupport.h"

#include "app/appexit.h"
#include "app/quorvantaclass.h"
#include "help/helpwindowclass.h"
#include "project/qvchartclass.h"
#include "ui_quorvanta.h"
#include "update/webupdateclass.h"

#include <QCheckBox>
#include <QToolButton>
#include <QtTest>

namespace {

QStringList recentActionTexts(QuorvantaClass &w)
{
    QStringList texts;
    for (QAction *a : w.m_ui()->menuRecent->actions())
        texts << a->text();
    return texts;
}

QString asText(const QVariant &value)
{
    return value.type() == QVariant::StringList ? value.toStringList().join(QLatin1Char('|')) : value.toString();
}

int helpWindows()
{
    int count = 0;
    for (QWidget *top : QApplication::topLevelWidgets())
        count += qobject_cast<HelpWindowClass *>(top) ? 1 : 0;
    return count;
}

}  // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void settings_data();
    void settings();
    void recentProjects();
    void projectActions();
    void closePrompt_data();
    void closePrompt();
    void newProjectWithChooserClosed_data();
    void newProjectWithChooserClosed();
    void openSaveOpen();
    void brokenProjectAtStart_data();
    void brokenProjectAtStart();
    void autoSave_data();
    void autoSave();
    void languageSwitch();
    void helpAndUpdates();

private:
    QTemporaryDir scratch;
};

void TestMainWindow::initTestCase()
{
    qvtest::prepareShell(scratch);
}

void TestMainWindow::init()
{
    qvtest::forgetSettings();
}

void TestMainWindow::cleanup()
{
    qvtest::flushDeletions();
    appVal = 0;
}

void TestMainWindow::settings_data()
{
    QTest::addColumn<QVariantMap>("stored");  // before the start
    QTest::addColumn<QString>("newText");     // shows the language
    QTest::newRow("first start: German, nothing recent, no automatic saving or update check")
        << QVariantMap() << QStringLiteral("&Neues Projekt");
    const QStringList recent{QStringLiteral("/a/one.qvj"), QStringLiteral("/b/two.qvj")};
    QTest::newRow("round trip") << QVariantMap{{QStringLiteral("Version"), 17000},
                                               {QStringLiteral("Language"), 0u},
                                               {QStringLiteral("Update"), true},
                                               {QStringLiteral("RecentFiles"), recent},
                                               {QStringLiteral("ProjectDir"), QStringLiteral("/projects")},
                                               {QStringLiteral("ImportDir"), QStringLiteral("/imports")},
                                               {QStringLiteral("HelpPos"), QByteArray("pos")},
                                               {QStringLiteral("HelpState"), QByteArray("state")}}
                                << QStringLiteral("&New Project");
    QTest::newRow("stored automatic saving ticks the option, starts no timer")
        << QVariantMap{{QStringLiteral("AutoSave"), true}} << QStringLiteral("&Neues Projekt");
}

void TestMainWindow::settings()
{
    QFETCH(QVariantMap, stored);
    QFETCH(QString, newText);
    for (auto it = stored.begin(); it != stored.end(); ++it)
        qvtest::shellSettings()->setValue(it.key(), it.value());
    auto w = qvtest::makeWindow();
    Ui_Quorvanta &u = *w->m_ui();
    QCOMPARE(u.actionNew->text(), newText);
    QCOMPARE(recentActionTexts(*w), stored.value(QStringLiteral("RecentFiles")).toStringList());
    QCOMPARE(u.actionAutoUpdate->isChecked(), stored.value(QStringLiteral("Update"), false).toBool());
    QCOMPARE(u.actionAutoSave->isChecked(), stored.value(QStringLiteral("AutoSave"), false).toBool());
    QVERIFY(!w->m_autoSaveTimer());
    QCOMPARE(QFile::exists(qvtest::shellSettings()->fileName()), !stored.isEmpty());  // nothing written at the start
    u.actionAutoSave->setChecked(false);
    u.actionAutoSave->setChecked(true);  // every 10 seconds from now on
    QVERIFY(w->m_autoSaveTimer() && w->m_autoSaveTimer()->isActive());
    QCOMPARE(w->m_autoSaveTimer()->interval(), 10000);
    u.actionAutoSave->setChecked(false);
    QVERIFY(!w->m_autoSaveTimer());
    w->resize(900, 700);
    const QByteArray geometry = w->saveGeometry();
    QVERIFY(w->close());

    QVariantMap expected{{QStringLiteral("Language"), 1u},
                         {QStringLiteral("Update"), false},
                         {QStringLiteral("AutoSave"), false},
                         {QStringLiteral("RecentFiles"), QStringList()},
                         {QStringLiteral("ProjectDir"), QString()},
                         {QStringLiteral("ImportDir"), QString()},
                         {QStringLiteral("HelpPos"), QByteArray()},
                         {QStringLiteral("HelpState"), QByteArray()}};
    expected.insert(stored);
    expected.insert(QStringLiteral("AutoSave"), false);  // switched off above
    expected.insert(QStringLiteral("Version"), 18100);  // the running version is written
    expected.insert(QStringLiteral("AppPos"), geometry);
    auto s = qvtest::shellSettings();
    for (auto it = expected.begin(); it != expected.end(); ++it)
        QCOMPARE(asText(s->value(it.key())), asText(it.value()));
    QVERIFY(!s->value(QStringLiteral("AppState")).toByteArray().isEmpty());
    QCOMPARE(s->allKeys().size(), 11);
    QCOMPARE(qvtest::makeWindow()->size(), QSize(900, 700));  // the next start restores the geometry
}

// A recent entry opens its project and moves to the front; the 17th entry
// drops the oldest; menu and settings follow the list.
void TestMainWindow::recentProjects()
{
    const QString first = scratch.filePath(QStringLiteral("recent1.qvj"));
    const QString second = scratch.filePath(QStringLiteral("recent2.qvj"));
    QVERIFY(qvtest::writeProject(first, 1));
    QVERIFY(qvtest::writeProject(second, 2));
    qvtest::shellSettings()->setValue(QStringLiteral("RecentFiles"), QStringList{first, second});
    auto w = qvtest::makeWindow();
    w->m_ui()->menuRecent->actions().at(1)->trigger();
    QCOMPARE(w->m_chart()->m_getProjectFile(), second);
    QCOMPARE(w->m_chart()->model().settings.dataSetCount, 2);
    QStringList expected{second, first};
    QCOMPARE(recentActionTexts(*w), expected);
    for (int i = 1; i <= 15; ++i) {
        QString file = QStringLiteral("/r/%1.qvj").arg(i);
        QString dir = QStringLiteral("/r");
        w->s_projectFileChanged(&file, &dir);
        expected.prepend(file);
    }
    expected.removeLast();
    QCOMPARE(w->m_recentFiles(), expected);
    QCOMPARE(recentActionTexts(*w), expected);
    QVERIFY(w->close());
    QCOMPARE(qvtest::shellSettings()->value(QStringLiteral("RecentFiles")).toStringList(), expected);
}

void TestMainWindow::projectActions()
{
    auto w = qvtest::makeWindow();
    Ui_Quorvanta &u = *w->m_ui();
    const QList<QAction *> always{u.actionNew,      u.actionOpen,     u.actionExit, u.actionEnglisch,
                                  u.actionDeutsch,  u.actionAutoSave, u.actionHelp, u.actionAbout,
                                  u.actionCheckUpdates, u.actionAutoUpdate};
    const QList<QAction *> project{u.actionClose,     u.actionSave,       u.actionSaveAs,   u.actionExportPDF,
                                   u.actionPrint,     u.actionZoomIn,     u.actionZoomOut,  u.actionZoomFull,
                                   u.actionZoomWidth, u.actionZoomHeight, u.actionSettings, u.actionChooseData};
    for (bool open : {false, true, false}) {
        if (open) {
            const QString path = scratch.filePath(QStringLiteral("actions.qvj"));
            QVERIFY(qvtest::writeProject(path, 1));
            w->s_openProject(path);
            QCOMPARE(u.scrollArea->widget(), w->m_chart());
        } else {
            QVERIFY(w->s_closeProject());
            QCOMPARE(u.gridRows->count(), 0);  // the rows left with the chart
        }
        QCOMPARE(w->m_chart() != nullptr, open);
        for (QAction *a : always)
            QVERIFY2(a->isEnabled(), qPrintable(a->objectName()));
        for (QAction *a : project)
            QVERIFY2(a->isEnabled() == open, qPrintable(a->objectName()));
        QCOMPARE(u.buttonData->isEnabled(), open);
    }
}

void TestMainWindow::closePrompt_data()
{
    QTest::addColumn<QString>("action");  // close the project, exit (the window) or a new project
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("saveFails");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<bool>("saved");
    const int yes = QMessageBox::Yes, no = QMessageBox::No, cancel = QMessageBox::Cancel;
    QTest::newRow("Yes saves") << "close" << yes << false << true << true;
    QTest::newRow("No discards") << "close" << no << false << true << false;
    QTest::newRow("Cancel keeps") << "close" << cancel << false << false << false;
    QTest::newRow("failed save keeps") << "close" << yes << true << false << false;
    QTest::newRow("window: No closes it") << "exit" << no << false << true << false;
    QTest::newRow("window: Cancel keeps it open") << "exit" << cancel << false << false << false;
    QTest::newRow("new project: Cancel, no chooser") << "new" << cancel << false << false << false;
}

void TestMainWindow::closePrompt()
{
    QFETCH(QString, action);
    QFETCH(int, answer);
    QFETCH(bool, saveFails);
    QFETCH(bool, closed);
    QFETCH(bool, saved);
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("prompt.qvj"));
    QVERIFY(qvtest::writeProject(path, 2));
    const QByteArray before = qvtest::readFile(path);
    auto w = qvtest::makeWindow();
    w->s_english();
    w->s_openProject(path);
    QVERIFY(!w->isWindowModified());
    w->s_projectChanged();
    QVERIFY(w->isWindowModified());
    if (saveFails)
        QVERIFY(dir.remove());  // the folder is gone: the save cannot write
    qvtest::ScriptedDialogs dialogs;
    dialogs.answers << QMessageBox::StandardButton(answer);
    const QString titleBefore = w->windowTitle();
    if (action == QLatin1String("close"))
        QCOMPARE(w->s_closeProject(), closed);
    else if (action == QLatin1String("exit"))
        w->m_ui()->actionExit->trigger();
    else
        w->s_newProject();
    const qv::MessageRecord &m = dialogs.messages.first();
    QCOMPARE(m.title, QStringLiteral("Save Project"));
    QCOMPARE(m.text, QStringLiteral("Save changes before closing the project?"));
    QCOMPARE(m.buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    QCOMPARE(dialogs.messageTexts().mid(1),
             saveFails ? QStringList{QStringLiteral("Error while writing file!")} : QStringList());
    QVERIFY(dialogs.execClasses.isEmpty());  // no import chooser
    QCOMPARE(qvtest::readFile(path) != before, saved || saveFails);
    if (saved)
        QCOMPARE(qvtest::readFile(dir.filePath(QStringLiteral("prompt.bak"))), before);
    QCOMPARE(!w->m_chart(), closed);
    QCOMPARE(w->isWindowModified(), !closed);
    QCOMPARE(w->windowTitle(), closed ? QStringLiteral("Quorvanta [*]") : titleBefore);
    const bool windowClosed = closed && action == QLatin1String("exit");
    QCOMPARE(w->isVisible(), !windowClosed);
    QCOMPARE(QFile::exists(qvtest::shellSettings()->fileName()), windowClosed);  // written when the window closes
}

void TestMainWindow::newProjectWithChooserClosed_data()
{
    QTest::addColumn<QString>("button");  // clicked in the chooser; "" closes it
    QTest::addColumn<bool>("missingFile");  // the file dialog names a file that does not exist, or is cancelled
    QTest::addColumn<QString>("dialog");  // caption | filter of the chosen import's file dialog
    QTest::newRow("closed") << "" << false << "";
    QTest::newRow("CSV, file dialog cancelled")
        << "buttonImportCSV" << false << "Open Ventimar Sampling File|Ventimar Sampling (*.csv *.CSV)";
    QTest::newRow("binary, missing file")
        << "buttonImportBIN" << true << "Open Ventimar Sampling File|Ventimar Sampling (*.log *.LOG)";
    QTest::newRow("vaporix, missing file")
        << "buttonImportVAPIX" << true << "Open vaporix-Vis Sampling File|vaporix-Vis Sampling (*.csv *.CSV)";
}

// The new project exists while the chooser runs and is discarded without a
// prompt when nothing is imported (after the error box of a failed import).
void TestMainWindow::newProjectWithChooserClosed()
{
    QFETCH(QString, button);
    QFETCH(bool, missingFile);
    QFETCH(QString, dialog);
    qvtest::shellSettings()->setValue(QStringLiteral("ImportDir"), QStringLiteral("/imports"));
    auto w = qvtest::makeWindow();
    w->s_english();
    qvtest::ScriptedDialogs dialogs;
    if (missingFile)
        dialogs.fileNames << scratch.filePath(QStringLiteral("no-such-sampling"));
    bool chartDuringChooser = false;
    dialogs.onExec = [&](QDialog &chooser) {
        chartDuringChooser = w->m_chart() && w->isWindowModified() &&
                             w->windowTitle() == QStringLiteral("Quorvanta - Noname [*]");
        if (button.isEmpty())
            chooser.reject();
        else
            chooser.findChild<QToolButton *>(button)->click();
        return chooser.result();
    };
    w->m_ui()->actionNew->trigger();
    QCOMPARE(dialogs.execClasses, QStringList{QStringLiteral("ImportDialogClass")});
    QVERIFY(chartDuringChooser);
    QStringList shown;
    for (const qv::FileDialogRecord &d : dialogs.fileDialogs) {
        shown << d.caption + QLatin1Char('|') + d.filter;
        QCOMPARE(d.directory, QStringLiteral("/imports"));
    }
    QCOMPARE(shown, dialog.isEmpty() ? QStringList() : QStringList{dialog});
    QCOMPARE(dialogs.messages.size(), missingFile ? 1 : 0);
    if (missingFile)
        QCOMPARE(dialogs.messages.first().title, QStringLiteral("Quorvanta Error"));
    QVERIFY(!w->m_chart() && !w->isWindowModified());
    QCOMPARE(w->windowTitle(), QStringLiteral("Quorvanta [*]"));
    QVERIFY(!w->m_ui()->actionSave->isEnabled());
}

// Open a project, save it under another name, open that one again.
void TestMainWindow::openSaveOpen()
{
    QTemporaryDir dir;
    const QString first = dir.filePath(QStringLiteral("first.qvj"));
    const QString second = dir.filePath(QStringLiteral("second.qvj"));
    QVERIFY(qvtest::writeProject(first, 3, true));
    auto w = qvtest::makeWindow();
    w->s_english();
    qvtest::ScriptedDialogs dialogs;
    w->m_ui()->actionOpen->trigger();  // cancelled: nothing happens
    QVERIFY(!w->m_chart() && dialogs.messages.isEmpty());
    dialogs.fileNames << first;
    w->m_ui()->actionOpen->trigger();
    QCOMPARE(dialogs.fileDialogs.last().caption, QStringLiteral("Open Quorvanta Project"));
    QCOMPARE(dialogs.fileDialogs.last().filter, QStringLiteral("Quorvanta Project (*.qvj)"));
    QCOMPARE(w->windowTitle(), QStringLiteral("Quorvanta - ") + first + QStringLiteral(" [*]"));
    QVERIFY(!w->isWindowModified());
    const auto store = [&] {
        return QByteArray(reinterpret_cast<const char *>(w->m_chart()->model().data(2)), sizeof(_chartDataType));
    };
    const QByteArray firstStore = store();

    dialogs.fileNames << second;
    w->m_ui()->actionSaveAs->trigger();
    QCOMPARE(dialogs.fileDialogs.last().caption, QStringLiteral("Save Quorvanta Project..."));
    QCOMPARE(dialogs.fileDialogs.last().filter, QStringLiteral("Quorvanta Projekt (*.qvj)"));
    QCOMPARE(dialogs.fileDialogs.last().directory, dir.path());
    QCOMPARE(w->windowTitle(), QStringLiteral("Quorvanta - ") + second + QStringLiteral(" [*]"));
    w->m_ui()->actionSave->trigger();  // in place, no dialog
    QCOMPARE(dialogs.fileDialogs.size(), 3);

    w->s_openProject(second);
    QVERIFY(dialogs.messages.isEmpty());  // unmodified: no prompt
    QCOMPARE(w->m_chart()->m_getProjectFile(), second);
    QCOMPARE(w->m_chart()->model().settings.dataSetCount, 3);
    QCOMPARE(store(), firstStore);
    QCOMPARE(w->m_recentFiles(), (QStringList{second, first}));
    QVERIFY(w->close());
    QCOMPARE(qvtest::shellSettings()->value(QStringLiteral("ProjectDir")).toString(), dir.path());
}

void TestMainWindow::brokenProjectAtStart_data()
{
    QTest::addColumn<QByteArray>("bytes");  // empty: no file
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("critical");  // else a warning
    QTest::newRow("missing") << QByteArray() << "Error reading file!" << true;
    QTest::newRow("corrupt") << QByteArray(500, 'x') << "File is no Quorvanta project!" << false;
    QTest::newRow("damaged") << qvtest::item("Quorvanta Project - (C)2016 Merovin GmbH V1.3.000RS")
                             << "Error in Quorvanta project!" << false;
}

// A project named on the command line that cannot be loaded leaves the
// window empty after its message.
void TestMainWindow::brokenProjectAtStart()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
    QFETCH(bool, critical);
    const QString path = scratch.filePath(QStringLiteral("start.qvj"));
    QFile::remove(path);
    if (!bytes.isEmpty())
        QVERIFY(qvtest::writeFile(path, bytes));
    qvtest::shellSettings()->setValue(QStringLiteral("Language"), 0u);
    auto w = qvtest::makeWindow();
    qvtest::ScriptedDialogs dialogs;
    w->s_openProject(path);
    QCOMPARE(dialogs.messageTexts(), QStringList{message});
    QCOMPARE(dialogs.messages.first().title, QStringLiteral("Quorvanta Error"));
    QCOMPARE(int(dialogs.messages.first().kind), int(critical ? qv::MessageKind::Critical : qv::MessageKind::Warning));
    QVERIFY(!w->m_chart() && !w->isWindowModified());
    QCOMPARE(w->windowTitle(), QStringLiteral("Quorvanta [*]"));
    QVERIFY(!w->m_ui()->actionSave->isEnabled());
    QVERIFY(w->m_recentFiles().isEmpty());
    QCOMPARE(w->m_ui()->gridRows->count(), 0);
    QVERIFY(!QApplication::overrideCursor());
}

void TestMainWindow::autoSave_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("modified");
    QTest::addColumn<bool>("pointerOver");  // the chart
    QTest::addColumn<bool>("modalOpen");
    QTest::addColumn<int>("ticks");
    QTest::addColumn<bool>("saved");
    QTest::addColumn<int>("ticksAfter");
    QTest::newRow(".qvx, 89 ticks") << "x.qvx" << true << true << false << 89 << false << 89;
    QTest::newRow(".qvx, 90 ticks save") << "x.qvx" << true << true << false << 90 << true << 0;
    QTest::newRow(".qvj never") << "x.qvj" << true << true << false << 90 << false << 0;
    QTest::newRow("pointer elsewhere keeps counting") << "x.qvx" << true << false << false << 95 << false << 95;
    QTest::newRow("unmodified resets") << "x.qvx" << false << true << false << 90 << false << 0;
    QTest::newRow("waits while a dialog runs") << "x.qvx" << true << true << true << 90 << false << 0;
}

void TestMainWindow::autoSave()
{
    QFETCH(QString, name);
    QFETCH(bool, modified);
    QFETCH(bool, pointerOver);
    QFETCH(bool, modalOpen);
    QFETCH(int, ticks);
    QFETCH(bool, saved);
    QFETCH(int, ticksAfter);
    // The folder name holds ".qvj", so saving needs no file dialog.
    QTemporaryDir dir(scratch.filePath(QStringLiteral("auto.qvj-XXXXXX")));
    const QString path = dir.filePath(name);
    QVERIFY(qvtest::writeProject(path, 1));
    const QByteArray before = qvtest::readFile(path);
    auto w = qvtest::makeWindow();
    w->move(0, 0);
    w->s_openProject(path);
    if (modified)
        w->s_projectChanged();
    QVERIFY(QTest::qWaitForWindowExposed(w.get()));
    const QRect chartArea(w->m_chart()->mapToGlobal(QPoint(0, 0)), w->m_chart()->size());
    QCursor::setPos(pointerOver ? chartArea.center() : chartArea.bottomRight() + QPoint(50, 50));
    qvtest::ScriptedDialogs dialogs;
    QDialog modal(w.get());
    modal.setModal(true);
    if (modalOpen)
        modal.show();
    for (int i = 0; i < ticks; ++i)
        w->s_doAutoSave();
    modal.hide();
    QVERIFY(dialogs.fileDialogs.isEmpty());
    QCOMPARE(w->m_autoSaveTicks(), ticksAfter);
    QCOMPARE(w->isWindowModified(), modified && !saved);
    QCOMPARE(qvtest::readFile(path) != before, saved);
    // Only the file name's extension becomes ".bak", not the folder's ".qvj".
    QCOMPARE(QFile::exists(dir.filePath(QStringLiteral("x.bak"))), saved);
    if (!pointerOver) {  // the next tick over the chart saves
        QCursor::setPos(chartArea.center());
        w->s_doAutoSave();
        QVERIFY(!w->isWindowModified());
        QCOMPARE(w->m_autoSaveTicks(), 0);
    }
}

void TestMainWindow::languageSwitch()
{
    const QString path = scratch.filePath(QStringLiteral("language.qvj"));
    QVERIFY(qvtest::writeProject(path, 1, true));
    auto w = qvtest::makeWindow();
    w->s_openProject(path);
    Ui_Quorvanta &u = *w->m_ui();
    const QString title = w->windowTitle();
    const auto texts = [&] {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
        return QStringList{u.menuRecent->title(), u.buttonData->text(), w->findChild<QCheckBox *>(QStringLiteral("modeBox"))->text(),
                           QCoreApplication::translate("QPlatformTheme", "Cancel")};  // Qt's own texts too
    };
    const QStringList german{QStringLiteral("&Zuletzt ge\u00f6ffnete Projekte"), QStringLiteral("Daten ausw\u00e4hlen"),
                             QStringLiteral("vaporix-Modus anzeigen"), QStringLiteral("Abbrechen")};
    const QStringList english{QStringLiteral("&Recent Projects"), QStringLiteral("Choose Data"),
                              QStringLiteral("Show vaporix Mode"), QStringLiteral("Cancel")};
    QCOMPARE(texts(), german);
    w->s_english();
    QCOMPARE(w->m_language(), 0u);
    QCOMPARE(texts(), english);
    QCOMPARE(w->windowTitle(), title);  // the project's title stays
    w->s_deutsch();
    QCOMPARE(w->m_language(), 1u);
    QCOMPARE(texts(), german);
}

void TestMainWindow::helpAndUpdates()
{
    // One help window, whose place is kept in the settings; closing the main
    // window closes it.
    auto w = qvtest::makeWindow();
    w->s_english();
    w->s_help();
    QString page = QStringLiteral("settings.html");
    w->s_help(nullptr, &page);
    QCOMPARE(helpWindows(), 1);
    QVERIFY(w->close());
    qvtest::flushDeletions();
    QCOMPARE(helpWindows(), 0);
    QVERIFY(!qvtest::shellSettings()->value(QStringLiteral("HelpPos")).toByteArray().isEmpty());
    w->show();

    // Updates: a check that finds nothing says nothing; "Yes" to a found
    // update runs the updater, which ends the program when accepted.
    qvtest::ScriptedDialogs dialogs;
    w->m_ui()->actionAutoUpdate->setChecked(true);
    w->m_checkUpdate();
    QVERIFY(w->findChild<WebUpdateClass *>());
    QCoreApplication::processEvents();  // it answers at once
    qvtest::flushDeletions();
    QVERIFY(!w->findChild<WebUpdateClass *>());
    QVERIFY(dialogs.messages.isEmpty());
    dialogs.answers << QMessageBox::No << QMessageBox::Yes;
    dialogs.onExec = [](QDialog &) { return int(QDialog::Rejected); };
    w->s_webUpdateReady(1);
    QVERIFY(dialogs.execClasses.isEmpty());
    w->s_webUpdateReady(1);
    QCOMPARE(dialogs.execClasses, QStringList{QStringLiteral("QVUpdateClass")});
    QCOMPARE(appVal, 0);
    dialogs.onExec = [](QDialog &) { return int(QDialog::Accepted); };
    w->m_ui()->actionCheckUpdates->trigger();
    QCOMPARE(appVal, 257);
    QVERIFY(!w->isVisible());
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"

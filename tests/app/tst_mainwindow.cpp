// The main window driven through its slots with redirected dialogs:
// settings on a first start and after a round trip, recent projects, title,
// project actions, the close prompt, new/open/save, automatic saving,
// language, help, about and update hooks.
#include "app/scripteddialogs.h"
#include "app/shellfixture.h"
#include "support/testsupport.h"

#include "app/appexit.h"
#include "app/quorvantaclass.h"
#include "help/helpwindowclass.h"
#include "import/importdialogclass.h"
#include "project/qvchartclass.h"
#include "ui_quorvanta.h"
#include "update/webupdateclass.h"

#include <QActionGroup>
#include <QCheckBox>
#include <QLabel>
#include <QTextBrowser>
#include <QTimer>
#include <QToolButton>
#include <QtTest>

#include <cstring>

using qv::MessageKind;

namespace {

void flushDeletions()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

QStringList recentActionTexts(QuorvantaClass &w)
{
    QStringList texts;
    for (QAction *a : w.m_ui()->menuRecent->actions())
        texts << a->text();
    return texts;
}

}  // namespace

class TestMainWindow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void cleanup();
    void firstStart();
    void settingsRoundTrip();
    void storedAutoSaveStartsNoTimer();
    void recentProjects();
    void recentFileOpens();
    void title_data();
    void title();
    void projectActions();
    void closePrompt_data();
    void closePrompt();
    void closingTheWindow_data();
    void closingTheWindow();
    void newProjectWithChooserClosed_data();
    void newProjectWithChooserClosed();
    void newProjectAsksToSaveFirst();
    void openSaveOpen();
    void brokenProjectAtStart_data();
    void brokenProjectAtStart();
    void autoSave_data();
    void autoSave();
    void languageSwitch();
    void zoomSizesTheChart();
    void helpWindow();
    void aboutBox();
    void updateHooks();

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
    flushDeletions();
    appVal = 0;
}

void TestMainWindow::firstStart()
{
    auto w = qvtest::makeWindow();
    QCOMPARE(w->m_language(), 1u);
    QCOMPARE(w->m_ui()->actionNew->text(), QStringLiteral("&Neues Projekt"));
    QCOMPARE(w->m_ui()->menuProject->title(), QStringLiteral("&Projekt"));
    QVERIFY(w->m_recentFiles().isEmpty());
    QVERIFY(w->m_ui()->menuRecent->actions().isEmpty());
    QVERIFY(!w->m_ui()->actionAutoSave->isChecked());
    QVERIFY(!w->m_ui()->actionAutoUpdate->isChecked());
    QVERIFY(!w->m_autoSaveTimer());
    QVERIFY(!w->m_chart());
    QVERIFY(w->isVisible());
    QVERIFY(!w->m_ui()->statusBar->isVisible());
    QCOMPARE(w->m_zoom(), qint32(0x80000003u));
    QCOMPARE(QFileInfo(w->m_settingsDir()), QFileInfo(scratch.filePath(QStringLiteral("config/Merovin GmbH"))));
    QVERIFY(!QFile::exists(qvtest::shellSettings()->fileName()));  // nothing written before closing

    QVERIFY(w->close());
    auto s = qvtest::shellSettings();
    QCOMPARE(s->value(QStringLiteral("Version")).toInt(), 18100);
    QCOMPARE(s->value(QStringLiteral("Language")).toUInt(), 1u);
    QCOMPARE(s->value(QStringLiteral("Update")).toBool(), false);
    QCOMPARE(s->value(QStringLiteral("AutoSave")).toBool(), false);
    QVERIFY(s->value(QStringLiteral("RecentFiles")).toStringList().isEmpty());
    QVERIFY(s->value(QStringLiteral("HelpPos")).toByteArray().isEmpty());
    QVERIFY(s->value(QStringLiteral("HelpState")).toByteArray().isEmpty());
    QVERIFY(!s->value(QStringLiteral("AppPos")).toByteArray().isEmpty());
    QVERIFY(!s->value(QStringLiteral("AppState")).toByteArray().isEmpty());
    QCOMPARE(s->value(QStringLiteral("ProjectDir")).toString(), QString());
    QCOMPARE(s->value(QStringLiteral("ImportDir")).toString(), QString());
    QCOMPARE(s->allKeys().size(), 11);
}

void TestMainWindow::settingsRoundTrip()
{
    const QStringList recent{QStringLiteral("/a/one.qvj"), QStringLiteral("/b/two.qvj")};
    {
        auto s = qvtest::shellSettings();
        s->setValue(QStringLiteral("Version"), 17000);
        s->setValue(QStringLiteral("Language"), 0u);
        s->setValue(QStringLiteral("Update"), true);
        s->setValue(QStringLiteral("RecentFiles"), recent);
        s->setValue(QStringLiteral("ProjectDir"), QStringLiteral("/projects"));
        s->setValue(QStringLiteral("ImportDir"), QStringLiteral("/imports"));
        s->setValue(QStringLiteral("HelpPos"), QByteArray("pos"));
        s->setValue(QStringLiteral("HelpState"), QByteArray("state"));
    }
    auto w = qvtest::makeWindow();
    QCOMPARE(w->m_language(), 0u);
    QCOMPARE(w->m_ui()->actionNew->text(), QStringLiteral("&New Project"));
    QCOMPARE(w->m_recentFiles(), recent);
    QCOMPARE(recentActionTexts(*w), recent);
    for (QAction *a : w->m_ui()->menuRecent->actions())
        QVERIFY(!a->icon().isNull());
    QVERIFY(w->m_ui()->actionAutoUpdate->isChecked());
    w->resize(900, 700);
    const QByteArray geometry = w->saveGeometry();
    QVERIFY(w->close());

    auto s = qvtest::shellSettings();
    QCOMPARE(s->value(QStringLiteral("Version")).toInt(), 18100);  // the running version is written
    QCOMPARE(s->value(QStringLiteral("Language")).toUInt(), 0u);
    QCOMPARE(s->value(QStringLiteral("Update")).toBool(), true);
    QCOMPARE(s->value(QStringLiteral("RecentFiles")).toStringList(), recent);
    QCOMPARE(s->value(QStringLiteral("ProjectDir")).toString(), QStringLiteral("/projects"));
    QCOMPARE(s->value(QStringLiteral("ImportDir")).toString(), QStringLiteral("/imports"));
    QCOMPARE(s->value(QStringLiteral("HelpPos")).toByteArray(), QByteArray("pos"));
    QCOMPARE(s->value(QStringLiteral("HelpState")).toByteArray(), QByteArray("state"));
    QCOMPARE(s->value(QStringLiteral("AppPos")).toByteArray(), geometry);

    // A second start restores the geometry.
    auto again = qvtest::makeWindow();
    QCOMPARE(again->size(), QSize(900, 700));
}

// A stored "AutoSave" ticks the option but starts no timer until it is
// switched off and on again.
void TestMainWindow::storedAutoSaveStartsNoTimer()
{
    qvtest::shellSettings()->setValue(QStringLiteral("AutoSave"), true);
    auto w = qvtest::makeWindow();
    QVERIFY(w->m_ui()->actionAutoSave->isChecked());
    QVERIFY(!w->m_autoSaveTimer());
    w->m_ui()->actionAutoSave->setChecked(false);
    QVERIFY(!w->m_autoSaveTimer());
    w->m_ui()->actionAutoSave->setChecked(true);
    QVERIFY(w->m_autoSaveTimer());
    QCOMPARE(w->m_autoSaveTimer()->interval(), 10000);
    QVERIFY(w->m_autoSaveTimer()->isActive());
    QVERIFY(!w->m_autoSaveTimer()->isSingleShot());
    w->m_ui()->actionAutoSave->setChecked(false);
    QVERIFY(!w->m_autoSaveTimer());
    QVERIFY(w->close());
    QCOMPARE(qvtest::shellSettings()->value(QStringLiteral("AutoSave")).toBool(), false);
}

void TestMainWindow::recentProjects()
{
    auto w = qvtest::makeWindow();
    QStringList expected;
    for (int i = 1; i <= 17; ++i) {
        QString file = QStringLiteral("/r/%1.qvj").arg(i);
        QString dir = QStringLiteral("/r");
        w->s_projectFileChanged(&file, &dir);
        expected.prepend(file);
    }
    expected.removeLast();  // the 17th drops the oldest
    QCOMPARE(w->m_recentFiles(), expected);
    QCOMPARE(recentActionTexts(*w), expected);
    QVERIFY(!w->m_recentFiles().contains(QStringLiteral("/r/1.qvj")));

    QString file = QStringLiteral("/r/5.qvj");
    QString dir = QStringLiteral("/r");
    w->s_projectFileChanged(&file, &dir);
    QCOMPARE(w->m_recentFiles().size(), 16);
    QCOMPARE(w->m_recentFiles().first(), file);
    QCOMPARE(w->m_recentFiles().count(file), 1);
    QCOMPARE(recentActionTexts(*w), w->m_recentFiles());

    QVERIFY(w->close());
    QCOMPARE(qvtest::shellSettings()->value(QStringLiteral("RecentFiles")).toStringList(), w->m_recentFiles());
}

void TestMainWindow::recentFileOpens()
{
    const QString first = scratch.filePath(QStringLiteral("recent1.qvj"));
    const QString second = scratch.filePath(QStringLiteral("recent2.qvj"));
    QVERIFY(qvtest::writeProject(first, 1));
    QVERIFY(qvtest::writeProject(second, 2));
    qvtest::shellSettings()->setValue(QStringLiteral("RecentFiles"), QStringList{first, second});
    auto w = qvtest::makeWindow();
    QAction *older = w->m_ui()->menuRecent->actions().at(1);
    older->trigger();
    QVERIFY(w->m_chart());
    QCOMPARE(w->m_chart()->m_getProjectFile(), second);
    QCOMPARE(w->m_chart()->settings.dataSetCount, 2);
    QCOMPARE(w->m_recentFiles(), (QStringList{second, first}));
    QCOMPARE(recentActionTexts(*w), (QStringList{second, first}));
    QCOMPARE(w->m_ui()->menuRecent->actions().size(), 2);
}

void TestMainWindow::title_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("shown");
    const QString eighty = QStringLiteral("/") + QString(75, QLatin1Char('a')) + QStringLiteral(".qvj");
    QTest::newRow("80 characters") << 80 << QStringLiteral("Quorvanta - ") + eighty + QStringLiteral(" [*]");
    QTest::newRow("81 characters") << 81
                                   << QStringLiteral("Quorvanta - ...") + QString(71, QLatin1Char('a')) +
                                          QStringLiteral(".qvj [*]");
    QTest::newRow("100 characters") << 100
                                    << QStringLiteral("Quorvanta - ...") + QString(71, QLatin1Char('a')) +
                                           QStringLiteral(".qvj [*]");
}

void TestMainWindow::title()
{
    QFETCH(int, length);
    QFETCH(QString, shown);
    auto w = qvtest::makeWindow();
    w->s_english();
    QString file = QStringLiteral("/") + QString(length - 5, QLatin1Char('a')) + QStringLiteral(".qvj");
    QCOMPARE(file.size(), length);
    QString dir = QStringLiteral("/");
    w->setWindowModified(true);
    w->s_projectFileChanged(&file, &dir);
    QCOMPARE(w->windowTitle(), shown);
    QVERIFY(!w->isWindowModified());
}

void TestMainWindow::projectActions()
{
    auto w = qvtest::makeWindow();
    Ui_Quorvanta &u = *w->m_ui();
    const QList<QAction *> always{u.actionNew,     u.actionOpen,     u.actionExit,  u.actionEnglisch,
                                  u.actionDeutsch, u.actionAutoSave, u.actionHelp,  u.actionAbout,
                                  u.actionCheckUpdates, u.actionAutoUpdate};
    const QList<QAction *> project{u.actionClose,   u.actionSave,     u.actionSaveAs,    u.actionExportPDF,
                                   u.actionPrint,   u.actionZoomIn,   u.actionZoomOut,   u.actionZoomFull,
                                   u.actionZoomWidth, u.actionZoomHeight, u.actionSettings, u.actionChooseData};
    auto check = [&](bool open) {
        for (QAction *a : always)
            QVERIFY2(a->isEnabled(), qPrintable(a->objectName()));
        for (QAction *a : project)
            QVERIFY2(a->isEnabled() == open, qPrintable(a->objectName()));
        QCOMPARE(u.buttonData->isEnabled(), open);
    };
    check(false);
    const QString path = scratch.filePath(QStringLiteral("actions.qvj"));
    QVERIFY(qvtest::writeProject(path, 1));
    w->s_openProject(path);
    QVERIFY(w->m_chart());
    check(true);
    QCOMPARE(u.scrollArea->widget(), w->m_chart());
    QVERIFY(w->s_closeProject());
    check(false);
    QVERIFY(!w->m_chart());
    QCOMPARE(u.gridRows->count(), 0);  // the rows left with the chart
}

void TestMainWindow::closePrompt_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("saveFails");
    QTest::addColumn<bool>("closed");
    QTest::addColumn<bool>("saved");
    QTest::newRow("Yes saves") << int(QMessageBox::Yes) << false << true << true;
    QTest::newRow("No discards") << int(QMessageBox::No) << false << true << false;
    QTest::newRow("Cancel keeps") << int(QMessageBox::Cancel) << false << false << false;
    QTest::newRow("Escape keeps") << int(QMessageBox::Escape) << false << false << false;
    QTest::newRow("failed save keeps") << int(QMessageBox::Yes) << true << false << false;
}

void TestMainWindow::closePrompt()
{
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
    QVERIFY(w->m_chart());
    QVERIFY(!w->isWindowModified());
    w->s_projectChanged();
    QVERIFY(w->isWindowModified());
    if (saveFails)
        QVERIFY(dir.remove());  // the folder is gone: the save cannot write

    qvtest::ScriptedDialogs dialogs;
    dialogs.answers << QMessageBox::StandardButton(answer);
    const QString titleBefore = w->windowTitle();
    QCOMPARE(w->s_closeProject(), closed);
    QCOMPARE(dialogs.messages.first().title, QStringLiteral("Save Project"));
    QCOMPARE(dialogs.messages.first().text, QStringLiteral("Save changes before closing the project?"));
    QCOMPARE(dialogs.messages.first().buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (saveFails) {
        QCOMPARE(dialogs.messageTexts().last(), QStringLiteral("Error while writing file!"));
    } else {
        QCOMPARE(dialogs.messages.size(), 1);
        QCOMPARE(qvtest::readFile(path) != before, saved);
        if (saved)
            QCOMPARE(qvtest::readFile(dir.filePath(QStringLiteral("prompt.bak"))), before);
    }
    QCOMPARE(!w->m_chart(), closed);
    QCOMPARE(w->isWindowModified(), !closed);
    QCOMPARE(w->windowTitle(), closed ? QStringLiteral("Quorvanta [*]") : titleBefore);

    // An unmodified project closes without a question.
    if (!closed) {
        w->setWindowModified(false);
        QVERIFY(w->s_closeProject());
        QCOMPARE(dialogs.messages.size(), saveFails ? 2 : 1);
    }
}

void TestMainWindow::closingTheWindow_data()
{
    QTest::addColumn<int>("answer");
    QTest::addColumn<bool>("closes");
    QTest::newRow("No") << int(QMessageBox::No) << true;
    QTest::newRow("Cancel") << int(QMessageBox::Cancel) << false;
}

void TestMainWindow::closingTheWindow()
{
    QFETCH(int, answer);
    QFETCH(bool, closes);
    const QString path = scratch.filePath(QStringLiteral("window.qvj"));
    QVERIFY(qvtest::writeProject(path, 1));
    auto w = qvtest::makeWindow();
    w->s_openProject(path);
    w->s_projectChanged();
    qvtest::ScriptedDialogs dialogs;
    dialogs.answers << QMessageBox::StandardButton(answer);
    w->m_ui()->actionExit->trigger();
    QCOMPARE(dialogs.messages.size(), 1);
    QCOMPARE(w->isVisible(), !closes);
    QCOMPARE(!w->m_chart(), closes);
    // Settings are written only when the window really closes.
    QCOMPARE(QFile::exists(qvtest::shellSettings()->fileName()), closes);
}

void TestMainWindow::newProjectWithChooserClosed_data()
{
    QTest::addColumn<QString>("button");  // clicked in the chooser; "" closes it
    QTest::addColumn<QString>("caption"); // file dialog of the chosen import
    QTest::newRow("closed") << "" << "";
    QTest::newRow("CSV, file dialog cancelled") << "buttonImportCSV" << "Open Ventimar Sampling File";
    QTest::newRow("binary, file dialog cancelled") << "buttonImportBIN" << "Open Ventimar Sampling File";
    QTest::newRow("vaporix, file dialog cancelled") << "buttonImportVAPIX" << "Open vaporix-Vis Sampling File";
}

void TestMainWindow::newProjectWithChooserClosed()
{
    QFETCH(QString, button);
    QFETCH(QString, caption);
    auto w = qvtest::makeWindow();
    w->s_english();
    qvtest::ScriptedDialogs dialogs;
    bool chartDuringChooser = false;
    dialogs.onExec = [&](QDialog &dialog) {
        chartDuringChooser = w->m_chart() != nullptr && w->isWindowModified() &&
                             w->windowTitle() == QStringLiteral("Quorvanta - Noname [*]");
        if (button.isEmpty())
            dialog.reject();
        else
            dialog.findChild<QToolButton *>(button)->click();
        return dialog.result();
    };
    w->m_ui()->actionNew->trigger();
    QCOMPARE(dialogs.execClasses, QStringList{QStringLiteral("ImportDialogClass")});
    QVERIFY(chartDuringChooser);
    QCOMPARE(dialogs.fileDialogs.size(), caption.isEmpty() ? 0 : 1);
    if (!caption.isEmpty())
        QCOMPARE(dialogs.fileDialogs.first().caption, caption);
    QVERIFY(dialogs.messages.isEmpty());  // discarded without a prompt
    QVERIFY(!w->m_chart());
    QVERIFY(!w->isWindowModified());
    QCOMPARE(w->windowTitle(), QStringLiteral("Quorvanta [*]"));
    QVERIFY(!w->m_ui()->actionSave->isEnabled());
}

void TestMainWindow::newProjectAsksToSaveFirst()
{
    const QString path = scratch.filePath(QStringLiteral("first.qvj"));
    QVERIFY(qvtest::writeProject(path, 1));
    auto w = qvtest::makeWindow();
    w->s_openProject(path);
    w->s_projectChanged();
    qvtest::ScriptedDialogs dialogs;
    dialogs.answers << QMessageBox::Cancel;
    QVERIFY(w->m_chart());
    QVERIFY(w->m_chart()->enableBox[0]->isEnabled());
    QVERIFY(w->m_chart()->settings.dataSetCount == 1);
    w->s_newProject();
    QCOMPARE(dialogs.messages.size(), 1);
    QVERIFY(dialogs.execClasses.isEmpty());  // refused: no chooser
    QCOMPARE(w->m_chart()->m_getProjectFile(), path);
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

    dialogs.fileNames << first;
    w->m_ui()->actionOpen->trigger();
    QVERIFY(w->m_chart());
    QCOMPARE(dialogs.fileDialogs.last().caption, QStringLiteral("Open Quorvanta Project"));
    QCOMPARE(w->windowTitle(), QStringLiteral("Quorvanta - ") + first + QStringLiteral(" [*]"));
    QVERIFY(!w->isWindowModified());
    QVERIFY(w->m_chart()->modeBox->isVisible());
    QCOMPARE(w->m_chart()->enableBox[2]->text(), QStringLiteral("Set 2"));
    const QByteArray firstStore(reinterpret_cast<const char *>(w->m_chart()->model().data(2)), sizeof(_chartDataType));

    dialogs.fileNames << second;
    w->m_ui()->actionSaveAs->trigger();
    QCOMPARE(dialogs.fileDialogs.last().caption, QStringLiteral("Save Quorvanta Project..."));
    QCOMPARE(dialogs.fileDialogs.last().directory, dir.path());
    QVERIFY(QFile::exists(second));
    QCOMPARE(w->windowTitle(), QStringLiteral("Quorvanta - ") + second + QStringLiteral(" [*]"));
    QCOMPARE(w->m_recentFiles(), (QStringList{second, first}));

    w->m_ui()->actionSave->trigger();  // in place, no dialog
    QCOMPARE(dialogs.fileDialogs.size(), 2);

    w->s_openProject(second);
    QVERIFY(dialogs.messages.isEmpty());  // unmodified: no prompt
    QCOMPARE(w->m_chart()->m_getProjectFile(), second);
    QCOMPARE(w->m_chart()->settings.dataSetCount, 3);
    QCOMPARE(QByteArray(reinterpret_cast<const char *>(w->m_chart()->model().data(2)), sizeof(_chartDataType)),
             firstStore);
    QCOMPARE(w->m_recentFiles(), (QStringList{second, first}));

    QVERIFY(w->close());
    QCOMPARE(qvtest::shellSettings()->value(QStringLiteral("ProjectDir")).toString(), dir.path());
}

void TestMainWindow::brokenProjectAtStart_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    QTest::newRow("missing") << QByteArray() << "Error reading file!";
    QTest::newRow("corrupt") << QByteArray(500, 'x') << "File is no Quorvanta project!";
    QTest::newRow("damaged") << qvtest::item("Quorvanta Project - (C)2016 Merovin GmbH V1.3.000RS")
                             << "Error in Quorvanta project!";
}

// A project named on the command line that cannot be loaded leaves the
// window empty after its message.
void TestMainWindow::brokenProjectAtStart()
{
    QFETCH(QByteArray, bytes);
    QFETCH(QString, message);
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
    QVERIFY(!w->m_chart());
    QVERIFY(!w->isWindowModified());
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
    QTest::addColumn<bool>("pointerOver");
    QTest::addColumn<int>("ticks");
    QTest::addColumn<bool>("saved");
    QTest::addColumn<int>("ticksAfter");
    QTest::addColumn<bool>("modalOpen");
    QTest::newRow(".qvx, 89 ticks") << "x.qvx" << true << true << 89 << false << 89 << false;
    QTest::newRow(".qvx, 90 ticks") << "x.qvx" << true << true << 90 << true << 0 << false;
    QTest::newRow(".qvj never") << "x.qvj" << true << true << 90 << false << 0 << false;
    QTest::newRow("pointer elsewhere keeps counting") << "x.qvx" << true << false << 95 << false << 95 << false;
    QTest::newRow("unmodified resets") << "x.qvx" << false << true << 90 << false << 0 << false;
    QTest::newRow("waits while a dialog runs") << "x.qvx" << true << true << 90 << false << 0 << true;
}

void TestMainWindow::autoSave()
{
    QFETCH(QString, name);
    QFETCH(bool, modified);
    QFETCH(bool, pointerOver);
    QFETCH(int, ticks);
    QFETCH(bool, saved);
    QFETCH(int, ticksAfter);
    QFETCH(bool, modalOpen);
    // The folder name holds ".qvj", so saving needs no file dialog.
    QTemporaryDir dir(scratch.filePath(QStringLiteral("auto.qvj-XXXXXX")));
    const QString path = dir.filePath(name);
    QVERIFY(qvtest::writeProject(path, 1));
    auto w = qvtest::makeWindow();
    w->move(0, 0);
    w->s_openProject(path);
    QVERIFY(w->m_chart());
    if (modified)
        w->s_projectChanged();
    QVERIFY(QTest::qWaitForWindowExposed(w.get()));
    const QRect chartArea(w->m_chart()->mapToGlobal(QPoint(0, 0)), w->m_chart()->size());
    QCursor::setPos(pointerOver ? chartArea.center() : chartArea.bottomRight() + QPoint(50, 50));
    QCOMPARE(chartArea.contains(QCursor::pos()), pointerOver);

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
    QCOMPARE(w->isWindowModified(), modified && !saved);  // a save clears the mark
    QCOMPARE(QFile::exists(dir.filePath(QStringLiteral("x.bak"))), false);

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
    Ui_Quorvanta &u = *w->m_ui();
    w->s_openProject(path);
    const QString title = w->windowTitle();
    struct Text {
        std::function<QString()> read;
        QString english;
        QString german;
    };
    const QList<Text> texts{
        {[&] { return u.actionSaveAs->text(); }, QStringLiteral("Save Project &As"),
         QStringLiteral("Projekt speichern &unter")},
        {[&] { return u.actionSaveAs->toolTip(); }, QStringLiteral("Save Project As"),
         QStringLiteral("Projekt speichern unter")},
        {[&] { return u.menuRecent->title(); }, QStringLiteral("&Recent Projects"),
         QStringLiteral("&Zuletzt ge\u00f6ffnete Projekte")},
        {[&] { return u.menuOptions->title(); }, QStringLiteral("&Options"), QStringLiteral("&Optionen")},
        {[&] { return u.toolBarView->windowTitle(); }, QStringLiteral("Toolbar View"),
         QStringLiteral("Werkzeugleiste Ansicht")},
        {[&] { return u.buttonData->text(); }, QStringLiteral("Choose Data"), QStringLiteral("Daten ausw\u00e4hlen")},
        {[&] { return u.actionZoomFull->text(); }, QStringLiteral("Zoom 100%"), QStringLiteral("Zoom 100%")},
        {[&] { return w->m_chart()->modeBox->text(); }, QStringLiteral("Show vaporix Mode"),
         QStringLiteral("vaporix-Modus anzeigen")},
    };
    auto check = [&](bool german) {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::LanguageChange);
        for (const Text &t : texts)
            QCOMPARE(t.read(), german ? t.german : t.english);
    };
    // A failed comparison inside check() ends only the lambda: stop there.
#define QV_CHECK_TEXTS(german)            \
    do {                                  \
        check(german);                    \
        if (QTest::currentTestFailed())   \
            return;                       \
    } while (false)
    QV_CHECK_TEXTS(true);
    w->s_english();
    QCOMPARE(w->m_language(), 0u);
    QV_CHECK_TEXTS(false);
    QCOMPARE(w->windowTitle(), title);  // the project's title stays
    QCOMPARE(u.actionZoomFull->shortcut(), QKeySequence(QStringLiteral("Ctrl+0")));
    w->s_english();  // already English: nothing changes
    QV_CHECK_TEXTS(false);
    w->s_deutsch();
    QCOMPARE(w->m_language(), 1u);
    QV_CHECK_TEXTS(true);
    // Qt's own texts come in German as well.
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Abbrechen"));
    w->s_english();
    QCOMPARE(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancel"));
#undef QV_CHECK_TEXTS
}

void TestMainWindow::zoomSizesTheChart()
{
    const QString path = scratch.filePath(QStringLiteral("zoom.qvj"));
    QVERIFY(qvtest::writeProject(path, 1));
    auto w = qvtest::makeWindow();
    w->resize(1200, 800);
    w->s_openProject(path);
    QVERIFY(QTest::qWaitForWindowExposed(w.get()));
    Ui_Quorvanta &u = *w->m_ui();
    const int availableWidth = u.centralWidget->width() - u.frameData->width() - 14;
    const int availableHeight = u.centralWidget->height() - 8;
    w->s_zoomWidth();
    const QSize fitted = w->m_chart()->size();
    QVERIFY(fitted.width() == availableWidth || fitted.width() == availableWidth - 20);
    QCOMPARE(fitted.height(), int(fitted.width() / 1.4142135623730951));
    u.actionZoomIn->trigger();
    QCOMPARE(w->m_zoom(), 150);
    QCOMPARE(w->m_chart()->width(), 150 * fitted.width() / 100);
    u.actionZoomHeight->trigger();
    QVERIFY(w->m_chart()->height() == availableHeight || w->m_chart()->height() == availableHeight - 20);
    u.actionZoomFull->trigger();
    QCOMPARE(w->m_zoom(), qint32(0x80000003u));
    QVERIFY(w->m_chart()->width() <= availableWidth && w->m_chart()->height() <= availableHeight);
}

void TestMainWindow::helpWindow()
{
    auto w = qvtest::makeWindow();
    w->s_help();
    QPointer<HelpWindowClass> help;
    for (QWidget *top : QApplication::topLevelWidgets())
        if (auto *h = qobject_cast<HelpWindowClass *>(top))
            help = h;
    QVERIFY(help);
    QVERIFY(help->isVisible());
    QString page = QStringLiteral("settings.html");
    w->s_help(nullptr, &page);  // the same window shows the page
    int helpWindows = 0;
    for (QWidget *top : QApplication::topLevelWidgets())
        helpWindows += qobject_cast<HelpWindowClass *>(top) ? 1 : 0;
    QCOMPARE(helpWindows, 1);
    help->resize(640, 480);
    QVERIFY(help->close());
    flushDeletions();
    QVERIFY(!help);
    QVERIFY(w->close());
    QVERIFY(!qvtest::shellSettings()->value(QStringLiteral("HelpPos")).toByteArray().isEmpty());
    QVERIFY(!qvtest::shellSettings()->value(QStringLiteral("HelpState")).toByteArray().isEmpty());

    // Closing the main window closes an open help window and keeps its place.
    auto again = qvtest::makeWindow();
    again->s_help();
    QVERIFY(again->close());
    flushDeletions();
    for (QWidget *top : QApplication::topLevelWidgets())
        QVERIFY(!qobject_cast<HelpWindowClass *>(top));
}

void TestMainWindow::aboutBox()
{
    auto w = qvtest::makeWindow();
    w->s_english();
    qvtest::ScriptedDialogs dialogs;
    QString version;
    QString page;
    QStringList sayings;
    dialogs.onExec = [&](QDialog &dialog) {
        if (dialog.objectName() == QLatin1String("aboutDialog")) {
            version = dialog.findChild<QLabel *>(QStringLiteral("labelVersion"))->text();
            page = dialog.findChild<QTextBrowser *>(QStringLiteral("aboutPage"))->toPlainText();
            for (int i = 1; i <= 4; ++i)
                dialog.findChild<QToolButton *>(QStringLiteral("buttonCorner%1").arg(i))->click();
        } else {
            sayings << dialog.findChild<QLabel *>(QStringLiteral("labelSaying"))->text();
        }
        return int(QDialog::Accepted);
    };
    w->m_ui()->actionAbout->trigger();
    QCOMPARE(version, QStringLiteral("Version 1.8.100"));
    QVERIFY(page.contains(QStringLiteral("Quorvanta")));
    QCOMPARE(dialogs.execClasses.first(), QStringLiteral("AboutDialogClass"));
    QCOMPARE(dialogs.execClasses.count(QStringLiteral("OracleDialogClass")), 4);
    QCOMPARE(sayings.size(), 4);
    QCOMPARE(QSet<QString>(sayings.begin(), sayings.end()).size(), 4);
}

void TestMainWindow::updateHooks()
{
    auto w = qvtest::makeWindow();
    qvtest::ScriptedDialogs dialogs;
    w->m_checkUpdate();  // switched off: no checker
    QVERIFY(!w->findChild<WebUpdateClass *>());
    w->m_ui()->actionAutoUpdate->setChecked(true);
    w->m_checkUpdate();
    QVERIFY(w->findChild<WebUpdateClass *>());
    QTRY_VERIFY(!w->findChild<WebUpdateClass *>());  // it reports and is released
    QVERIFY(dialogs.messages.isEmpty());  // nothing new

    // "Yes" to a found update runs the update dialog; accepted, it ends the program.
    dialogs.answers << QMessageBox::No;
    w->s_webUpdateReady(1);
    QVERIFY(dialogs.execClasses.isEmpty());
    dialogs.answers << QMessageBox::Yes;
    dialogs.onExec = [](QDialog &) { return int(QDialog::Rejected); };
    w->s_webUpdateReady(1);
    QCOMPARE(dialogs.execClasses, QStringList{QStringLiteral("QVUpdateClass")});
    QCOMPARE(appVal, 0);
    QVERIFY(w->isVisible());
    dialogs.onExec = [](QDialog &) { return int(QDialog::Accepted); };
    w->m_ui()->actionCheckUpdates->trigger();
    QCOMPARE(appVal, 257);
    QVERIFY(!w->isVisible());
}

QTEST_MAIN(TestMainWindow)
#include "tst_mainwindow.moc"

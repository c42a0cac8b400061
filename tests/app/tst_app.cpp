// The desktop program: the shell's rules (recent list, command line, zoom
// and display size, the main window's close prompt and dropped files), the
// resources and the German catalogue.
#include "app/shellfixture.h"
#include "support/scripteddialogs.h"
#include "support/testsupport.h"

#include "app/quorvantaclass.h"
#include "core/chart/displaysize.h"
#include "core/project/commandline.h"
#include "core/project/recentfiles.h"
#include "document/qvchartclass.h"

#include <QAction>
#include <QDirIterator>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QRegularExpression>
#include <QStatusBar>
#include <QtTest>

using namespace qv;

Q_DECLARE_METATYPE(qv::StartRequest::Action)
Q_DECLARE_METATYPE(QMessageBox::StandardButton)

namespace {

QStringList texts(std::initializer_list<const char *> items)
{
    QStringList list;
    for (const char *item : items)
        list << QString::fromUtf8(item);
    return list;
}

// "a", "b", ...: the first n letters, oldest last in a recent list.
QStringList letters(int n)
{
    QStringList list;
    for (char c = 'a'; c < 'a' + n; ++c)
        list << QString(QLatin1Char(c));
    return list;
}

QString source(const char *relative)
{
    return QStringLiteral(QV_SOURCE_DIR "/") + QLatin1String(relative);
}

// The message boxes shown: "prompt" for one that offers Cancel, "asked" for
// another question, "error" for the rest.
QStringList messageKinds(const qvtest::ScriptedDialogs &dialogs)
{
    QStringList kinds;
    for (const MessageRecord &m : dialogs.messages)
        kinds << QLatin1String(m.buttons.testFlag(QMessageBox::Cancel) ? "prompt"
                               : m.kind == MessageKind::Question       ? "asked"
                                                                       : "error");
    return kinds;
}

// The data sets of the window's open project, -1 without one.
int openSets(const QuorvantaClass &w)
{
    const auto *chart = w.findChild<QVChartClass *>();
    return chart ? chart->model().usedDataSets() : -1;
}

}  // namespace

class TestApp : public QObject
{
    Q_OBJECT

    QTemporaryDir scratch;
    QString project;  // two data sets, dropped or opened as it is
    QByteArray projectBytes;

private slots:
    void initTestCase()
    {
        qvtest::prepareShell(scratch);
        project = scratch.filePath(QStringLiteral("p.qvj"));
        QVERIFY(qvtest::writeProject(project, 2));
        projectBytes = qvtest::readFile(project);
    }
    void cleanup() { qvtest::flushDeletions(); }

    void recentFiles_data()
    {
        QTest::addColumn<QStringList>("list");
        QTest::addColumn<QString>("path");
        QTest::addColumn<QStringList>("expected");
        // clang-format off
        QTest::newRow("reopened moves to the front, duplicates all go") << texts({"a", "b", "a"}) << "a" << texts({"a", "b"});
        QTest::newRow("case matters") << texts({"A"}) << "a" << texts({"a", "A"});
        QTest::newRow("overlong list is cut") << letters(20) << "new" << texts({"new"}) + letters(15);
        // clang-format on
    }
    void recentFiles()
    {
        QFETCH(QStringList, list);
        QFETCH(QString, path);
        g_addRecentFile(list, path);
        QTEST(list, "expected");
    }

    // The arguments after the program's name, passed as Latin-1.
    void startRequest_data()
    {
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<StartRequest::Action>("action");
        QTest::addColumn<QString>("path");
        // clang-format off
        QTest::newRow("one, Latin-1, backslashes") << QStringList{QStringLiteral("C:\\Daten\\K\u00e4lte.qvj")} << StartRequest::OpenProject << QStringLiteral("C:/Daten/K\u00e4lte.qvj");
        QTest::newRow("two are ignored") << texts({"/a.qvj", "/b.qvj"}) << StartRequest::Nothing << "";
        QTest::newRow("a log, any case, is imported") << texts({"D:\\SV_SA_01.LOG"}) << StartRequest::ImportSampling << "D:/SV_SA_01.LOG";
        QTest::newRow("any other name opens as a project") << texts({"/d/a.qvx"}) << StartRequest::OpenProject << "/d/a.qvx";
        // clang-format on
    }
    void startRequest()
    {
        QFETCH(QStringList, arguments);
        QByteArrayList bytes;  // the list may move its items, not their data
        QVector<const char *> argv{"quorvanta"};
        for (const QString &argument : arguments)
            argv << (bytes << argument.toLatin1()).last().constData();
        const StartRequest start = g_startRequest(argv.size(), argv.constData());
        QTEST(start.action, "action");
        QTEST(start.path, "path");
    }

    // A '&' in a recent path shows as it is.
    void menuText() { QCOMPARE(g_menuText(QStringLiteral("/d/R&D/a.qvj")), QStringLiteral("/d/R&&D/a.qvj")); }

    void firstWindowSize_data()
    {
        QTest::addColumn<QSize>("designed");
        QTest::addColumn<QSize>("available");
        QTest::addColumn<QSize>("expected");
        QTest::newRow("the designed size where it fits") << QSize(1280, 860) << QSize(1920, 1040) << QSize(1280, 860);
        QTest::newRow("1366 x 768 makes it smaller") << QSize(1280, 860) << QSize(1366, 728) << QSize(1280, 680);
    }
    void firstWindowSize()
    {
        QFETCH(QSize, designed);
        QFETCH(QSize, available);
        QTEST(g_firstWindowSize(designed, available), "expected");
    }

    void zoomSteps_data()
    {
        QTest::addColumn<qint32>("mode");
        QTest::addColumn<qint32>("in");
        QTest::addColumn<qint32>("out");
        QTest::newRow("a fit mode counts as 100") << kZoomFitHeight << 150 << 90;
        QTest::newRow("1000 is the top") << 1000 << 1000 << 950;
        QTest::newRow("101") << 101 << 151 << 51;
        QTest::newRow("0 is kept") << 0 << 10 << 0;
    }
    void zoomSteps()
    {
        QFETCH(qint32, mode);
        QTEST(g_zoomIn(mode), "in");
        QTEST(g_zoomOut(mode), "out");
    }

    // fitted: the size last fitted, which a percentage scales.
    void displaySize_data()
    {
        QTest::addColumn<qint32>("mode");
        QTest::addColumn<QSize>("available");
        QTest::addColumn<QSize>("fitted");
        QTest::addColumn<QSize>("expected");
        QTest::addColumn<bool>("fitsAnew");
        const QSize none(-1, -1), any(1, 1);
        // clang-format off
        QTest::newRow("width fits") << kZoomFitWidth << QSize(1000, 800) << none << QSize(1000, 707) << true;
        QTest::newRow("width leaves room for the scroll bar") << kZoomFitWidth << QSize(1000, 600) << none << QSize(980, 692) << true;
        QTest::newRow("height fits") << kZoomFitHeight << QSize(1000, 600) << none << QSize(848, 600) << true;
        QTest::newRow("height leaves room for the scroll bar") << kZoomFitHeight << QSize(800, 600) << none << QSize(820, 580) << true;
        QTest::newRow("page, wide area") << kZoomFitPage << QSize(1500, 800) << none << QSize(1131, 800) << true;
        QTest::newRow("page, just below sqrt 2") << kZoomFitPage << QSize(1414, 1000) << none << QSize(1414, 999) << true;
        QTest::newRow("150 percent of the fitted width") << 150 << any << QSize(1000, 707) << QSize(1500, 1060) << false;
        // clang-format on
    }
    void displaySize()
    {
        QFETCH(qint32, mode);
        QFETCH(QSize, available);
        QFETCH(QSize, fitted);
        const DisplaySize d = g_displaySize(mode, available, fitted);
        QTEST(d.size, "expected");
        QTEST(d.fitted, "fitsAnew");
    }

    // A modified project, closed directly or by an action (object name), with
    // the answer to the save prompt; saveFails: its folder is gone by then.
    // messages: see messageKinds(); sets: see openSets().
    void closePrompt_data()
    {
        QTest::addColumn<QString>("action");
        QTest::addColumn<QMessageBox::StandardButton>("answer");
        QTest::addColumn<bool>("saveFails");
        QTest::addColumn<QStringList>("messages");
        QTest::addColumn<bool>("saved");
        QTest::addColumn<int>("sets");
        QTest::addColumn<bool>("modified");
        QTest::addColumn<bool>("windowClosed");
        const QStringList prompt = texts({"prompt"});
        // clang-format off
        QTest::newRow("Yes saves") << "" << QMessageBox::Yes << false << prompt << true << -1 << false << false;
        QTest::newRow("a failed save keeps") << "" << QMessageBox::Yes << true << texts({"prompt", "error"}) << false << 2 << true << false;
        QTest::newRow("window, No closes it") << "actionExit" << QMessageBox::No << false << prompt << false << -1 << false << true;
        QTest::newRow("window, Cancel keeps it open") << "actionExit" << QMessageBox::Cancel << false << prompt << false << 2 << true << false;
        QTest::newRow("new project, Cancel: no chooser") << "actionNew" << QMessageBox::Cancel << false << prompt << false << 2 << true << false;
        // clang-format on
    }
    void closePrompt()
    {
        QFETCH(QString, action);
        QFETCH(QMessageBox::StandardButton, answer);
        QFETCH(bool, saveFails);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("p.qvj"));
        QVERIFY(QFile::copy(project, path));
        auto w = qvtest::makeWindow();
        w->s_openProject(path);
        w->s_projectChanged();
        qvtest::ScriptedDialogs dialogs;
        dialogs.answers << answer;
        if (saveFails)
            dir.remove();
        if (action.isEmpty()) {
            const bool closed = w->s_closeProject();
            QCOMPARE(closed, openSets(*w) < 0);
        } else {
            w->findChild<QAction *>(action)->trigger();
        }
        QTEST(messageKinds(dialogs), "messages");
        QTEST(qvtest::readFile(path) != projectBytes && QFile::exists(path), "saved");
        QTEST(openSets(*w), "sets");
        QTEST(w->isWindowModified(), "modified");
        QTEST(!w->isVisible(), "windowClosed");
        QVERIFY(dialogs.execClasses.isEmpty());
    }

    // A listed project opened from the Recent Projects menu; gone: its file
    // is gone by then; busy: a modified project is open (answer: to the save
    // prompt). After a failed open the answer decides whether it stays listed.
    void openRecent_data()
    {
        QTest::addColumn<bool>("gone");
        QTest::addColumn<bool>("busy");
        QTest::addColumn<QMessageBox::StandardButton>("answer");
        QTest::addColumn<QStringList>("messages");
        QTest::addColumn<bool>("listed");
        QTest::addColumn<int>("sets");
        const auto none = QMessageBox::NoButton;
        // clang-format off
        QTest::newRow("opens, nothing asked") << false << false << none << QStringList() << true << 2;
        QTest::newRow("gone, Yes takes it off the list") << true << false << QMessageBox::Yes << texts({"error", "asked"}) << false << -1;
        QTest::newRow("gone, No keeps it") << true << false << QMessageBox::No << texts({"error", "asked"}) << true << -1;
        QTest::newRow("close prompt cancelled: not opened, not asked") << true << true << QMessageBox::Cancel << texts({"prompt"}) << true << 2;
        // clang-format on
    }
    void openRecent()
    {
        QFETCH(bool, gone);
        QFETCH(bool, busy);
        QFETCH(QMessageBox::StandardButton, answer);
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("r.qvj"));
        QVERIFY(QFile::copy(project, path));
        auto w = qvtest::makeWindow();
        w->s_openProject(path);
        busy ? w->s_projectChanged() : void(w->s_closeProject());
        if (gone)
            QFile::remove(path);
        auto listed = [&]() -> QAction * {
            for (QAction *action : w->findChild<QMenu *>(QStringLiteral("menuRecent"))->actions())
                if (action->data().toString() == path)
                    return action;
            return nullptr;
        };
        qvtest::ScriptedDialogs dialogs;
        if (gone && !busy)
            dialogs.answers << QMessageBox::Ok;  // the error
        if (answer != QMessageBox::NoButton)
            dialogs.answers << answer;
        listed()->trigger();
        QTEST(messageKinds(dialogs), "messages");
        QTEST(listed() != nullptr, "listed");
        QTEST(openSets(*w), "sets");
        if (messageKinds(dialogs).endsWith(QStringLiteral("asked")))  // in German, as on a first start
            QCOMPARE(dialogs.messages.last().text,
                     QString::fromUtf8("Das Projekt konnte nicht geöffnet werden. Aus der Liste der zuletzt "
                                       "geöffneten Projekte entfernen?"));
    }

    // Files dropped on the window (the project above or files of the source
    // tree); answer: the first message box's (none: its first button); busy:
    // the project above is open and modified.
    void drop_data()
    {
        QTest::addColumn<QStringList>("files");
        QTest::addColumn<QMessageBox::StandardButton>("answer");
        QTest::addColumn<bool>("busy");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<QStringList>("messages");
        QTest::addColumn<int>("sets");
        QTest::addColumn<bool>("modified");
        const QString vis = source("tests/data/viscsv/four-states.csv");
        const auto none = QMessageBox::NoButton;
        // clang-format off
        QTest::newRow("a project opens") << QStringList{project} << none << false << true << QStringList() << 2 << false;
        QTest::newRow("a controller CSV, siblings Yes") << QStringList{source("resources/samples/vaporix-keller_TS01.csv")} << QMessageBox::Yes << false << true << texts({"asked"}) << 12 << true;
        QTest::newRow("a vaporix-VIS CSV") << QStringList{vis} << none << false << true << QStringList() << 6 << true;
        QTest::newRow("a missing log fails, nothing kept") << QStringList{source("nowhere/SV_SA_01.LOG")} << none << false << true << texts({"error"}) << -1 << false;
        QTest::newRow("another file is ignored") << QStringList{source("README.md")} << none << false << false << QStringList() << -1 << false;
        QTest::newRow("two files are ignored") << QStringList{project, vis} << none << false << false << QStringList() << -1 << false;
        QTest::newRow("on a modified project, Cancel keeps it") << QStringList{vis} << QMessageBox::Cancel << true << true << texts({"prompt"}) << 2 << true;
        // clang-format on
    }
    void drop()
    {
        QFETCH(QStringList, files);
        QFETCH(QMessageBox::StandardButton, answer);
        QFETCH(bool, busy);
        auto w = qvtest::makeWindow();
        if (busy) {
            w->s_openProject(project);
            w->s_projectChanged();
        }
        qvtest::ScriptedDialogs dialogs;
        if (answer != QMessageBox::NoButton)
            dialogs.answers << answer;
        QList<QUrl> urls;
        for (const QString &file : files)
            urls << QUrl::fromLocalFile(file);
        QMimeData mime;
        mime.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(w.get(), &enter);
        QDropEvent dropped(QPointF(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(w.get(), &dropped);
        QCoreApplication::processEvents();  // the open or import runs after the drop
        QTEST(enter.isAccepted(), "accepted");
        QTEST(messageKinds(dialogs), "messages");
        QTEST(openSets(*w), "sets");
        QTEST(w->isWindowModified(), "modified");
        QVERIFY(dialogs.execClasses.isEmpty());
    }

    // A recording read as standard time says so in the status bar (in German, the
    // window's first language) while it is open.
    void standardTimeStatus()
    {
        const QByteArray zone = qgetenv("TZ");
        qputenv("TZ", "Europe/Berlin");  // where 31.03.2024 02:30 does not exist
        QTemporaryDir dir;
        const QString path = dir.filePath(QStringLiteral("spring.csv"));
        QVERIFY(qvtest::writeFile(path, "K\nZeit;A\n31.03.2024 01:30:00;1\n31.03.2024 02:30:00;2\n"));
        auto w = qvtest::makeWindow();
        qvtest::ScriptedDialogs dialogs;
        dialogs.answers << QMessageBox::Yes << QMessageBox::No;  // standard time; do not save on close
        QVERIFY(w->m_openFile(path));
        const QWidget *bar = w->findChild<QStatusBar *>();
        const QString shown =
            bar->isVisibleTo(w.get()) ? w->findChild<QLabel *>(QStringLiteral("clockLabel"))->text() : QString();
        QVERIFY(w->s_closeProject());
        qputenv("TZ", zone);
        QCOMPARE(shown, QString::fromUtf8("Zeiten ganzj\u00e4hrig als Normalzeit (UTC+01:00) gelesen."));
        QVERIFY(!bar->isVisibleTo(w.get()));
    }

    // Every ":/new/prefix1/resources/..." named in the sources and forms is built
    // in and not empty; pictures load.
    void everyNamedResourceExists()
    {
        const QRegularExpression pattern(QStringLiteral(":/new/prefix1/resources/[A-Za-z0-9_.\\-]+"));
        QStringList named, bad;
        QDirIterator it(QStringLiteral(QV_SOURCE_DIR "/src"),
                        QStringList{QStringLiteral("*.cpp"), QStringLiteral("*.h"), QStringLiteral("*.ui")},
                        QDir::Files, QDirIterator::Subdirectories);
        while (it.hasNext())
            for (auto matches = pattern.globalMatch(QString::fromUtf8(qvtest::readFile(it.next()))); matches.hasNext();)
                named << matches.next().captured(0);
        named.removeDuplicates();
        QVERIFY2(named.size() >= 26, qPrintable(named.join(QLatin1Char(' '))));
        for (const QString &path : named)
            if (QFileInfo(path).size() <= 0 || (path.endsWith(QLatin1String(".png")) && QImage(path).isNull()))
                bad << path;
        QVERIFY2(bad.isEmpty(), qPrintable(bad.join(QLatin1Char(' '))));
    }

    // lupdate run over the sources today into a copy of the committed German
    // catalogue leaves no text untranslated, so a new text cannot slip in.
    void catalogueIsComplete()
    {
        const QString copy = scratch.filePath(QStringLiteral("Quorvanta_de.ts"));
        QVERIFY(QFile::copy(QStringLiteral(QV_SOURCE_DIR "/resources/translations/Quorvanta_de.ts"), copy));
        const qvtest::ProgramRun lupdate =
            qvtest::runProgram(QStringLiteral(QV_LUPDATE),
                               {QStringLiteral("-silent"), QStringLiteral("-locations"), QStringLiteral("none"),
                                QStringLiteral(QV_SOURCE_DIR "/src"), QStringLiteral("-ts"), copy});
        QVERIFY2(lupdate.exitCode == 0, QByteArray(lupdate.out + lupdate.err).constData());
        const QString updated = QString::fromUtf8(qvtest::readFile(copy));
        QVERIFY(updated.count(QLatin1String("<translation>")) > 80);  // finished texts still in the sources
        QStringList open;
        for (const QString &message : updated.split(QLatin1String("<message")))
            if (message.contains(QLatin1String("type=\"unfinished\"")) ||
                message.contains(QLatin1String("<translation></")))
                open << message.section(QLatin1String("<source>"), 1).section(QLatin1String("</source>"), 0, 0);
        QVERIFY2(open.isEmpty(), qPrintable(open.join(QLatin1Char('\n'))));
    }
};

QTEST_MAIN(TestApp)
#include "tst_app.moc"

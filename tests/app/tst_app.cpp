// The desktop program: the shell's rules (recent list, command line, zoom
// and display size, the main window's close prompt),
// the resources and the German catalogue.
#include "app/scripteddialogs.h"
#include "app/shellfixture.h"
#include "support/testsupport.h"

#include "app/quorvantaclass.h"
#include "core/chart/displaysize.h"
#include "core/project/commandline.h"
#include "core/project/recentfiles.h"
#include "document/qvchartclass.h"

#include <QAction>
#include <QDirIterator>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QRegularExpression>
#include <QtTest>

using namespace qv;

namespace {

// A display size mode: "width", "height", "page" or a percentage.
qint32 modeOf(const QString &text)
{
    return text == QLatin1String("width")    ? kZoomFitWidth
           : text == QLatin1String("height") ? kZoomFitHeight
           : text == QLatin1String("page")   ? kZoomFitPage
                                             : text.toInt();
}

QSize sizeOf(const QString &text)  // "w h"
{
    return QSize(text.section(QLatin1Char(' '), 0, 0).toInt(), text.section(QLatin1Char(' '), 1, 1).toInt());
}

QMessageBox::StandardButton buttonOf(const QString &text)
{
    return text == QLatin1String("Yes")  ? QMessageBox::Yes
           : text == QLatin1String("No") ? QMessageBox::No
                                         : QMessageBox::Cancel;
}

// One rule of the shell applied to its input in text form (fields split at '|').
QString applyRule(const QString &rule, const QString &input)
{
    const QStringList f = input.split(QLatin1Char('|'));
    if (rule == QLatin1String("recent")) {  // list (spaces) | path
        QStringList list = f[0].split(QLatin1Char(' '), Qt::SkipEmptyParts);
        g_addRecentFile(list, f[1]);
        return list.join(QLatin1Char(' '));
    }
    if (rule == QLatin1String("argv")) {  // arguments after the program, Latin-1
        QByteArrayList bytes{"quorvanta"};
        QVector<const char *> argv;
        for (int i = 0; i < f.size() && !f[0].isEmpty(); ++i)
            bytes << f[i].toLatin1().replace("$SRC", QV_SOURCE_DIR);
        for (const QByteArray &a : bytes)
            argv << a.constData();
        StartRequest start = g_startRequest(argv.size(), argv.constData());
        const char *const action[] = {"", "open ", "import "};
        return QLatin1String(action[start.action]) +
               start.path.replace(QLatin1String(QV_SOURCE_DIR), QLatin1String("$SRC"));
    }
    if (rule == QLatin1String("menu"))  // a recent path as its menu text
        return g_menuText(input);
    if (rule == QLatin1String("window")) {  // designed | free screen area
        const QSize size = g_firstWindowSize(sizeOf(f[0]), sizeOf(f[1]));
        return QStringLiteral("%1 %2").arg(size.width()).arg(size.height());
    }
    if (rule == QLatin1String("zoom"))  // in and out from a display size mode
        return QStringLiteral("%1 %2").arg(g_zoomIn(modeOf(f[0]))).arg(g_zoomOut(modeOf(f[0])));
    if (rule == QLatin1String("size")) {  // mode | available | last fitted
        const DisplaySize d = g_displaySize(modeOf(f[0]), sizeOf(f[1]), sizeOf(f[2]));
        return QStringLiteral("%1 %2").arg(d.size.width()).arg(d.size.height()) +
               QLatin1String(d.fitted ? " fitted" : "");
    }
    if (rule != QLatin1String("prompt") && rule != QLatin1String("drop"))
        return QStringLiteral("no such rule");
    // prompt: "close" or the action | answer | "gone": the save cannot write;
    // drop: files (',') | answers | "busy": a modified project is open.
    const bool drop = rule == QLatin1String("drop");
    QTemporaryDir dir;
    const QString project = dir.filePath(QStringLiteral("p.qvj"));
    if (!qvtest::writeProject(project, 2))
        return QStringLiteral("cannot write the project");
    const QByteArray before = qvtest::readFile(project);
    auto w = qvtest::makeWindow();
    if (!drop || f[2] == QLatin1String("busy")) {
        w->s_openProject(project);
        w->s_projectChanged();
    }
    qvtest::ScriptedDialogs dialogs;
    for (const QString &answer : f[1].split(QLatin1Char(' '), Qt::SkipEmptyParts))
        dialogs.answers << buttonOf(answer);
    QStringList out;
    bool closedSays = false;
    if (drop) {
        QList<QUrl> urls;
        for (const QString &name : f[0].split(QLatin1Char(',')))
            urls << QUrl::fromLocalFile(name == QLatin1String("project") ? project
                                                                         : QLatin1String(QV_SOURCE_DIR "/") + name);
        QMimeData mime;
        mime.setUrls(urls);
        QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(w.get(), &enter);
        QDropEvent dropped(QPointF(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(w.get(), &dropped);
        QCoreApplication::processEvents();  // the open or import runs after the drop
        out << QLatin1String(enter.isAccepted() ? "accepted" : "ignored");
    } else {
        if (f[2] == QLatin1String("gone"))
            dir.remove();
        if (f[0] != QLatin1String("close"))
            w->findChild<QAction *>(f[0])->trigger();
        closedSays = f[0] == QLatin1String("close") ? w->s_closeProject() : !w->findChild<QVChartClass *>();
    }
    for (const MessageRecord &m : dialogs.messages)
        out << QLatin1String(m.buttons.testFlag(QMessageBox::Cancel) ? "prompt"
                             : m.kind == MessageKind::Question       ? "asked"
                                                                     : "error");
    if (QFile::exists(project) && qvtest::readFile(project) != before)
        out << QStringLiteral("saved");
    const auto *chart = w->findChild<QVChartClass *>();
    out << (chart ? QStringLiteral("%1 sets").arg(chart->model().usedDataSets()) : QStringLiteral("no project"))
        << QLatin1String(chart && chart->model().settings.hasModeData ? "states" : "")
        << QLatin1String(drop || !chart == closedSays ? "" : "(says otherwise)")
        << QLatin1String(w->isWindowModified() ? "modified" : "")
        << QLatin1String(w->isVisible() ? "" : "window closed")
        << QLatin1String(dialogs.execClasses.isEmpty() ? "" : "chooser");
    out.removeAll(QString());
    return out.join(QLatin1Char(' '));
}

}  // namespace

class TestApp : public QObject
{
    Q_OBJECT

    QTemporaryDir scratch;

private slots:
    void initTestCase() { qvtest::prepareShell(scratch); }
    void cleanup() { qvtest::flushDeletions(); }

    void rules_data()
    {
        // clang-format off
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("expected");
        QTest::newRow("recent: reopened moves to the front, duplicates all go") << "a b a|a" << "a b";
        QTest::newRow("recent: case matters") << "A|a" << "a A";
        QTest::newRow("recent: 17th drops the oldest") << "a b c d e f g h i j k l m n o p|new" << "new a b c d e f g h i j k l m n o";
        QTest::newRow("recent: full list, reopened last") << "a b c d e f g h i j k l m n o p|p" << "p a b c d e f g h i j k l m n o";
        QTest::newRow("recent: overlong list is cut") << "a b c d e f g h i j k l m n o p q r s t|new" << "new a b c d e f g h i j k l m n o";
        QTest::newRow("argv: one, Latin-1, backslashes") << QStringLiteral("C:\\Daten\\K\u00e4lte.qvj") << QStringLiteral("open C:/Daten/K\u00e4lte.qvj");
        QTest::newRow("argv: two are ignored") << "/a.qvj|/b.qvj" << "";
        QTest::newRow("argv: a controller CSV is imported") << "$SRC/resources/samples/ventimar-lager.csv" << "import $SRC/resources/samples/ventimar-lager.csv";
        QTest::newRow("argv: a log, any case, is imported") << "D:\\SV_SA_01.LOG" << "import D:/SV_SA_01.LOG";
        QTest::newRow("argv: any other name opens as a project") << "/d/a.qvx" << "open /d/a.qvx";
        QTest::newRow("drop: a project opens") << "project||" << "accepted 2 sets";
        QTest::newRow("drop: a controller CSV, siblings Yes") << "resources/samples/vaporix-keller_TS01.csv|Yes|" << "accepted asked 12 sets states modified";
        QTest::newRow("drop: a vaporix-VIS CSV") << "tests/data/vis/four-states.csv||" << "accepted 6 sets states modified";
        QTest::newRow("drop: a missing log fails, nothing kept") << "nowhere/SV_SA_01.LOG||" << "accepted error no project";
        QTest::newRow("drop: another file is ignored") << "README.md||" << "ignored no project";
        QTest::newRow("drop: two files are ignored") << "project,tests/data/vis/four-states.csv||" << "ignored no project";
        QTest::newRow("drop: on a modified project, Cancel keeps it") << "tests/data/vis/four-states.csv|Cancel|busy" << "accepted prompt 2 sets modified";
        QTest::newRow("drop: on a modified project, No imports") << "tests/data/vis/four-states.csv|No|busy" << "accepted prompt 6 sets states modified";
        QTest::newRow("menu: & shows as it is") << "/d/R&D/a.qvj" << "/d/R&&D/a.qvj";
        QTest::newRow("window: the designed size where it fits") << "1280 860|1920 1040" << "1280 860";
        QTest::newRow("window: 1366 x 768 makes it smaller") << "1280 860|1366 728" << "1280 680";
        QTest::newRow("zoom: a fit mode counts as 100") << "height" << "150 90";
        QTest::newRow("zoom: 1000 is the top") << "1000" << "1000 950";
        QTest::newRow("zoom: 101") << "101" << "151 51";
        QTest::newRow("zoom: 0 is kept") << "0" << "10 0";
        QTest::newRow("size: width fits") << "width|1000 800|-1 -1" << "1000 707 fitted";
        QTest::newRow("size: width leaves room for the scroll bar") << "width|1000 600|-1 -1" << "980 692 fitted";
        QTest::newRow("size: height fits") << "height|1000 600|-1 -1" << "848 600 fitted";
        QTest::newRow("size: height leaves room for the scroll bar") << "height|800 600|-1 -1" << "820 580 fitted";
        QTest::newRow("size: page, wide area") << "page|1500 800|-1 -1" << "1131 800 fitted";
        QTest::newRow("size: page, just below sqrt 2") << "page|1414 1000|-1 -1" << "1414 999 fitted";
        QTest::newRow("size: 150 percent of the fitted width") << "150|1 1|1000 707" << "1500 1060";
        QTest::newRow("size: 33 percent, integer arithmetic") << "33|1 1|1001 1" << "330 233";
        QTest::newRow("prompt: Yes saves") << "close|Yes|" << "prompt saved no project";
        QTest::newRow("prompt: No discards") << "close|No|" << "prompt no project";
        QTest::newRow("prompt: Cancel keeps") << "close|Cancel|" << "prompt 2 sets modified";
        QTest::newRow("prompt: a failed save keeps") << "close|Yes|gone" << "prompt error 2 sets modified";
        QTest::newRow("prompt: window, No closes it") << "actionExit|No|" << "prompt no project window closed";
        QTest::newRow("prompt: window, Cancel keeps it open") << "actionExit|Cancel|" << "prompt 2 sets modified";
        QTest::newRow("prompt: new project, Cancel: no chooser") << "actionNew|Cancel|" << "prompt 2 sets modified";
        // clang-format on
    }

    void rules()
    {
        QFETCH(QString, input);
        QFETCH(QString, expected);
        QCOMPARE(applyRule(QString::fromUtf8(QTest::currentDataTag()).section(QLatin1Char(':'), 0, 0), input),
                 expected);
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

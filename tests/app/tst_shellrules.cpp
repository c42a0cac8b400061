// Rules of the shell that need no main window: recent list, title, display
// size, exit requests, command line, start screen, resources and the German
// catalogue.
#include "app/appexit.h"
#include "project/commandline.h"
#include "chart/displaysize.h"
#include "project/recentfiles.h"
#include "ui/resources.h"
#include "app/startscreenclass.h"

#include <QDirIterator>
#include <QProcess>
#include <QProgressBar>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QtTest>

using namespace qv;

namespace {

// "n n+1 ... to" as a recent list in text form.
QString numbered(int from, int to)
{
    QStringList list;
    for (int i = from; i <= to; ++i)
        list << QString::number(i);
    return list.join(QLatin1Char(' '));
}

QString sourceDir()
{
    return QStringLiteral(QV_SOURCE_DIR);
}

// "context: source" of every current message of a catalogue; those whose
// translation is unfinished or empty also go to *open.
QStringList readCatalogue(const QString &path, QStringList *open = nullptr)
{
    QStringList messages;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return messages;
    QXmlStreamReader xml(&file);
    QString context;
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("source")) {
            source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            const QString type = xml.attributes().value(QLatin1String("type")).toString();
            if (type == QLatin1String("vanished") || type == QLatin1String("obsolete"))
                continue;
            messages << context + QStringLiteral(": ") + source;
            if (open && (type == QLatin1String("unfinished") || xml.readElementText().isEmpty()))
                *open << messages.last();
        }
    }
    return messages;
}

}  // namespace

class TestShellRules : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void recentList_data();
    void recentList();
    void titlePath_data();
    void titlePath();
    void zoomSteps_data();
    void zoomSteps();
    void displaySize_data();
    void displaySize();
    void programAfterExit_data();
    void programAfterExit();
    void commandLine_data();
    void commandLine();
    void startScreenRunsToItsEnd();
    void everyNamedResourceExists();
    void catalogueIsComplete();
};

void TestShellRules::initTestCase()
{
    g_initResources();
}

// Lists in text form, entries separated by spaces.
void TestShellRules::recentList_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("after");
    QTest::newRow("empty") << "" << "a" << "a";
    QTest::newRow("new goes first") << "a" << "b" << "b a";
    QTest::newRow("reopened moves to the front") << "a b c" << "c" << "c a b";
    QTest::newRow("duplicates all go") << "a b a" << "a" << "a b";
    QTest::newRow("case matters") << "A" << "a" << "a A";
    QTest::newRow("17th drops the oldest") << numbered(1, 16) << "new" << QStringLiteral("new ") + numbered(1, 15);
    QTest::newRow("full list, reopened entry") << numbered(1, 16) << "16" << QStringLiteral("16 ") + numbered(1, 15);
    QTest::newRow("overlong list is cut") << numbered(1, 20) << "new" << QStringLiteral("new ") + numbered(1, 15);
}

void TestShellRules::recentList()
{
    QFETCH(QString, before);
    QFETCH(QString, path);
    QFETCH(QString, after);
    QStringList list = before.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    g_addRecentFile(list, path);
    QCOMPARE(list.join(QLatin1Char(' ')), after);
}

void TestShellRules::titlePath_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("shortened");
    QTest::newRow("80 characters") << 80 << false;
    QTest::newRow("81 characters") << 81 << true;
    QTest::newRow("1000 characters") << 1000 << true;
}

void TestShellRules::titlePath()
{
    QFETCH(int, length);
    QFETCH(bool, shortened);
    QString path;
    for (int i = 0; i < length; ++i)
        path += QChar(QLatin1Char(char('a' + i % 26)));
    QCOMPARE(g_titlePath(path), shortened ? QStringLiteral("...") + path.right(75) : path);
}

void TestShellRules::zoomSteps_data()
{
    QTest::addColumn<int>("zoom");
    QTest::addColumn<int>("in");
    QTest::addColumn<int>("out");
    QTest::newRow("a fit mode counts as 100") << kZoomFitHeight << 150 << 90;
    QTest::newRow("1000 is the top") << 1000 << 1000 << 950;
    QTest::newRow("999") << 999 << 1049 << 949;
    QTest::newRow("101") << 101 << 151 << 51;
    QTest::newRow("10") << 10 << 20 << 0;
    QTest::newRow("0 is kept") << 0 << 10 << 0;
}

void TestShellRules::zoomSteps()
{
    QFETCH(int, zoom);
    QFETCH(int, in);
    QFETCH(int, out);
    QCOMPARE(g_zoomIn(zoom), in);
    QCOMPARE(g_zoomOut(zoom), out);
}

void TestShellRules::displaySize_data()
{
    QTest::addColumn<int>("zoom");
    QTest::addColumn<QSize>("available");
    QTest::addColumn<QSize>("fitted");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<bool>("remembered");
    const QSize none(-1, -1);
    QTest::newRow("width fits") << kZoomFitWidth << QSize(1000, 800) << none << QSize(1000, 707) << true;
    QTest::newRow("width leaves room for the scroll bar")
        << kZoomFitWidth << QSize(1000, 600) << none << QSize(980, 692) << true;
    QTest::newRow("height fits") << kZoomFitHeight << QSize(1000, 600) << none << QSize(848, 600) << true;
    QTest::newRow("height leaves room for the scroll bar")
        << kZoomFitHeight << QSize(800, 600) << none << QSize(820, 580) << true;
    QTest::newRow("page, wide area") << kZoomFitPage << QSize(1500, 800) << none << QSize(1131, 800) << true;
    QTest::newRow("page, just below sqrt 2") << kZoomFitPage << QSize(1414, 1000) << none
                                                        << QSize(1414, 999) << true;
    QTest::newRow("150 percent") << 150 << QSize(1, 1) << QSize(1000, 707) << QSize(1500, 1060) << false;
    QTest::newRow("33 percent, integer arithmetic") << 33 << QSize(1, 1) << QSize(1001, 1) << QSize(330, 233)
                                                    << false;
}

void TestShellRules::displaySize()
{
    QFETCH(int, zoom);
    QFETCH(QSize, available);
    QFETCH(QSize, fitted);
    QFETCH(QSize, size);
    QFETCH(bool, remembered);
    const DisplaySize d = g_displaySize(zoom, available, fitted);
    QCOMPARE(d.size, size);
    QCOMPARE(d.fitted, remembered);
}

void TestShellRules::programAfterExit_data()
{
    QTest::addColumn<int>("request");
    QTest::addColumn<QString>("program");
    QTest::newRow("nothing") << 0 << "";
    QTest::newRow("restart") << 256 << "/opt/q/Quorvanta";
    QTest::newRow("updater") << 257 << "/home/u/.config/Merovin GmbH/QuorvantaUpdate";
    QTest::newRow("unknown") << 258 << "";
}

void TestShellRules::programAfterExit()
{
    QFETCH(int, request);
    QFETCH(QString, program);
    QCOMPARE(g_programAfterExit(request, QStringLiteral("/opt/q"), QStringLiteral("/home/u/.config/Merovin GmbH")),
             program);
    if (program.isEmpty())
        QVERIFY(!g_runAfterExit(request, QStringLiteral("/opt/q"), QStringLiteral("/x")));
}

void TestShellRules::commandLine_data()
{
    QTest::addColumn<QByteArrayList>("arguments");
    QTest::addColumn<QString>("project");
    QTest::newRow("none") << QByteArrayList{"quorvanta"} << "";
    QTest::newRow("one") << QByteArrayList{"quorvanta", "/data/a.qvj"} << "/data/a.qvj";
    QTest::newRow("backslashes") << QByteArrayList{"quorvanta", "C:\\Daten\\Keller\\a.qvj"} << "C:/Daten/Keller/a.qvj";
    QTest::newRow("Latin-1") << QByteArrayList{"quorvanta", "/d/K\xe4lte.qvj"} << QStringLiteral("/d/K\u00e4lte.qvj");
    QTest::newRow("two are ignored") << QByteArrayList{"quorvanta", "/a.qvj", "/b.qvj"} << "";
}

void TestShellRules::commandLine()
{
    QFETCH(QByteArrayList, arguments);
    QFETCH(QString, project);
    QVector<const char *> argv;
    for (const QByteArray &a : arguments)
        argv << a.constData();
    QCOMPARE(g_projectArgument(argv.size(), argv.constData()), project);
}

// The bar is full after 50 ticks, the screen ends with the 125th; waiting
// returns once the timer has ticked to the end.
void TestShellRules::startScreenRunsToItsEnd()
{
    StartScreenClass screen;
    for (int i = 0; i < 124; ++i) {
        screen.s_tick();
        QCOMPARE(screen.m_bar()->value(), qMin(2 * (i + 1), 100));
    }
    QVERIFY(!screen.m_finished());
    screen.show();
    screen.m_waitForStartScreen();
    QVERIFY(screen.m_finished() && !screen.isVisible());
    QCOMPARE(screen.m_count(), 248);
    screen.s_tick();
    QCOMPARE(screen.m_count(), 248);
    screen.m_waitForStartScreen();  // a finished screen does not wait again
}

// Every ":/new/prefix1/resources/..." named in the sources and forms is built
// in; the pictures load and are drawn, not blank.
void TestShellRules::everyNamedResourceExists()
{
    const QRegularExpression pattern(QStringLiteral(":/new/prefix1/resources/[A-Za-z0-9_.\\-]+"));
    QStringList named;
    QDirIterator it(sourceDir() + QStringLiteral("/src"),
                    {QStringLiteral("*.cpp"), QStringLiteral("*.h"), QStringLiteral("*.ui")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        auto matches = pattern.globalMatch(QString::fromUtf8(file.readAll()));
        while (matches.hasNext())
            named << matches.next().captured(0);
    }
    named.removeDuplicates();
    QVERIFY2(named.size() >= 26, qPrintable(named.join(QLatin1Char(' '))));
    QStringList bad;
    for (const QString &path : named) {
        QFile file(path);
        const QImage image(path);
        int opaque = 0;
        QSet<QRgb> colours;
        for (int y = 0; y < image.height(); y += 2) {
            for (int x = 0; x < image.width(); x += 2) {
                opaque += qAlpha(image.pixel(x, y)) == 255 ? 1 : 0;
                colours.insert(image.pixel(x, y));
            }
        }
        const bool picture = path.endsWith(QLatin1String(".png"));
        if (!file.open(QIODevice::ReadOnly) || file.size() == 0 || (picture && (opaque <= 20 || colours.size() <= 3)))
            bad << path;
    }
    QVERIFY2(bad.isEmpty(), qPrintable(bad.join(QLatin1Char(' '))));
}

// The committed German catalogue is complete, and every text that lupdate
// finds in the sources today is in it (so a new text cannot slip in
// untranslated).
void TestShellRules::catalogueIsComplete()
{
    QStringList open;
    const QStringList committed =
        readCatalogue(sourceDir() + QStringLiteral("/resources/translations/Quorvanta_de.ts"), &open);
    QVERIFY(committed.size() > 80);
    QVERIFY2(open.isEmpty(), qPrintable(open.join(QLatin1Char('\n'))));

    QTemporaryDir dir;
    const QString extracted = dir.filePath(QStringLiteral("extracted_de.ts"));
    QProcess lupdate;
    lupdate.setProcessChannelMode(QProcess::MergedChannels);
    lupdate.start(QStringLiteral(QV_LUPDATE), {QStringLiteral("-silent"), QStringLiteral("-locations"),
                                               QStringLiteral("none"), sourceDir() + QStringLiteral("/src"),
                                               QStringLiteral("-ts"), extracted});
    QVERIFY(lupdate.waitForFinished(120000));
    QVERIFY2(lupdate.exitCode() == 0, lupdate.readAll().constData());
    const QStringList found = readCatalogue(extracted);
    QVERIFY(found.size() > 80);
    QStringList missing;
    for (const QString &m : found) {
        if (!committed.contains(m))
            missing << m;
    }
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char('\n'))));
}

QTEST_MAIN(TestShellRules)
#include "tst_shellrules.moc"

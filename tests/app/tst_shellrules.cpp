// Rules of the shell that need no main window: recent list, title, display
// size, exit requests, command line, start screen ticks, resources and the
// German catalogue.
#include "app/appexit.h"
#include "app/commandline.h"
#include "app/displaysize.h"
#include "app/recentfiles.h"
#include "app/resources.h"
#include "app/startscreenclass.h"

#include <QDirIterator>
#include <QProcess>
#include <QProgressBar>
#include <QRegularExpression>
#include <QTranslator>
#include <QXmlStreamReader>
#include <QtTest>

using namespace qv;

namespace {

QStringList strings(std::initializer_list<const char *> items)
{
    QStringList list;
    for (const char *item : items)
        list << QString::fromUtf8(item);
    return list;
}

QStringList numbered(int from, int to)
{
    QStringList list;
    for (int i = from; i <= to; ++i)
        list << QStringLiteral("/p/%1.qvj").arg(i);
    return list;
}

QString sourceDir()
{
    return QStringLiteral(QV_SOURCE_DIR);
}

struct TsMessage {
    QString context;
    QString source;
    QString translation;
    bool finished;
};

QList<TsMessage> readCatalogue(const QString &path)
{
    QList<TsMessage> messages;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return messages;
    QXmlStreamReader xml(&file);
    QString context;
    TsMessage current;
    while (!xml.atEnd()) {
        xml.readNext();
        if (!xml.isStartElement())
            continue;
        if (xml.name() == QLatin1String("name")) {
            context = xml.readElementText();
        } else if (xml.name() == QLatin1String("message")) {
            current = TsMessage{context, QString(), QString(), true};
        } else if (xml.name() == QLatin1String("source")) {
            current.source = xml.readElementText();
        } else if (xml.name() == QLatin1String("translation")) {
            const QStringRef type = xml.attributes().value(QLatin1String("type"));
            if (type == QLatin1String("vanished") || type == QLatin1String("obsolete"))
                continue;
            current.finished = type != QLatin1String("unfinished");
            current.translation = xml.readElementText();
            messages << current;
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
    void startScreenTicks_data();
    void startScreenTicks();
    void startScreenRunsToItsEnd();
    void everyNamedResourceExists();
    void picturesHaveTheirSizes_data();
    void picturesHaveTheirSizes();
    void catalogueIsComplete();
    void catalogueCoversTheSources();
    void compiledCatalogueTranslates_data();
    void compiledCatalogueTranslates();
};

void TestShellRules::initTestCase()
{
    g_initResources();
}

void TestShellRules::recentList_data()
{
    QTest::addColumn<QStringList>("before");
    QTest::addColumn<QString>("path");
    QTest::addColumn<QStringList>("after");
    QTest::newRow("empty") << QStringList() << "/a.qvj" << strings({"/a.qvj"});
    QTest::newRow("new goes first") << strings({"/a.qvj"}) << "/b.qvj" << strings({"/b.qvj", "/a.qvj"});
    QTest::newRow("reopened moves to the front")
        << strings({"/a.qvj", "/b.qvj", "/c.qvj"}) << "/c.qvj" << strings({"/c.qvj", "/a.qvj", "/b.qvj"});
    QTest::newRow("already first") << strings({"/a.qvj", "/b.qvj"}) << "/a.qvj" << strings({"/a.qvj", "/b.qvj"});
    QTest::newRow("duplicates all go") << strings({"/a.qvj", "/b.qvj", "/a.qvj"}) << "/a.qvj"
                                       << strings({"/a.qvj", "/b.qvj"});
    QTest::newRow("case matters") << strings({"/A.qvj"}) << "/a.qvj" << strings({"/a.qvj", "/A.qvj"});
    QTest::newRow("15 grow to 16") << numbered(1, 15) << "/new.qvj" << (strings({"/new.qvj"}) + numbered(1, 15));
    QTest::newRow("17th drops the oldest") << numbered(1, 16) << "/new.qvj"
                                           << (strings({"/new.qvj"}) + numbered(1, 15));
    QTest::newRow("full list, reopened entry") << numbered(1, 16) << "/p/16.qvj"
                                               << (strings({"/p/16.qvj"}) + numbered(1, 15));
    QTest::newRow("overlong list is cut") << numbered(1, 20) << "/new.qvj"
                                          << (strings({"/new.qvj"}) + numbered(1, 15));
}

void TestShellRules::recentList()
{
    QFETCH(QStringList, before);
    QFETCH(QString, path);
    QFETCH(QStringList, after);
    g_addRecentFile(before, path);
    QCOMPARE(before, after);
}

void TestShellRules::titlePath_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<bool>("shortened");
    QTest::newRow("empty") << 0 << false;
    QTest::newRow("80 characters") << 80 << false;
    QTest::newRow("81 characters") << 81 << true;
    QTest::newRow("100 characters") << 100 << true;
    QTest::newRow("1000 characters") << 1000 << true;
}

void TestShellRules::titlePath()
{
    QFETCH(int, length);
    QFETCH(bool, shortened);
    QString path;
    for (int i = 0; i < length; ++i)
        path += QChar(QLatin1Char(char('a' + i % 26)));
    const QString shown = g_titlePath(path);
    if (!shortened) {
        QCOMPARE(shown, path);
        return;
    }
    QCOMPARE(shown.size(), 78);
    QCOMPARE(shown, QStringLiteral("...") + path.right(75));
}

void TestShellRules::zoomSteps_data()
{
    QTest::addColumn<int>("zoom");
    QTest::addColumn<int>("in");
    QTest::addColumn<int>("out");
    QTest::newRow("fit width") << kZoomFitWidth << 150 << 90;
    QTest::newRow("fit height") << kZoomFitHeight << 150 << 90;
    QTest::newRow("fit page") << kZoomFitPage << 150 << 90;
    QTest::newRow("1000") << 1000 << 1000 << 950;
    QTest::newRow("999") << 999 << 1049 << 949;
    QTest::newRow("150") << 150 << 200 << 100;
    QTest::newRow("101") << 101 << 151 << 51;
    QTest::newRow("100") << 100 << 150 << 90;
    QTest::newRow("90") << 90 << 100 << 80;
    QTest::newRow("20") << 20 << 30 << 10;
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
    QTest::newRow("page, tall area") << kZoomFitPage << QSize(1000, 800) << none << QSize(1000, 707) << true;
    QTest::newRow("150 percent") << 150 << QSize(1, 1) << QSize(1000, 707) << QSize(1500, 1060) << false;
    QTest::newRow("33 percent, integer arithmetic") << 33 << QSize(1, 1) << QSize(1001, 1) << QSize(330, 233)
                                                    << false;
    QTest::newRow("0 percent") << 0 << QSize(1, 1) << QSize(1000, 707) << QSize(0, 0) << false;
    QTest::newRow("1000 percent") << 1000 << QSize(1, 1) << QSize(1000, 707) << QSize(10000, 7071) << false;
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
    QTest::newRow("three are ignored") << QByteArrayList{"quorvanta", "a", "b", "c"} << "";
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

void TestShellRules::startScreenTicks_data()
{
    QTest::addColumn<int>("ticks");
    QTest::addColumn<int>("bar");
    QTest::addColumn<int>("count");
    QTest::addColumn<bool>("finished");
    QTest::newRow("none") << 0 << 0 << 0 << false;
    QTest::newRow("one") << 1 << 2 << 2 << false;
    QTest::newRow("49") << 49 << 98 << 98 << false;
    QTest::newRow("50: bar full") << 50 << 100 << 100 << false;
    QTest::newRow("51: bar stays") << 51 << 100 << 102 << false;
    QTest::newRow("124") << 124 << 100 << 248 << false;
    QTest::newRow("125: the end") << 125 << 100 << 248 << true;
    QTest::newRow("more ticks change nothing") << 200 << 100 << 248 << true;
}

void TestShellRules::startScreenTicks()
{
    QFETCH(int, ticks);
    QFETCH(int, bar);
    QFETCH(int, count);
    QFETCH(bool, finished);
    StartScreenClass screen;
    QCOMPARE(screen.size(), QSize(440, 300));
    QVERIFY(screen.windowFlags() & Qt::FramelessWindowHint);
    for (int i = 0; i < ticks; ++i)
        screen.s_tick();
    QCOMPARE(screen.m_bar()->value(), bar);
    QCOMPARE(screen.m_count(), count);
    QCOMPARE(screen.m_finished(), finished);
}

void TestShellRules::startScreenRunsToItsEnd()
{
    StartScreenClass screen;
    screen.show();
    screen.m_waitForStartScreen();  // returns after the timer's last tick
    QVERIFY(screen.m_finished());
    QCOMPARE(screen.m_count(), 248);
    QVERIFY(!screen.isVisible());
    screen.m_waitForStartScreen();  // a finished screen does not wait again
}

// Every ":/new/prefix1/resources/..." named in the sources and forms is built in.
void TestShellRules::everyNamedResourceExists()
{
    const QRegularExpression pattern(QStringLiteral(":/new/prefix1/resources/[A-Za-z0-9_.\\-]+"));
    QStringList named;
    QDirIterator it(sourceDir() + QStringLiteral("/src"), {QStringLiteral("*.cpp"), QStringLiteral("*.h"),
                                                           QStringLiteral("*.ui")},
                    QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile file(it.next());
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString text = QString::fromUtf8(file.readAll());
        auto matches = pattern.globalMatch(text);
        while (matches.hasNext())
            named << matches.next().captured(0);
    }
    named.removeDuplicates();
    QVERIFY2(named.size() >= 26, qPrintable(named.join(QLatin1Char(' '))));
    QStringList missing;
    for (const QString &path : named) {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly) || file.size() == 0)
            missing << path;
    }
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char(' '))));
}

void TestShellRules::picturesHaveTheirSizes_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QSize>("size");
    for (const char *icon : {"new", "open", "save", "saveas", "close", "print", "exportpdf", "exit", "settings",
                             "chart", "flag_uk", "flag_ger", "false", "true", "help", "about", "updatecheck",
                             "zoomin", "zoomout", "zoomfull", "zoomwidth", "zoomheight", "importbin", "importcsv"})
        QTest::newRow(icon) << QString::fromLatin1(icon) << QSize(48, 48);
    QTest::newRow("program icon") << "Quorvanta" << QSize(256, 256);
    QTest::newRow("start screen") << "startscreen" << QSize(440, 300);
}

void TestShellRules::picturesHaveTheirSizes()
{
    QFETCH(QString, name);
    QFETCH(QSize, size);
    const QImage image(QStringLiteral(":/new/prefix1/resources/") + name + QStringLiteral(".png"));
    QCOMPARE(image.size(), size);
    // Drawn, not blank: some pixels are opaque, and not all the same colour.
    int opaque = 0;
    QSet<QRgb> colours;
    for (int y = 0; y < image.height(); y += 2) {
        for (int x = 0; x < image.width(); x += 2) {
            const QRgb p = image.pixel(x, y);
            opaque += qAlpha(p) == 255 ? 1 : 0;
            colours.insert(p);
        }
    }
    QVERIFY(opaque > 20);
    QVERIFY(colours.size() > 3);
}

void TestShellRules::catalogueIsComplete()
{
    const QList<TsMessage> messages =
        readCatalogue(sourceDir() + QStringLiteral("/resources/translations/Quorvanta_de.ts"));
    QVERIFY(messages.size() > 80);
    QStringList open;
    for (const TsMessage &m : messages) {
        if (!m.finished || m.translation.isEmpty())
            open << m.context + QStringLiteral(": ") + m.source;
    }
    QVERIFY2(open.isEmpty(), qPrintable(open.join(QLatin1Char('\n'))));
}

// Every text that lupdate finds in the sources today is in the committed
// catalogue (so a new text cannot slip in untranslated).
void TestShellRules::catalogueCoversTheSources()
{
    QTemporaryDir dir;
    const QString extracted = dir.filePath(QStringLiteral("extracted_de.ts"));
    QProcess lupdate;
    lupdate.setProcessChannelMode(QProcess::MergedChannels);
    lupdate.start(QStringLiteral(QV_LUPDATE),
                  {QStringLiteral("-silent"), QStringLiteral("-locations"), QStringLiteral("none"),
                   sourceDir() + QStringLiteral("/src"), QStringLiteral("-ts"), extracted});
    QVERIFY(lupdate.waitForFinished(120000));
    QVERIFY2(lupdate.exitCode() == 0, lupdate.readAll().constData());

    QSet<QString> known;
    for (const TsMessage &m : readCatalogue(sourceDir() + QStringLiteral("/resources/translations/Quorvanta_de.ts")))
        known.insert(m.context + QLatin1Char('|') + m.source);
    const QList<TsMessage> found = readCatalogue(extracted);
    QVERIFY(found.size() > 80);
    QStringList missing;
    for (const TsMessage &m : found) {
        if (!known.contains(m.context + QLatin1Char('|') + m.source))
            missing << m.context + QStringLiteral(": ") + m.source;
    }
    QVERIFY2(missing.isEmpty(), qPrintable(missing.join(QLatin1Char('\n'))));
}

void TestShellRules::compiledCatalogueTranslates_data()
{
    QTest::addColumn<QString>("context");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("german");
    QTest::newRow("menu") << "Quorvanta" << "&Project" << "&Projekt";
    QTest::newRow("action") << "Quorvanta" << "&New Project" << "&Neues Projekt";
    QTest::newRow("tool bar") << "Quorvanta" << "Toolbar View" << "Werkzeugleiste Ansicht";
    QTest::newRow("close prompt") << "QuorvantaClass" << "Save changes before closing the project?"
                                  << "\u00c4nderungen vor dem Schlie\u00dfen des Projekts speichern?";
    QTest::newRow("core message") << "QVChartClass" << "File is no Quorvanta project!"
                                  << "Die Datei ist kein Quorvanta-Projekt!";
    QTest::newRow("chooser") << "importDialog" << "Import Ventimar CSV" << "Ventimar-CSV importieren";
    QTest::newRow("progress") << "progressDialog" << "Please Wait..." << "Bitte warten...";
}

void TestShellRules::compiledCatalogueTranslates()
{
    QFETCH(QString, context);
    QFETCH(QString, source);
    QFETCH(QString, german);
    QTranslator translator;
    QVERIFY(translator.load(QStringLiteral(":/new/prefix1/resources/Quorvanta_de.qm")));
    QCOMPARE(translator.translate(context.toLatin1().constData(), source.toUtf8().constData()), german);
}

QTEST_MAIN(TestShellRules)
#include "tst_shellrules.moc"

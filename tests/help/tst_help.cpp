#include "gui/help/helpwindowclass.h"
#include "support/testsupport.h"

#include <QAction>
#include <QDir>
#include <QRegularExpression>
#include <QTest>
#include <QTextBlock>
#include <QTextBrowser>

// The pages live in resources/help/<language>, so "resources" stands for the program's directory.
static const QString kAppDir = QStringLiteral(QV_SOURCE_DIR "/resources");

class TestHelp : public QObject
{
    Q_OBJECT

private slots:

    void history_data()
    {
        QTest::addColumn<QString>("page");
        QTest::addColumn<bool>("previous");  // Previous enabled on the first page shown
        QTest::newRow("index") << QStringLiteral("index.html") << false;
        QTest::newRow("another page, even Index.html: the index first") << QStringLiteral("Index.html") << true;
    }

    // Whatever is asked for, the index is the home page and Previous leads back.
    void history()
    {
        QFETCH(QString, page);
        QFETCH(bool, previous);
        QString appDir = kAppDir, other = QStringLiteral("keys.html");
        HelpWindowClass window(&appDir, nullptr, &page, qv::Language(0));
        auto *browser = window.findChild<QTextBrowser *>(QStringLiteral("helpBrowser"));
        const auto action = [&](const char *name) { return window.findChild<QAction *>(QLatin1String(name)); };
        QCOMPARE(browser->source(), QUrl(page));
        QCOMPARE(action("actionPrevious")->isEnabled(), previous);
        window.m_setSource(&other);
        action("actionSearch")->trigger();
        action("actionPrevious")->trigger();
        QCOMPARE(browser->source(), QUrl(other));
        QVERIFY(action("actionNext")->isEnabled());
        action("actionHome")->trigger();
        QCOMPARE(browser->source(), QUrl(QStringLiteral("index.html")));
        // The shared stylesheet beside the language folders is found: headings take its colour.
        QTextBlock block = browser->document()->begin();
        while (block.isValid() && block.blockFormat().headingLevel() != 1)
            block = block.next();
        QCOMPARE(block.charFormat().foreground().color(), QColor(0x1f, 0x6f, 0xb8));
    }

    void helpFolder_data()
    {
        // clang-format off
        QTest::addColumn<QString>("layout");  // folders made below a scratch root, the first is the program's
        QTest::addColumn<uint>("language");
        QTest::addColumn<QString>("folder");  // expected search path, "" for none
        QTest::newRow("Italian, no pages: beside the program") << QStringLiteral("app") << 3u << QStringLiteral("app/help/it");
        QTest::newRow("language 4: no path") << QStringLiteral("app app/help/en") << 4u << QString();
        QTest::newRow("installed") << QStringLiteral("bin share/quorvanta/help/en") << 0u << QStringLiteral("share/quorvanta/help/en");
        QTest::newRow("beside wins, German") << QStringLiteral("bin bin/help/de share/quorvanta/help/de") << 1u << QStringLiteral("bin/help/de");
        // clang-format on
    }

    void helpFolder()
    {
        QFETCH(QString, layout);
        QFETCH(uint, language);
        QFETCH(QString, folder);
        QTemporaryDir root;
        const QStringList dirs = layout.split(QLatin1Char(' '));
        for (const QString &dir : dirs)
            QVERIFY(QDir(root.path()).mkpath(dir));
        QString appDir = root.filePath(dirs.first()), page = QStringLiteral("index.html");
        HelpWindowClass window(&appDir, nullptr, &page, qv::Language(language));
        QCOMPARE(window.findChild<QTextBrowser *>(QStringLiteral("helpBrowser"))->searchPaths(),
                 folder.isEmpty() ? QStringList() : QStringList{root.filePath(folder)});
    }

    // Both languages have the same pages; every href and src names an existing
    // file, and an anchor after '#' exists in it.
    void everyLinkResolvesInBothLanguages()
    {
        const QDir en(kAppDir + QStringLiteral("/help/en")), de(kAppDir + QStringLiteral("/help/de"));
        QVERIFY(en.entryList(QDir::Files).size() >= 10);
        QCOMPARE(de.entryList(QDir::Files), en.entryList(QDir::Files));
        const QRegularExpression link(QStringLiteral("(?:href|src)=\"([^\"#]*)#?([^\"]*)\""));
        QStringList broken;
        for (const QDir &dir : {en, de}) {
            for (const QString &page : en.entryList(QDir::Files)) {
                for (auto it = link.globalMatch(QString::fromUtf8(qvtest::readFile(dir.filePath(page))));
                     it.hasNext();) {
                    const QRegularExpressionMatch match = it.next();
                    const QString target = dir.filePath(match.captured(1).isEmpty() ? page : match.captured(1));
                    const QString anchor = match.captured(2);
                    if (!QFileInfo(target).isFile() ||
                        (!anchor.isEmpty() && !qvtest::readFile(target).contains("name=\"" + anchor.toUtf8() + '"')))
                        broken << dir.dirName() + QLatin1Char('/') + page + QStringLiteral(": ") + match.captured(0);
                }
            }
        }
        QVERIFY2(broken.isEmpty(), qPrintable(broken.join(QLatin1Char('\n'))));
    }
};

QTEST_MAIN(TestHelp)
#include "tst_help.moc"

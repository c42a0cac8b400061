// The version check, the update dialog and the start of the saved updater,
// against an HTTP server on 127.0.0.1 that the test runs.
#include "app/appexit.h"
#include "app/shellfixture.h"
#include "core/update/updaterules.h"
#include "gui/update/qvupdateclass.h"
#include "gui/update/webupdateclass.h"
#include "support/scripteddialogs.h"
#include "support/testsupport.h"

#include <QPushButton>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTextEdit>
#include <QtTest>

namespace {

enum Reply { None = -1, Ok, Hang, Elsewhere, BreakOff, Huge };
const QByteArray kVersion = "/quorvanta/version.upd", kUpdater = "/quorvanta/QuorvantaUpdate.exe";

// Answers a GET by the behaviour of its path (others: closed at once) and
// keeps what was asked.
struct Server : QTcpServer {
    QMap<QByteArray, QPair<Reply, QByteArray>> routes;
    QSet<QByteArray> requests;
    Server() { listen(QHostAddress::LocalHost); }
    void incomingConnection(qintptr handle) override
    {
        auto *socket = new QTcpSocket(this);
        socket->setSocketDescriptor(handle);
        connect(socket, &QTcpSocket::readyRead, socket, [this, socket] {
            if (!socket->peek(8192).contains("\r\n\r\n"))
                return;  // the whole head first
            const QList<QByteArray> line = socket->readAll().split(' ');
            requests << line[0] + ' ' + line.value(1);
            const auto [reply, body] = routes.value(line.value(1), {None, {}});
            const QByteArray size = QByteArray::number(reply == Huge ? (64 << 20) + 1 : body.size());
            if (reply == Elsewhere)  // to another origin
                socket->write("HTTP/1.1 302 Found\r\nContent-Length: 0\r\nLocation: http://127.0.0.1:1/\r\n\r\n");
            if (reply == Ok || reply == BreakOff || reply == Huge)
                socket->write("HTTP/1.1 200 OK\r\nContent-Length: " + size + "\r\n\r\n" +
                              (reply == BreakOff ? body.left(body.size() / 2) : body));
            if (reply != Hang && reply != Huge)
                socket->disconnectFromHost();
        });
    }
};

// A version file: 7 characters (zero-padded), one unused byte, kB (LE).
QByteArray versionFile(const QByteArray &version, qint32 kb = 1234)
{
    return version.leftJustified(8, '\0', true) + char(kb) + char(kb >> 8) + char(kb >> 16) + char(kb >> 24);
}

}  // namespace

class TestUpdate : public QObject
{
    Q_OBJECT

    QTemporaryDir scratch;
    Server server;
    const QUrl base{QStringLiteral("http://127.0.0.1:%1").arg(server.serverPort())};

private slots:
    void initTestCase() { qvtest::prepareShell(scratch); }

    void dialog_data()
    {
        QTest::addColumn<int>("versionReply");
        QTest::addColumn<QByteArray>("versionBytes");
        QTest::addColumn<int>("updaterReply");  // None: not offered
        QTest::addColumn<bool>("blocked");      // a file where the folder should be
        QTest::addColumn<QByteArray>("log");    // after the first two lines
        QTest::addColumn<QByteArray>("message");
        const auto row = [](const char *name, Reply version, const QByteArray &bytes, Reply updater, bool blocked,
                            const QByteArray &log, const QByteArray &message = {}) {
            QTest::newRow(name) << int(version) << bytes << int(updater) << blocked << log << message;
        };
        const QByteArray newer = versionFile("1.9.000"), late = "The update server did not answer in time.";
        const QByteArray ready = "New Quorvanta Version: 1.9.000\nReady to start Update. (1234 kB)";
        const QByteArray error = ready + "\nError: ";
        // clang-format off
        row("saved", Ok, newer, Ok, false, ready + "\nUpdate successful...", "Quorvanta Update: Quorvanta will be closed to perform the update!");
        row("1.10.00 sorts before 1.8.100", Ok, versionFile("1.10.00"), None, false, "New Quorvanta Version: 1.10.00\nNo Update neccessary");
        row("equal", Ok, versionFile("1.8.100"), None, false, "New Quorvanta Version: 1.8.100\nNo Update neccessary");
        row("size -1", Ok, versionFile("1.9.000", -1), None, false, "New Quorvanta Version: 1.9.000\nReady to start Update. (-1 kB)");
        row("version up to a zero byte", Ok, versionFile(QByteArray("1.9\0abc", 7)), None, false, "New Quorvanta Version: 1.9\nReady to start Update. (1234 kB)");
        row("11 bytes", Ok, newer.left(11), None, false, "Error: Invalid version file (11 bytes)");
        row("version timeout", Hang, newer, None, false, "Error: " + late);
        row("version redirected", Elsewhere, newer, None, false, "Error: Insecure redirect");
        row("updater breaks off", Ok, newer, BreakOff, false, error + "Connection closed");
        row("updater timeout", Ok, newer, Hang, false, error + late);
        row("updater over 64 MiB", Ok, newer, Huge, false, error + "The update is larger than 64 MiB.");
        row("no folder", Ok, newer, Ok, true, ready, "Quorvanta Update: Unable to save update! Not a directory");
        // clang-format on
    }

    // The background check: 1 only for a newer version. The dialog: the log,
    // the messages, the buttons, the requests and what the folder holds after
    // the check and, where offered, the download.
    void dialog()
    {
        QFETCH(int, versionReply);
        QFETCH(QByteArray, versionBytes);
        QFETCH(int, updaterReply);
        QFETCH(bool, blocked);
        QFETCH(QByteArray, log);
        QFETCH(QByteArray, message);
        const QByteArray updater = QByteArray("#!/bin/sh\n").leftJustified(4096, '#') + "\nexit 0\n";
        server.routes = {{kVersion, {Reply(versionReply), versionBytes}}, {kUpdater, {Reply(updaterReply), updater}}};
        server.requests.clear();
        WebUpdateClass check(QStringLiteral("1.8.100"), base, nullptr, 300);
        QSignalSpy ready(&check, &WebUpdateClass::m_webUpdateReady);
        QVERIFY(ready.wait(5000));
        QCOMPARE(ready, QList<QVariantList>{{int(log.contains("Ready to start"))}});
        QTemporaryDir dir;
        const QString programDir = blocked ? dir.filePath(QStringLiteral("file")) : dir.path();
        if (blocked)
            qvtest::writeFile(programDir, {});
        qvtest::ScriptedDialogs messages;
        QVUpdateClass dialog(nullptr, QStringLiteral("1.8.100"), programDir, base, 300);
        auto *edit = dialog.findChild<QTextEdit *>(QStringLiteral("editStatus"));
        auto *update = dialog.findChild<QPushButton *>(QStringLiteral("buttonUpdate"));
        auto *exit = dialog.findChild<QPushButton *>(QStringLiteral("buttonExit"));
        QTRY_VERIFY_WITH_TIMEOUT(edit->toPlainText().count(QLatin1Char('\n')) >= 2, 5000);
        QCOMPARE(update->isEnabled(), updaterReply != None || log.endsWith(" kB)"));
        if (updaterReply != None) {
            update->click();
            QVERIFY(!update->isEnabled() && !exit->isEnabled());
            QTRY_VERIFY_WITH_TIMEOUT(exit->isEnabled() || dialog.result() == QDialog::Accepted, 5000);
        }
        QCOMPARE(edit->toPlainText(),
                 QStringLiteral("Existing Quorvanta Version: 1.8.100\nLooking for new version ...\n") +
                     QString::fromUtf8(log));
        QStringList shown;
        for (const qv::MessageRecord &m : messages.messages)
            shown << m.title + QLatin1String(": ") + m.text;
        QCOMPARE(shown.join(QLatin1Char('\n')), QString::fromUtf8(message));
        QCOMPARE(server.requests,
                 (QSet<QByteArray>{"GET " + kVersion, "GET " + (updaterReply < 0 ? kVersion : kUpdater)}));
        // Nothing but a complete updater is ever left in the folder.
        const bool saved = dialog.result() == QDialog::Accepted;
        QCOMPARE(QDir(dir.path()).entryList(QDir::Files).join(QLatin1Char(' ')),
                 QLatin1String(saved ? "QuorvantaUpdate.exe" : (blocked ? "file" : "")));
        QCOMPARE(qvtest::readFile(dialog.m_updaterFile()), saved ? updater : QByteArray());
        QCOMPARE(QFileInfo(dialog.m_updaterFile()).isExecutable(), saved);
        QCOMPARE(exit->isEnabled(), !saved);
    }

    void serverAddress_data()
    {
        // clang-format off
        QTest::addColumn<QString>("setting");
        QTest::addColumn<QString>("environment");
        QTest::addColumn<QString>("version");  // the version file's address, "" for none
        QTest::newRow("our own") << "" << " " << "https://update.quorvanta.example/quorvanta/version.upd";
        QTest::newRow("setting") << "http://10.0.0.1:8080/" << "" << "http://10.0.0.1:8080/quorvanta/version.upd";
        QTest::newRow("environment first") << "https://a.example" << "https://b.example/m//" << "https://b.example/m/quorvanta/version.upd";
        QTest::newRow("ftp refused") << "" << "ftp://b.example" << "";
        QTest::newRow("no host") << "https:///x" << "" << "";
        QTest::newRow("user refused") << "https://me:pw@a.example" << "" << "";
        // clang-format on
    }

    void serverAddress()
    {
        QFETCH(QString, setting);
        QFETCH(QString, environment);
        QFETCH(QString, version);
        QCOMPARE(qv::g_updateResource(qv::g_updateServer(setting, environment), qv::kVersionFilePath).toString(),
                 version);
    }

    // The window closes for the updater only when the saved file can run.
    void startAfterExit()
    {
        for (const bool executable : {false, true}) {
            const auto window = qvtest::makeWindow();
            window->show();
            const QString file = window->m_settingsDir() + QStringLiteral("/QuorvantaUpdate.exe");
            qvtest::ScriptedDialogs dialogs;
            dialogs.onExec = [&](QDialog &) {
                QDir().mkpath(window->m_settingsDir());
                qvtest::writeFile(file, "#!/bin/sh\n");
                QFile::setPermissions(file, executable ? QFile::ReadOwner | QFile::ExeOwner : QFile::ReadOwner);
                return int(QDialog::Accepted);
            };
            window->s_update();
            QCOMPARE(appVal, executable ? qv::kStartUpdater : 0);
            QCOMPARE(window->isVisible(), !executable);
            QCOMPARE(dialogs.messages.size(), executable ? 0 : 1);
        }
    }
};

QTEST_MAIN(TestUpdate)
#include "tst_update.moc"

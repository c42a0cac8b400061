// The import chooser and the progress dialog.
#include "ui/resources.h"
#include "import/importdialogclass.h"
#include "ui/progressdialogclass.h"

#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

class TestImportDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase() { qv::g_initResources(); }
    void chooser_data();
    void chooser();
    void progressDialog_data();
    void progressDialog();
};

void TestImportDialogs::chooser_data()
{
    QTest::addColumn<QString>("button");  // "" closes the chooser
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    QTest::newRow("binary") << "buttonImportBIN" << "Import Ventimar Sampling" << 51;
    QTest::newRow("controller CSV") << "buttonImportCSV" << "Import Ventimar CSV" << 85;
    QTest::newRow("vaporix-VIS") << "buttonImportVAPIX" << "Import vaporix-VIS Sampling" << 119;
    QTest::newRow("closed") << "" << "" << 0;
}

void TestImportDialogs::chooser()
{
    QFETCH(QString, button);
    QFETCH(QString, text);
    QFETCH(int, code);
    ImportDialogClass dialog(nullptr);
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Import Data..."));
    QCOMPARE(dialog.minimumSize(), QSize(504, 216));
    QCOMPARE(dialog.maximumSize(), QSize(504, 216));
    QVERIFY(dialog.isModal());
    const auto picture = [&](const char *name) {
        return dialog.findChild<QToolButton *>(QLatin1String(name))->icon().pixmap(40).toImage();
    };
    QVERIFY(!picture("buttonImportCSV").isNull());
    QCOMPARE(picture("buttonImportVAPIX"), picture("buttonImportCSV"));  // on purpose
    QVERIFY(picture("buttonImportBIN") != picture("buttonImportCSV"));
    dialog.show();
    if (button.isEmpty()) {
        QVERIFY(dialog.close());
    } else {
        auto *b = dialog.findChild<QToolButton *>(button);
        QCOMPARE(b->text(), text);
        QTest::mouseClick(b, Qt::LeftButton);
    }
    QCOMPARE(dialog.m_getType(), code);
    QCOMPARE(dialog.result(), int(code ? QDialog::Accepted : QDialog::Rejected));
    QVERIFY(!dialog.isVisible());
}

void TestImportDialogs::progressDialog_data()
{
    QTest::addColumn<QList<int>>("values");
    QTest::addColumn<int>("shown");
    QTest::newRow("none") << QList<int>{} << 0;
    QTest::newRow("full") << QList<int>{1, 31, 255} << 255;
    QTest::newRow("back down") << QList<int>{200, 5} << 5;
    // Values outside 0..255 are ignored by the bar; the last valid one stays.
    QTest::newRow("above the range") << QList<int>{100, 256} << 100;
    QTest::newRow("below the range") << QList<int>{100, -1} << 100;
}

// Shown and modal from its construction, labels above their bars; every
// setter lets pending events through, which keeps the program alive during
// long work on the GUI thread.
void TestImportDialogs::progressDialog()
{
    QFETCH(QList<int>, values);
    QFETCH(int, shown);
    ProgressDialogClass dialog(nullptr, QStringLiteral("Loading project..."), QStringLiteral("Chart Data..."));
    QVERIFY(dialog.isVisible() && dialog.isModal());
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Please Wait..."));
    auto *layout = dialog.findChild<QVBoxLayout *>(QStringLiteral("verticalLayout"));
    QStringList texts;
    for (int i = 0; i < layout->count(); ++i) {
        QWidget *widget = layout->itemAt(i)->widget();
        auto *bar = qobject_cast<QProgressBar *>(widget);
        texts << (bar ? QStringLiteral("%1..%2").arg(bar->minimum()).arg(bar->maximum())
                      : qobject_cast<QLabel *>(widget)->text());
    }
    QCOMPARE(texts, (QStringList{QStringLiteral("Loading project..."), QStringLiteral("0..255"),
                                 QStringLiteral("Chart Data..."), QStringLiteral("0..255")}));
    int delivered = 0;
    int missed = 0;  // setters that returned with their event still pending
    const auto setAndCount = [&](const std::function<void()> &setter) {
        const int expected = delivered + 1;
        QTimer::singleShot(0, &dialog, [&delivered] { ++delivered; });
        setter();
        missed += delivered == expected ? 0 : 1;
    };
    for (int v : values) {
        setAndCount([&] { dialog.m_setProgress(v); });
        setAndCount([&] { dialog.m_setDetailProgress(v); });
    }
    setAndCount([&] { dialog.m_setProgressText(QStringLiteral("Main")); });
    setAndCount([&] { dialog.m_setDetailProgressText(QStringLiteral("Detail")); });
    QCOMPARE(missed, 0);
    QCOMPARE(dialog.findChild<QProgressBar *>(QStringLiteral("progressBar"))->value(), shown);
    QCOMPARE(dialog.findChild<QProgressBar *>(QStringLiteral("progressBarDetail"))->value(), shown);
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("labelProgress"))->text(), QStringLiteral("Main"));
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("labelProgressDetail"))->text(), QStringLiteral("Detail"));
}

QTEST_MAIN(TestImportDialogs)
#include "tst_importdialogs.moc"

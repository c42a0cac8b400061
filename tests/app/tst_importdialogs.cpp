// The import chooser and the progress dialog.
#include "app/resources.h"
#include "import/importdialogclass.h"
#include "import/progressdialogclass.h"

#include <QLabel>
#include <QProgressBar>
#include <QTimer>
#include <QToolButton>
#include <QVBoxLayout>
#include <QtTest>

namespace {

QStringList strings(std::initializer_list<const char *> items)
{
    QStringList list;
    for (const char *item : items)
        list << QString::fromUtf8(item);
    return list;
}

}  // namespace

class TestImportDialogs : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void chooserForm();
    void chooserButtons_data();
    void chooserButtons();
    void chooserClosed();
    void progressForm();
    void progressSetters_data();
    void progressSetters();
    void settersLetEventsThrough();
};

void TestImportDialogs::initTestCase()
{
    qv::g_initResources();
}

void TestImportDialogs::chooserForm()
{
    ImportDialogClass dialog(nullptr);
    QCOMPARE(dialog.objectName(), QStringLiteral("importDialog"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Import Data..."));
    QCOMPARE(dialog.minimumSize(), QSize(504, 216));
    QCOMPARE(dialog.maximumSize(), QSize(504, 216));
    QVERIFY(dialog.isModal());
    QVERIFY(!dialog.windowIcon().isNull());
    QCOMPARE(dialog.m_getType(), 0);
    // The vaporix button shows the CSV picture, on purpose.
    const QImage csv = dialog.findChild<QToolButton *>(QStringLiteral("buttonImportCSV"))->icon().pixmap(40).toImage();
    const QImage vapix =
        dialog.findChild<QToolButton *>(QStringLiteral("buttonImportVAPIX"))->icon().pixmap(40).toImage();
    const QImage bin = dialog.findChild<QToolButton *>(QStringLiteral("buttonImportBIN"))->icon().pixmap(40).toImage();
    QVERIFY(!csv.isNull());
    QCOMPARE(vapix, csv);
    QVERIFY(bin != csv);
}

void TestImportDialogs::chooserButtons_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("code");
    QTest::newRow("binary") << "buttonImportBIN" << "Import Ventimar Sampling" << 51;
    QTest::newRow("controller CSV") << "buttonImportCSV" << "Import Ventimar CSV" << 85;
    QTest::newRow("vaporix-VIS") << "buttonImportVAPIX" << "Import vaporix-VIS Sampling" << 119;
}

void TestImportDialogs::chooserButtons()
{
    QFETCH(QString, button);
    QFETCH(QString, text);
    QFETCH(int, code);
    ImportDialogClass dialog(nullptr);
    auto *b = dialog.findChild<QToolButton *>(button);
    QVERIFY(b);
    QCOMPARE(b->text(), text);
    QCOMPARE(b->minimumSize(), QSize(224, 80));
    QCOMPARE(b->maximumSize(), QSize(224, 80));
    QCOMPARE(b->toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    QVERIFY(!b->icon().isNull());
    dialog.show();
    QTest::mouseClick(b, Qt::LeftButton);
    QCOMPARE(dialog.m_getType(), code);
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QVERIFY(!dialog.isVisible());
}

void TestImportDialogs::chooserClosed()
{
    ImportDialogClass dialog(nullptr);
    dialog.show();
    QVERIFY(dialog.close());
    QCOMPARE(dialog.m_getType(), 0);
    QCOMPARE(dialog.result(), int(QDialog::Rejected));
}

void TestImportDialogs::progressForm()
{
    ProgressDialogClass dialog(nullptr, QStringLiteral("Loading project..."), QStringLiteral("Chart Data..."));
    QVERIFY(dialog.isVisible());  // shown by the constructor
    QVERIFY(dialog.isModal());
    QCOMPARE(dialog.objectName(), QStringLiteral("progressDialog"));
    QCOMPARE(dialog.windowTitle(), QStringLiteral("Please Wait..."));
    auto *layout = dialog.findChild<QVBoxLayout *>(QStringLiteral("verticalLayout"));
    QVERIFY(layout);
    QStringList order;
    for (int i = 0; i < layout->count(); ++i)
        order << layout->itemAt(i)->widget()->objectName();
    QCOMPARE(order, (strings({"labelProgress", "progressBar", "labelProgressDetail", "progressBarDetail"})));
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("labelProgress"))->text(), QStringLiteral("Loading project..."));
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("labelProgressDetail"))->text(),
             QStringLiteral("Chart Data..."));
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("labelProgress"))->textInteractionFlags(),
             Qt::NoTextInteraction);
    for (const char *name : {"progressBar", "progressBarDetail"}) {
        auto *bar = dialog.findChild<QProgressBar *>(QLatin1String(name));
        QCOMPARE(bar->minimum(), 0);
        QCOMPARE(bar->maximum(), 255);
        QCOMPARE(bar->value(), 0);
    }
}

void TestImportDialogs::progressSetters_data()
{
    QTest::addColumn<QList<int>>("values");
    QTest::addColumn<int>("shown");
    QTest::newRow("one value") << QList<int>{31} << 31;
    QTest::newRow("full") << QList<int>{1, 31, 255} << 255;
    QTest::newRow("back down") << QList<int>{200, 5} << 5;
    // Values outside 0..255 are ignored by the bar; the last valid one stays.
    QTest::newRow("above the range") << QList<int>{100, 256} << 100;
    QTest::newRow("below the range") << QList<int>{100, -1} << 100;
    QTest::newRow("huge") << QList<int>{7, 1 << 30} << 7;
}

void TestImportDialogs::progressSetters()
{
    QFETCH(QList<int>, values);
    QFETCH(int, shown);
    ProgressDialogClass dialog(nullptr, QStringLiteral("A"), QStringLiteral("B"));
    for (int v : values) {
        dialog.m_setProgress(v);
        dialog.m_setDetailProgress(v);
    }
    QCOMPARE(dialog.findChild<QProgressBar *>(QStringLiteral("progressBar"))->value(), shown);
    QCOMPARE(dialog.findChild<QProgressBar *>(QStringLiteral("progressBarDetail"))->value(), shown);
    dialog.m_setProgressText(QStringLiteral("Main"));
    dialog.m_setDetailProgressText(QStringLiteral("Detail"));
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("labelProgress"))->text(), QStringLiteral("Main"));
    QCOMPARE(dialog.findChild<QLabel *>(QStringLiteral("labelProgressDetail"))->text(), QStringLiteral("Detail"));
}

// Each setter processes pending events, which keeps the program alive
// during long work on the GUI thread.
void TestImportDialogs::settersLetEventsThrough()
{
    ProgressDialogClass dialog(nullptr, QStringLiteral("A"), QStringLiteral("B"));
    const QList<std::function<void()>> setters{
        [&] { dialog.m_setProgress(1); },
        [&] { dialog.m_setDetailProgress(1); },
        [&] { dialog.m_setProgressText(QStringLiteral("x")); },
        [&] { dialog.m_setDetailProgressText(QStringLiteral("y")); },
    };
    for (const auto &setter : setters) {
        bool delivered = false;
        QTimer::singleShot(0, &dialog, [&delivered] { delivered = true; });
        setter();
        QVERIFY(delivered);
    }
}

QTEST_MAIN(TestImportDialogs)
#include "tst_importdialogs.moc"

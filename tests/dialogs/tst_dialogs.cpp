// The chart settings and single-series dialogs, run from the chart widget
// and worked through their widgets by object name; what the chart then
// holds. The colour button's swatch and the drawing surface's mouse signals.
#include "core/model/fixedstring.h"
#include "core/project/projectfile.h"
#include "document/qvchartclass.h"
#include "gui/dialogs/colorwidgets.h"
#include "gui/dialogs/settingsdialogclass.h"
#include "support/scripteddialogs.h"
#include "support/widgetsupport.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QToolButton>
#include <QtTest>

#include <cstring>
#include <functional>

using namespace qv;

Q_DECLARE_METATYPE(QDialogButtonBox::StandardButton)

namespace {

const qint64 kStart = 1700000000000, kMinute = 60000;

template <class W> W *child(QObject &parent, const QString &name)
{
    W *w = parent.findChild<W *>(name);
    return w ? w : (qFatal("no widget %s", qPrintable(name)), w);
}

// Values for a dialog's widgets by object name, written through each
// widget's user property (checked, value, text, date).
QVariantMap fields(std::initializer_list<std::pair<const char *, QVariant>> values)
{
    QVariantMap map;
    for (const auto &value : values)
        map.insert(QLatin1String(value.first), value.second);
    return map;
}

void fill(QDialog &d, const QVariantMap &values)
{
    for (auto it = values.begin(); it != values.end(); ++it) {
        QWidget *w = child<QWidget>(d, it.key());
        w->metaObject()->userProperty().write(w, it.value());
    }
}

void setIndex(QDialog &d, int number)
{
    child<QSpinBox>(d, QStringLiteral("spinIndex"))->setValue(number);
}

void press(QDialog &d, QDialogButtonBox::StandardButton button)
{
    child<QDialogButtonBox>(d, QStringLiteral("buttonBox"))->button(button)->click();
}

// A chart widget opened from a saved project of eight data sets of 20
// samples a minute apart (set 1 hidden; sets 0..5 with an axis, 6 and 7
// without), after before() has changed the record. Records the message
// boxes, the help pages asked for and whether the project was marked
// modified.
struct OpenChart {
    QTemporaryDir dir;
    QString path = dir.filePath(QStringLiteral("p.qvj")), projectDir, importDir;
    QWidget panel;
    QVChartClass chart{nullptr, &projectDir, &importDir, new QGridLayout(&panel)};
    qvtest::ScriptedDialogs dialogs;
    QStringList help;
    bool modified = false;
    quint32 pick = 0;  // what the colour chooser returns

    explicit OpenChart(const std::function<void(settingsT &)> &before = nullptr)
    {
        auto model = qvtest::makeModel(8, false);
        if (before)
            before(model->settings);
        chart.resize(1200, 800);
        if (!g_saveProjectFile(*model, path, SaveOptions()).ok || !chart.m_openProject(&path))
            qFatal("cannot open the project");
        QObject::connect(&chart, &QVChartClass::m_showHelp, [this](QWidget *, QString *page) { help << *page; });
        QObject::connect(&chart, &QVChartClass::m_projectChanged, [this] { modified = true; });
    }
    settingsT &live() { return chart.model().settings; }

    // Runs the chart settings (row < 0) or the dialog of that row, shown, and
    // work on its widgets; true when the dialog has closed by then.
    bool run(int row, const std::function<void(QDialog &)> &work)
    {
        bool closed = false;
        dialogs.onExec = [&](QDialog &d) {
            if (auto *chooser = qobject_cast<QColorDialog *>(&d)) {
                chooser->setCurrentColor(QColor::fromRgba(pick));
                chooser->accept();
            } else {
                d.show();
                work(d);
                closed = !d.isVisible();
            }
            return d.result();
        };
        if (row < 0)
            chart.s_formatChart();
        else
            child<QToolButton>(panel, QStringLiteral("setupButton%1").arg(row))->click();
        qvtest::flushDeletions();
        dialogs.onExec = nullptr;  // it refers to this call's locals
        return closed;
    }
};

}  // namespace

class TestDialogs : public QObject
{
    Q_OBJECT

    QTemporaryDir scratch;

private slots:
    void initTestCase() { qvtest::prepareShell(scratch); }

    // OK on a record the chart cannot draw shows the reason, Help asks for the
    // help page; either leaves the dialog open, and Cancel then leaves the
    // chart as it was.
    void openThenCancel_data()
    {
        QTest::addColumn<int>("row");             // the row's dialog, -1: the chart settings
        QTest::addColumn<int>("axisBefore");      // a set shown with its own axis first, -1: none
        QTest::addColumn<QVariantMap>("change");  // made on the shown set, then on these form numbers
        QTest::addColumn<QList<int>>("sets");
        QTest::addColumn<QDialogButtonBox::StandardButton>("button");
        QTest::addColumn<QString>("expected");  // the message box ("title: text") or the help page
        const QVariantMap edits = fields({{"editName", QStringLiteral("X")}, {"spinMin", 50.0}});
        const auto ok = QDialogButtonBox::Ok, help = QDialogButtonBox::Help;
        const QList<int> none;
        // clang-format off
        QTest::newRow("nothing shown") << -1 << -1 << fields({{"checkEnabled", false}}) << QList<int>{3, 4, 5, 6, 7, 8} << ok << "Error: At least 1 set of data must be displayed !";
        QTest::newRow("disabled sets with an axis are no axes") << -1 << -1 << fields({{"checkAxis", false}}) << QList<int>{3, 4, 5, 6} << ok << "Error: At least 1 axis must be displayed !";
        QTest::newRow("help") << -1 << -1 << edits << none << help << "settings.html";
        QTest::newRow("row: a seventh axis") << 7 << 6 << fields({{"checkAxis", true}}) << none << ok << "Error: It's not possible displaying more than 6 axis !";
        QTest::newRow("row: help") << 0 << -1 << edits << none << help << "settings.html";
        // clang-format on
    }
    void openThenCancel()
    {
        QFETCH(int, row);
        QFETCH(int, axisBefore);
        QFETCH(QVariantMap, change);
        QFETCH(QList<int>, sets);
        QFETCH(QDialogButtonBox::StandardButton, button);
        OpenChart c([&](settingsT &s) {
            if (axisBefore >= 0)
                s.lineFlags[axisBefore] = kLineShown | kLineOwnAxis;
        });
        const settingsT before = c.live();
        QVERIFY(c.run(row, [&](QDialog &d) {
            fill(d, change);
            for (int number : sets) {
                setIndex(d, number);
                fill(d, change);
            }
            press(d, button);
            QVERIFY(d.isVisible());
            press(d, QDialogButtonBox::Cancel);
        }));
        QStringList shown = c.help;
        for (const MessageRecord &m : c.dialogs.messages)
            shown << m.title + QLatin1String(": ") + m.text;
        QFETCH(QString, expected);
        QCOMPARE(shown, QStringList{expected});
        QVERIFY(!c.modified);
        QVERIFY(std::memcmp(&c.live(), &before, sizeof before) == 0);
    }

    // A refused OK stores the shown set and moves the form one set down (kept
    // as it always was; it shows only while the dialog stays open). From the
    // first set no set is current and the fields stay, also on a second OK.
    void formAfterRefusal_data()
    {
        QTest::addColumn<int>("okAt");  // the form number shown at OK
        QTest::addColumn<int>("presses");
        QTest::addColumn<int>("current");   // the set the form then edits, -1: none
        QTest::addColumn<QString>("name");  // the name field then
        QTest::newRow("second set") << 2 << 1 << 0 << "Set 0";
        QTest::newRow("first set, twice") << 1 << 2 << -1 << "Set 0";
    }
    void formAfterRefusal()
    {
        QFETCH(int, okAt);
        QFETCH(int, presses);
        OpenChart c;
        c.run(-1, [&](QDialog &d) {
            for (int n = 1; n <= 8; ++n) {  // nothing shown: refused
                setIndex(d, n);
                fill(d, fields({{"checkEnabled", false}}));
            }
            setIndex(d, okAt);
            for (int i = 0; i < presses; ++i)
                press(d, QDialogButtonBox::Ok);
            QCOMPARE(child<QSpinBox>(d, QStringLiteral("spinIndex"))->value(), okAt);
            QTEST(qobject_cast<SettingsDialogClass *>(&d)->m_currentIndex(), "current");
            QTEST(child<QLineEdit>(d, QStringLiteral("editName"))->text(), "name");
        });
        QCOMPARE(c.dialogs.messages.size(), presses);
    }

    // What a set's fields store once OK is pressed: the chart takes the
    // record and the row box follows.
    void seriesFields_data()
    {
        QTest::addColumn<bool>("fromRow");  // the set's own dialog, else the chart settings
        QTest::addColumn<int>("set");
        QTest::addColumn<quint32>("flags");  // the set's line flags and decimals before
        QTest::addColumn<int>("decimals");
        QTest::addColumn<QVariantMap>("edits");
        QTest::addColumn<quint32>("pick");  // a colour picked through the chooser, 0: none
        QTest::addColumn<double>("min");    // what the chart's record then holds
        QTest::addColumn<double>("max");
        QTest::addColumn<quint32>("storedFlags");
        QTest::addColumn<int>("storedDecimals");
        QTest::addColumn<quint32>("color");
        QTest::addColumn<QString>("name");
        // clang-format off
        QTest::newRow("a sixth axis passes") << false << 6 << 1u << 0 << fields({{"checkAxis", true}}) << 0u << -0.5 << 0.5 << 3u << 0 << 0xff0000ccu << "Set 6";
        QTest::newRow("limits closer than 1.0 widen") << false << 0 << 3u << 1 << fields({{"spinMin", 10.0}, {"spinMax", 10.5}}) << 0u << 9.5 << 11.0 << 3u << 1 << 0xff0088ccu << "Set 0";
        QTest::newRow("a maximum below the minimum is raised first") << false << 2 << 3u << 0 << fields({{"spinMin", 20.0}, {"spinMax", 5.0}}) << 0u << 19.5 << 20.5 << 3u << 0 << 0xff00aa00u << "Set 2";
        QTest::newRow("name, decimals, an opaque colour") << false << 1 << 2u << 0 << fields({{"checkEnabled", true}, {"editName", QStringLiteral("Aussen")}, {"spinDecimals", 3}}) << 0x80ff0000u << -0.5 << 0.5 << 3u << 3 << 0xffff0000u << "Aussen";
        QTest::newRow("the flag word is replaced whole") << false << 3 << 15u << 0 << fields({{"checkAxis", false}}) << 0u << -0.5 << 0.5 << 5u << 0 << 0xff4444ccu << "Set 3";
        QTest::newRow("row: a hidden set shown ticks its box") << true << 1 << 2u << 0 << fields({{"checkEnabled", true}, {"checkAxis", true}}) << 0u << -0.5 << 0.5 << 3u << 0 << 0xffcc8800u << "Set 1";
        // clang-format on
    }
    void seriesFields()
    {
        QFETCH(bool, fromRow);
        QFETCH(int, set);
        QFETCH(quint32, flags);
        QFETCH(int, decimals);
        QFETCH(QVariantMap, edits);
        OpenChart c([&](settingsT &s) {
            s.lineFlags[set] = flags;
            s.decimals[set] = quint8(decimals);
        });
        QFETCH(quint32, pick);
        c.pick = pick;
        QVERIFY(c.run(fromRow ? set : -1, [&](QDialog &d) {
            if (!fromRow)
                setIndex(d, set + 1);
            fill(d, edits);
            if (pick)
                d.findChild<ColorButtonClass *>()->click();
            press(d, QDialogButtonBox::Ok);
        }));
        QVERIFY(c.modified);
        const settingsT &s = c.live();
        QTEST(s.axisMin[set], "min");
        QTEST(s.axisMax[set], "max");
        QTEST(s.lineFlags[set], "storedFlags");
        QTEST(int(s.decimals[set]), "storedDecimals");
        QTEST(s.color[set], "color");
        QTEST(g_buffer2QString(s.name[set], kNameWidth), "name");
        auto *box = child<ElidedCheckBox>(c.panel, QStringLiteral("enableBox%1").arg(set));
        QTEST(box->fullText(), "name");
        QCOMPARE(box->isChecked(), bool(s.lineFlags[set] & kLineShown));
    }

    // The limit boxes take new decimals only once the set has been stored and
    // shown again.
    void limitDecimalsFollowOnceStored()
    {
        OpenChart c;
        QVERIFY(c.run(-1, [&](QDialog &d) {
            setIndex(d, 2);
            fill(d, fields({{"spinDecimals", 3}}));
            auto *min = child<QDoubleSpinBox>(d, QStringLiteral("spinMin"));
            QCOMPARE(min->decimals(), 0);
            setIndex(d, 1);
            setIndex(d, 2);
            QCOMPARE(min->decimals(), 3);
            press(d, QDialogButtonBox::Cancel);
        }));
    }

    // The begin date of the recorded range, with a zoom window of minutes
    // 5-10 on the open chart; times in minutes from the first sample.
    void range_data()
    {
        QTest::addColumn<int>("endBefore");  // the open chart's range end (loading gives 19)
        QTest::addColumn<int>("beginDays");  // the begin date moved by days
        QTest::addColumn<int>("begin");
        QTest::addColumn<int>("end");
        QTest::addColumn<int>("viewBegin");
        QTest::addColumn<int>("viewEnd");
        QTest::addColumn<int>("samples");  // in the range
        QTest::newRow("begin after end: the whole recording, zoom reset") << 19 << 1 << 0 << 19 << 0 << 19 << 20;
        QTest::newRow("begin before the recording: raised, zoom reset") << 19 << -1 << 0 << 19 << 0 << 19 << 20;
        QTest::newRow("range left alone: the zoom stays, samples recounted") << 12 << 0 << 0 << 12 << 5 << 10 << 13;
    }
    void range()
    {
        QFETCH(int, endBefore);
        QFETCH(int, beginDays);
        OpenChart c;
        settingsT &live = c.live();
        live.viewBegin = kStart + 5 * kMinute, live.viewEnd = kStart + 10 * kMinute;
        live.rangeEnd = kStart + endBefore * kMinute;
        const QDate day = QDateTime::fromMSecsSinceEpoch(kStart).date().addDays(beginDays);
        QVERIFY(c.run(-1, [&](QDialog &d) {
            fill(d, fields({{"dateBegin", day}}));
            press(d, QDialogButtonBox::Ok);
        }));
        QTEST(int((live.rangeBegin - kStart) / kMinute), "begin");
        QTEST(int((live.rangeEnd - kStart) / kMinute), "end");
        QTEST(int((live.viewBegin - kStart) / kMinute), "viewBegin");
        QTEST(int((live.viewEnd - kStart) / kMinute), "viewEnd");
        QTEST(int(live.rangeSampleCount), "samples");
    }

    // A stored legend position of 7 shows as None and goes back as 0.
    void legendBeyondNone()
    {
        OpenChart c([](settingsT &s) { s.legendPosition = 7; });
        QVERIFY(c.run(-1, [](QDialog &d) { press(d, QDialogButtonBox::Ok); }));
        const settingsT &s = c.live();
        QCOMPARE(s.legendPosition, quint8(0));
        QCOMPARE(s.lineType, quint8(1));
        QCOMPARE(s.flags, kFlagShowTitle);
    }

    // The swatch: its centre shows the colour opaque, unlike the pixel 3 in
    // from the corner; too small a button shows its face only. The colour
    // comes back as it was set.
    void colorButton_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<quint32>("color");
        QTest::addColumn<bool>("swatch");
        QTest::newRow("alpha 0 painted opaque") << QSize(40, 20) << 0x00ff0000u << true;
        QTest::newRow("too small for a swatch") << QSize(8, 8) << 0xff0000ffu << false;
    }
    void colorButton()
    {
        QFETCH(QSize, size);
        QFETCH(quint32, color);
        ColorButtonClass button;
        button.resize(size);
        button.m_setColor(color);
        const QImage image = button.grab().toImage();
        const QRgb centre = image.pixel(image.width() / 2, image.height() / 2), edge = image.pixel(3, 3);
        QTEST(centre == (color | 0xFF000000u) && centre != edge, "swatch");
        QCOMPARE(button.m_getColor(), color);
    }

    // A press and a move with these mouse buttons held.
    void drawSurface_data()
    {
        QTest::addColumn<int>("held");
        QTest::addColumn<bool>("pressed");
        QTest::addColumn<bool>("moved");
        QTest::newRow("left press while right held") << int(Qt::LeftButton | Qt::RightButton) << true << false;
        QTest::newRow("left only") << int(Qt::LeftButton) << true << true;
        QTest::newRow("right only") << int(Qt::RightButton) << false << false;
    }
    void drawSurface()
    {
        QFETCH(int, held);
        DrawColorClass surface;
        bool pressed = false, moved = false;
        connect(&surface, &DrawColorClass::mousePressed, [&] { pressed = true; });
        connect(&surface, &DrawColorClass::mouseMoved, [&] { moved = true; });
        const auto buttons = Qt::MouseButtons(held);
        const Qt::MouseButton cause = buttons & Qt::LeftButton ? Qt::LeftButton : Qt::RightButton;
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), cause, buttons, Qt::NoModifier);
        QMouseEvent move(QEvent::MouseMove, QPointF(6, 6), Qt::NoButton, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&surface, &press);
        QCoreApplication::sendEvent(&surface, &move);
        QTEST(pressed, "pressed");
        QTEST(moved, "moved");
    }
};

QTEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"

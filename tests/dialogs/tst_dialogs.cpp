// The chart settings and single-series dialogs, run from the chart widget
// and worked through their widgets; what a saved project then holds. The
// colour button's swatch and the drawing surface's mouse signals.
#include "app/scripteddialogs.h"
#include "app/shellfixture.h"
#include "core/model/fixedstring.h"
#include "core/project/projectfile.h"
#include "document/qvchartclass.h"
#include "gui/dialogs/colorwidgets.h"
#include "gui/dialogs/settingsdialogclass.h"

#include <QColorDialog>
#include <QDateEdit>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QRadioButton>
#include <QToolButton>
#include <QtTest>

using namespace qv;

namespace {

const qint64 kStart = 1700000000000, kMinute = 60000;

template <class W> W *child(QObject &parent, const QString &name)
{
    W *w = parent.findChild<W *>(name);
    return w ? w : (qFatal("no widget %s", qPrintable(name)), w);
}

QString minutes(qint64 a, qint64 b)
{
    return QStringLiteral("%1-%2").arg((a - kStart) / kMinute).arg((b - kStart) / kMinute);
}

// Opens the chart settings ("chart") or the settings of row k ("row k") on
// eight data sets of 20 samples (set 1 hidden; sets 0..5 with an axis, 6
// and 7 without) and works the dialog with the script's words:
//   iN data index, eN/aN enabled/axis box, min:/max:/dec:/name: fields,
//   begin:/end: dates in days from the first sample's, color:AARRGGBB through the chooser,
//   ok/cancel/help buttons, ?form what the form shows, ?open whether open.
// First words change the record before: Ln legend position, Fk=v line
// flags, Dk=v decimals; on the opened chart, Z a zoom window of minutes
// 5-10, R a range of minutes 0-12 whose samples were not counted yet. Then come the messages,
// whether the dialog stayed open, and, from the saved project read back,
// the words after "=>": setN (limits, flags, decimals, colour, name, row
// box), legend, and from the chart itself (loading resets the zoom) range
// (range, view, samples in range).
QString run(const QString &script)
{
    QStringList words = script.split(QLatin1Char(' '));
    const QString what = words.takeFirst();
    const QStringList checks = script.section(QLatin1String("=> "), 1).split(QLatin1Char(' '));
    words = words.mid(0, words.indexOf(QStringLiteral("=>")));
    auto model = qvtest::makeModel(8, false);
    settingsT &r = model->settings;
    const bool zoom = words.contains(QStringLiteral("Z")), range = words.contains(QStringLiteral("R"));
    while (!words.isEmpty() && QStringLiteral("LFDZR").contains(words.first().at(0))) {
        const QString w = words.takeFirst();
        const int k = w.mid(1).section(QLatin1Char('='), 0, 0).toInt(), v = w.section(QLatin1Char('='), 1).toInt();
        if (w.startsWith(QLatin1Char('L')))
            r.legendPosition = quint8(k);
        else if (w.startsWith(QLatin1Char('F')))
            r.lineFlags[k] = quint32(v);
        else if (w.startsWith(QLatin1Char('D')))
            r.decimals[k] = quint8(v);
    }
    QTemporaryDir dir;
    QString path = dir.filePath(QStringLiteral("p.qvj")), projectDir, importDir;
    QWidget panel;
    QVChartClass chart(nullptr, &projectDir, &importDir, new QGridLayout(&panel));
    chart.resize(1200, 800);
    if (!g_saveProjectFile(*model, path, SaveOptions()).ok || !chart.m_openProject(&path))
        return QStringLiteral("cannot open");
    settingsT &live = chart.model().settings;
    if (zoom)  // Z and R go to the open chart: loading resets them
        live.viewBegin = kStart + 5 * kMinute, live.viewEnd = kStart + 10 * kMinute;
    if (range)
        live.rangeEnd = kStart + 12 * kMinute;

    qvtest::ScriptedDialogs dialogs;
    QString seen;
    QObject::connect(&chart, &QVChartClass::m_showHelp,
                     [&](QWidget *, QString *page) { seen += *page + QLatin1Char(' '); });
    QObject::connect(&chart, &QVChartClass::m_projectChanged, [&] { seen += QLatin1String(" modified"); });
    QString colour;
    dialogs.onExec = [&](QDialog &d) {
        if (auto *chooser = qobject_cast<QColorDialog *>(&d)) {
            seen += chooser->windowTitle() + QLatin1Char(' ');
            chooser->setCurrentColor(QColor::fromRgba(colour.toUInt(nullptr, 16)));
            chooser->accept();
            return d.result();
        }
        d.show();
        auto *buttons = child<QDialogButtonBox>(d, QStringLiteral("buttonBox"));
        auto *colorButton = d.findChild<ColorButtonClass *>();
        for (const QString &w : words) {
            const QString arg = w.section(QLatin1Char(':'), 1);
            if (w.startsWith(QLatin1Char('i')))
                child<QSpinBox>(d, QStringLiteral("spinIndex"))->setValue(w.mid(1).toInt());
            else if (w.startsWith(QLatin1Char('e')) || w.startsWith(QLatin1Char('a')))
                child<QCheckBox>(d, QLatin1String(w.startsWith(QLatin1Char('e')) ? "checkEnabled" : "checkAxis"))
                    ->setChecked(w.endsWith(QLatin1Char('1')));
            else if (w.startsWith(QLatin1String("min:")))
                child<QDoubleSpinBox>(d, QStringLiteral("spinMin"))->setValue(arg.toDouble());
            else if (w.startsWith(QLatin1String("max:")))
                child<QDoubleSpinBox>(d, QStringLiteral("spinMax"))->setValue(arg.toDouble());
            else if (w.startsWith(QLatin1String("dec:")))
                child<QSpinBox>(d, QStringLiteral("spinDecimals"))->setValue(arg.toInt());
            else if (w.startsWith(QLatin1String("name:")))
                child<QLineEdit>(d, QStringLiteral("editName"))->setText(arg);
            else if (w.startsWith(QLatin1String("begin:")) || w.startsWith(QLatin1String("end:")))
                child<QDateEdit>(d, w.startsWith(QLatin1Char('b')) ? QStringLiteral("dateBegin")
                                                                   : QStringLiteral("dateEnd"))
                    ->setDate(QDateTime::fromMSecsSinceEpoch(kStart).date().addDays(arg.toInt()));
            else if (w.startsWith(QLatin1String("color:")))
                colour = arg, colorButton->click();
            else if (w == QLatin1String("?open"))
                seen += QLatin1String(d.isVisible() ? "open " : "closed ");
            else if (w == QLatin1String("?form"))
                seen += QStringLiteral("form %1/%2 %3 %4 ")
                            .arg(child<QSpinBox>(d, QStringLiteral("spinIndex"))->value())
                            .arg(qobject_cast<SettingsDialogClass *>(&d)->m_currentIndex())
                            .arg(child<QLineEdit>(d, QStringLiteral("editName"))->text())
                            .arg(child<QDoubleSpinBox>(d, QStringLiteral("spinMin"))->decimals());
            else
                buttons
                    ->button(w == QLatin1String("ok")       ? QDialogButtonBox::Ok
                             : w == QLatin1String("cancel") ? QDialogButtonBox::Cancel
                                                            : QDialogButtonBox::Help)
                    ->click();
        }
        seen += QLatin1String(d.isVisible() ? "open" : "closed");
        return d.result();
    };
    if (what == QLatin1String("chart"))
        chart.s_formatChart();
    else
        child<QToolButton>(panel, QStringLiteral("setupButton") + what.mid(3))->click();
    qvtest::flushDeletions();
    for (const MessageRecord &m : dialogs.messages)
        seen += QStringLiteral("; %1: %2").arg(m.title, m.text);

    // What a saved project holds now.
    ChartModel back;
    if (!g_saveProjectFile(chart.model(), path, SaveOptions()).ok || !g_loadProjectFile(back, path, nullptr).ok)
        return seen + QLatin1String(" cannot save");
    const settingsT &s = back.settings;
    for (const QString &c : checks) {
        if (c.startsWith(QLatin1String("set"))) {
            const int i = c.mid(3).toInt();
            auto *box = child<ElidedCheckBox>(panel, QStringLiteral("enableBox%1").arg(i));
            seen +=
                QString::asprintf(" | %d %g %g f%u d%d %08x %s box %s%c", i, s.axisMin[i], s.axisMax[i], s.lineFlags[i],
                                  s.decimals[i], s.color[i], qPrintable(g_buffer2QString(s.name[i], kNameWidth)),
                                  qPrintable(box->fullText()), box->isChecked() ? '+' : '-');
        } else if (c == QLatin1String("range")) {
            seen += QStringLiteral(" | range %1 view %2 (%3)")
                        .arg(minutes(live.rangeBegin, live.rangeEnd), minutes(live.viewBegin, live.viewEnd))
                        .arg(live.rangeSampleCount);
        } else if (c == QLatin1String("legend")) {
            seen += QStringLiteral(" | legend %1 type %2 flags %3").arg(s.legendPosition).arg(s.lineType).arg(s.flags);
        }
    }
    return seen;
}

}  // namespace

class TestDialogs : public QObject
{
    Q_OBJECT

    QTemporaryDir scratch;

private slots:
    void initTestCase() { qvtest::prepareShell(scratch); }
    void settings_data();
    void settings();
    void colorWidgets_data();
    void colorWidgets();
};

void TestDialogs::settings_data()
{
    QTest::addColumn<QString>("script");
    QTest::addColumn<QString>("expected");
    const QString noData = QStringLiteral("; Error: At least 1 set of data must be displayed !");
    const QString noAxis = QStringLiteral("; Error: At least 1 axis must be displayed !");
    const QString tooMany = QStringLiteral("; Error: It's not possible displaying more than 6 axis !");
    // clang-format off
    QTest::newRow("nothing shown: refused, stays open; Cancel keeps the project")
        << "chart e0 i3 e0 i4 e0 i5 e0 i6 e0 i7 e0 i8 e0 ok ?form ?open cancel => set0"
        << QLatin1String("form 8/6 Set 6 0 open closed") + noData + QLatin1String(" | 0 0 0 f3 d0 ff0088cc Set 0 box Set 0+");
    QTest::newRow("disabled sets with an axis are no axes")
        << "chart a0 i3 a0 i4 a0 i5 a0 i6 a0 ok" << QLatin1String("open") + noAxis;
    QTest::newRow("six axes pass") << "chart i7 a1 ok => set6" << "closed modified | 6 -0.5 0.5 f3 d0 ff0000cc Set 6 box Set 6+";
    QTest::newRow("seven axes are refused") << "chart i7 a1 i8 a1 ok ?form" << QLatin1String("form 8/6 Set 6 0 open") + tooMany;
    QTest::newRow("limits closer than 1.0 widen; the record comes back from the file")
        << "chart D0=1 min:10 max:10.5 i3 min:20 max:5 ok => set0 set2"
        << "closed modified | 0 9.5 11 f3 d1 ff0088cc Set 0 box Set 0+ | 2 19.5 20.5 f3 d0 ff00aa00 Set 2 box Set 2+";
    QTest::newRow("name, decimals, colour; the row box follows")
        << "chart i2 e1 name:Aussen dec:3 ?form i1 i2 ?form color:80ff0000 ok => set1"
        << "form 2/1 Aussen 0 form 2/1 Aussen 3 Select Color closed modified | 1 -0.5 0.5 f3 d3 ffff0000 Aussen box Aussen+";
    QTest::newRow("the flag word is replaced whole")
        << "chart F3=15 i4 a0 ok => set3" << "closed modified | 3 -0.5 0.5 f5 d0 ff4444cc Set 3 box Set 3+";
    QTest::newRow("after a refusal on the second set the form shows the first")
        << "chart e0 i3 e0 i4 e0 i5 e0 i6 e0 i7 e0 i8 e0 i2 ok ?form" << QLatin1String("form 2/0 Set 0 0 open") + noData;
    QTest::newRow("after a refusal on the first set no set is current, fields kept")
        << "chart a0 i3 a0 i4 a0 i5 a0 i6 a0 i1 ok ?form ok ?form"
        << QLatin1String("form 1/-1 Set 0 0 form 1/-1 Set 0 0 open") + noAxis + noAxis;
    QTest::newRow("begin after end: the whole recording, zoom reset")
        << "chart Z begin:1 ok => range" << "closed modified | range 0-19 view 0-19 (20)";
    QTest::newRow("begin before the recording: raised, zoom reset")
        << "chart Z begin:-1 ok => range" << "closed modified | range 0-19 view 0-19 (20)";
    QTest::newRow("range left alone: the zoom stays, samples recounted")
        << "chart Z R ok => range" << "closed modified | range 0-12 view 5-10 (13)";
    QTest::newRow("legend 7 shows None and goes back as 0") << "chart L7 ok => legend" << "closed modified | legend 0 type 1 flags 1";
    QTest::newRow("help, then Cancel: nothing copied back")
        << "chart name:X min:50 help cancel => set0" << "settings.html closed | 0 0 0 f3 d0 ff0088cc Set 0 box Set 0+";
    QTest::newRow("row: limits 3/3 widen")
        << "row2 min:3 max:3 name:Innen ok => set2" << "closed modified | 2 2.5 3.5 f3 d0 ff00aa00 Innen box Innen+";
    QTest::newRow("row: a seventh axis is refused") << "row7 F6=3 a1 ok" << QLatin1String("open") + tooMany;
    QTest::newRow("row: the only shown set unticked is refused, Cancel discards")
        << "row0 F2=0 F3=0 F4=0 F5=0 F6=0 F7=0 e0 ok ?open cancel => set0"
        << QLatin1String("open closed") + noData + QLatin1String(" | 0 0 0 f3 d0 ff0088cc Set 0 box Set 0+");
    QTest::newRow("row: a hidden set shown through its dialog ticks its box")
        << "row1 e1 a1 help ok => set1" << "settings.html closed modified | 1 -0.5 0.5 f3 d0 ffcc8800 Set 1 box Set 1+";
    // clang-format on
}

void TestDialogs::settings()
{
    QFETCH(QString, script);
    QFETCH(QString, expected);
    QCOMPARE(run(script), expected);
}

// "button WxH colour": the swatch's centre and the pixel 3 in from the
// corner, and what the button returns. "draw buttons": which signals a
// press and a move with those buttons held give.
void TestDialogs::colorWidgets_data()
{
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("expected");
    // clang-format off
    QTest::newRow("alpha 0 painted opaque") << "button 40 20 00ff0000" << "swatch 00ff0000";
    QTest::newRow("too small for a swatch") << "button 8 8 ff0000ff" << "face ff0000ff";
    QTest::newRow("left press while right held") << "draw 3" << "pressed";
    QTest::newRow("left only") << "draw 1" << "pressed moved";
    QTest::newRow("right only") << "draw 2" << "";
    // clang-format on
}

void TestDialogs::colorWidgets()
{
    QFETCH(QString, input);
    const QStringList a = input.split(QLatin1Char(' '));
    QStringList got;
    if (a[0] == QLatin1String("button")) {
        ColorButtonClass button;
        button.resize(a[1].toInt(), a[2].toInt());
        button.m_setColor(a[3].toUInt(nullptr, 16));
        const QImage image = button.grab().toImage();
        const QRgb centre = image.pixel(image.width() / 2, image.height() / 2), edge = image.pixel(3, 3);
        got << (centre == (button.m_getColor() | 0xFF000000u) && centre != edge ? QStringLiteral("swatch")
                                                                                : QStringLiteral("face"))
            << QStringLiteral("%1").arg(button.m_getColor(), 8, 16, QLatin1Char('0'));
    } else {
        DrawColorClass surface;
        connect(&surface, &DrawColorClass::mousePressed, [&] { got << QStringLiteral("pressed"); });
        connect(&surface, &DrawColorClass::mouseMoved, [&] { got << QStringLiteral("moved"); });
        const auto held = Qt::MouseButtons(a[1].toInt());
        const Qt::MouseButton cause = held & Qt::LeftButton ? Qt::LeftButton : Qt::RightButton;
        QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), cause, held, Qt::NoModifier);
        QMouseEvent move(QEvent::MouseMove, QPointF(6, 6), Qt::NoButton, held, Qt::NoModifier);
        QCoreApplication::sendEvent(&surface, &press);
        QCoreApplication::sendEvent(&surface, &move);
    }
    QFETCH(QString, expected);
    QCOMPARE(got.join(QLatin1Char(' ')), expected);
}

QTEST_MAIN(TestDialogs)
#include "tst_dialogs.moc"

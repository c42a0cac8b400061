// The importers of controller CSV files, binary logs and vaporix-VIS files,
// and the readers they share. Each row imports one crafted input and compares
// one summary line of what the model holds afterwards.
#include "csvtesthelpers.h"
#include "support/testsupport.h"

#include "core/import/controllercsv.h"
#include "core/import/controllerstate.h"
#include "core/import/controllersteps.h"
#include "core/import/csvnumber.h"
#include "core/import/localtime.h"
#include "core/model/fixedstring.h"
#include "logwriter.h"

#include <QDateTime>
#include <QtTest>

#include <numeric>

#include <sys/stat.h>

using namespace qv;
using namespace qvtest;

namespace {

// The committed vaporix-VIS file with line `n` (1-based) replaced, or with
// n = 0 its lines 1 to 7 (the header) only.
QByteArray visWith(int n, const QByteArray &line = QByteArray())
{
    QByteArrayList lines = dataFile("viscsv/four-states.csv").split('\n');
    if (n == 0)
        return lines.mid(0, 7).join('\n') + '\n';
    lines[n - 1] = line;
    return lines.join('\n');
}

// Two data sets of signed raw words: word 0 of row r is r, word 1 is 1000 + r,
// so the stored values name the rows that were read.
qvlog::LogLayout ringLog(qint32 capacity, quint32 rows)
{
    qvlog::LogLayout s;
    s.title = "Halle 3";
    s.count = 2;
    s.capacity = capacity;
    s.timeCorrection = 3600;
    s.startTime = 1600000000;
    s.rows = rows;
    s.sets[0] = {"Zeile", 7, 0, 0, 0, 0};
    s.sets[1] = {"Zeile plus 1000", 7, 0, 0, 0, 0};
    for (qint32 r = 0; r <= capacity; ++r)
        s.words << quint32(r) << quint32(1000 + r);
    return s;
}

}  // namespace

class TestImport : public QObject
{
    Q_OBJECT

private slots:
    // The hand-made local time reader against QDateTime on the days the clock
    // changes, every second of the night, including wall-clock texts that do
    // not exist or exist twice (CTest runs this with TZ=Europe/Berlin).
    void localTimes_data()
    {
        // clang-format off
        QTest::addColumn<QDate>("day");
        QTest::newRow("spring 2021") << QDate(2021, 3, 28);
        QTest::newRow("autumn 2021") << QDate(2021, 10, 31);
        QTest::newRow("autumn 1996 (first last-Sunday-of-October)") << QDate(1996, 10, 27);
        QTest::newRow("leap day 2020") << QDate(2020, 2, 29);
        // clang-format on
    }

    void localTimes()
    {
        QFETCH(QDate, day);
        const QString withSeconds = QStringLiteral("dd.MM.yyyy hh:mm:ss");
        for (auto format : {LocalTimeReader::WithSeconds, LocalTimeReader::WithoutSeconds}) {
            LocalTimeReader reader(format);
            const QString pattern = format == LocalTimeReader::WithSeconds ? withSeconds : withSeconds.left(16);
            for (int s = -7200; s < 6 * 3600; s += format == LocalTimeReader::WithSeconds ? 1 : 60) {
                // that moment's text, and the same wall-clock text reached from the hour before (the cache)
                const QString local = day.toString(QStringLiteral("dd.MM.yyyy ")) +
                                      QTime(0, 0).addSecs(qMax(s, 0)).toString(pattern.mid(11));
                for (const QString &text : {QDateTime(day, QTime(0, 0)).addSecs(s).toString(pattern), local}) {
                    const qint64 qt = QDateTime::fromString(text, pattern).toMSecsSinceEpoch();
                    const qint64 got = reader.read(text.toLatin1().constData(), text.size());
                    if (got != qt)
                        QFAIL(qPrintable(text + QStringLiteral(" read as %1, QDateTime %2").arg(got).arg(qt)));
                }
            }
        }
        // Odd texts, and one time in every month from the ends of the fast range on
        // (30.02.2020: a leap year's February still ends on the 29th).
        QByteArrayList odd{"31.02.2021 10:00:00", "29.02.2100 10:00:00", "01.13.2021 10:00:00",  "01.01.2021 24:00:00",
                           "01.01.2021 23:59:60", "1.01.2021 10:00:00",  "01.01.2021 10:00:00 ", "01.01.+021 10:00:00",
                           "01.01.2021 -1:00:00", "01.01.0000 10:00:00", "01.01.9999 23:59:59",  "",
                           "30.02.2020 10:00:00"};
        for (QDate d(1969, 12, 30); d.year() < 2039; d = d.addDays(13))
            odd << d.toString(QStringLiteral("dd.MM.yyyy 23:59:59")).toLatin1();
        for (const QByteArray &t : odd) {
            LocalTimeReader reader(LocalTimeReader::WithSeconds);
            QCOMPARE(reader.read(t.constData(), t.size()),
                     QDateTime::fromString(QString::fromLatin1(t), withSeconds).toMSecsSinceEpoch());
        }
    }

    // The number reader against QByteArray::toDouble bit for bit, and the
    // integer readers against toUInt and toInt.
    void numbers()
    {
        // clang-format off
        const QByteArrayList texts{"-0", "0.1", "2.675", "1.5E-3", "9007199254740993", "12345678901234567890",
            "0.1234567890123456789", "2.2250738585072014e-308", "1e-400", "1e400", ".5", "-.5", "5.", ".", "-", "+1.5",
            "1..5", "1,5", " 1.5", "1.5 ", "1.5\r", "1 5", "", "inf", "nan", "0x10", "1e", "1e+", "00012.50",
            "3131961357", "\xb2", "12\xa0", "4294967296", "-2147483649", "2147483648", "007", QByteArray("1\0" "5", 3)};
        // clang-format on
        for (const QByteArray &text : texts) {
            bool ok = false, qtOk = false;
            const double fast = g_toDouble(ByteView{text.constData(), text.size()}, &ok);
            QCOMPARE(ok, (text.toDouble(&qtOk), qtOk));
            QV_COMPARE_DOUBLE(fast, text.toDouble());
            QCOMPARE(g_toUInt(ByteView{text.constData(), text.size()}), text.toUInt());
            QCOMPARE(g_toInt(ByteView{text.constData(), text.size()}), text.toInt());
        }
    }

    // Controller CSV files: title and header rules, separators, the 0x07 cut,
    // values, the end of the data, the time range, axis ranges, failures.
    void csv_data()
    {
        // clang-format off
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("parts");
        QTest::addColumn<QByteArray>("expected");
        auto f = [](const char *name) { return dataFile(QByteArray("controllercsv/").append(name).constData()); };
        const QByteArray row = "01.01.2021 00:00:00;1;2\n";

        QTest::newRow("ordinary") << f("trailing-separator-and-missing-value.csv") << QByteArray("rtsavgmq") << QByteArray("ok 'Keller Nord' sets[Temp:2:8:3EC,Feuchte:0:8:3EC] axes[11..13,79..82] v[12.5 12.25 11.75|81 - 79.5] 01.12.2020 10:00:00..01.12.2020 10:20:00 iv=600 n=3 modes=0 flags=1 [] q0w0");
        // One value quirk per column: value and decimals; the blank-stripping
        // second attempt and the missing-value marker.
        QTest::newRow("values") << QByteArray("K\nZeit;a;b;c;d;e;f;g;h;i;j;k;l;m;n;o;p\n01.01.2021 00:00:00;-0;0.1;1 234.5; 2.5;12\xa0;1\t2;"
                                              "abc;;   ;1,5;1.5e3;1e400;3131961357;7.;1.2.3;1\0" "2.5\n", 138)
                                << QByteArray("rsv")
                                << QByteArray("ok sets[a:0:8:3EC,b:1:8:3EC,c:1:8:3EC,d:1:8:7EC,e:0:8:7EC,f:0:8:7EC,g:0:8:1EC,h:0:8:1EC,i:0:8:1EC,j:0:8:1EC,"
                                              "k:3:8:1EC,l:0:8:1EC,m:0:8:1EC,n:0:8:1EC,o:3:8:1EC,p:1:8:1EC] v[-0|0.1|1234.5|2.5|12|-|-|-|0|-|1500|-|-|7|-|12.5]");
        QTest::newRow("0x07 cuts two bytes from every line") << f("title-with-bell-cuts-two-bytes.csv") << QByteArray("rtsv") << QByteArray("ok 'Ti\\x7tl' sets[A:1:8:3EC] v[1.5]");
        QTest::newRow("CR LF keeps the CR") << f("cr-lf-keeps-cr.csv") << QByteArray("rtsvq") << QByteArray("ok 'SENSORWERTE\\xd' sets[A:1:8:3EC,B\\xd:3:8:3EC] v[1.5 2|2.25 -] q0w0");
        QTest::newRow("zero byte separator") << f("zero-byte-separator.csv") << QByteArray("rsv") << QByteArray("ok sets[A:1:8:3EC,B:0:8:3EC] v[1.5|7]");
        QTest::newRow("semicolon wins over comma") << f("semicolon-wins-over-comma.csv") << QByteArray("rsv") << QByteArray("ok sets[A,1:0:8:3EC,B:2:8:3EC] v[-|2.25]");
        QTest::newRow("comma separator") << f("comma-separator.csv") << QByteArray("rsv") << QByteArray("ok sets[A:1:8:3EC,B:2:8:3EC] v[1.5|2.25]");
        QTest::newRow("a row with a field more ends the data") << f("row-with-extra-field-ends-data.csv") << QByteArray("rvx") << QByteArray("ok v[1 2|10 20] x[01.01.2021 00:00:00 +60]");
        QTest::newRow("last line loses its last byte") << f("last-line-without-line-end.csv") << QByteArray("rv") << QByteArray("ok v[1 2|10 20.2]");
        QTest::newRow("unreadable times as QDateTime makes them") << f("unreadable-times.csv") << QByteArray("rvx") << QByteArray("ok v[1 2 3|10 20 30] x[01.01.1970 00:00:00 +0 +1609459200]");
        QTest::newRow("range counts times between first and last") << f("times-out-of-order.csv") << QByteArray("rg") << QByteArray("ok 01.06.2021 12:00:00..01.06.2021 12:30:00 iv=-1800 n=2");
        QTest::newRow("the middle pair decides the interval")
            << QByteArray("K\nZeit;A\n01.06.2021 12:00:00;1\n01.06.2021 12:01:00;1\n01.06.2021 12:11:00;1\n01.06.2021 12:41:00;1\n"
                          "01.06.2021 12:42:00;1\n") << QByteArray("g") << QByteArray("01.06.2021 12:00:00..01.06.2021 12:42:00 iv=1800 n=5");
        QTest::newRow("even count: n/2 and n/2 + 1")
            << QByteArray("K\nZeit;A\n01.06.2021 12:00:00;1\n01.06.2021 12:00:10;1\n01.06.2021 12:00:30;1\n01.06.2021 12:01:00;1\n")
            << QByteArray("g") << QByteArray("01.06.2021 12:00:00..01.06.2021 12:01:00 iv=30 n=4");
        QTest::newRow("one sample") << QByteArray("K\nZeit;A\n01.06.2021 12:00:00;20\n") << QByteArray("ga") << QByteArray("01.06.2021 12:00:00..01.06.2021 12:00:00 iv=-1622541600 n=1 axes[20..21]");
        QTest::newRow("axis 0 to 100, no valid value")
            << QByteArray("K\nZeit;A;B\n01.01.2021 00:00:00;0;x\n01.01.2021 00:00:00;100;3131961357\n01.01.2021 00:00:00;50;x\n")
            << QByteArray("a") << QByteArray("axes[-3..103,1.79769313486e+308..1.79769313486e+308]");
        QTest::newRow("only lines 1 and 2") << QByteArray("Keller\nZeit;T1;;T3\n") << QByteArray("rtsag") << QByteArray("ok 'Keller' sets[T1:0:8:3EC,:0:8:3EC,T3:0:8:3EC] axes[1.79769313486e+308..1.79769313486e+308,1.79769313486e+308..1.79769313486e+308,1.79769313486e+308..1.79769313486e+308] 0..0 iv=0 n=0");
        QTest::newRow("SENSORWERTE with 7 columns gives 6") << QByteArray("SENSORWERTE\nZeit;a;b;c;d;e;f;g\n") << QByteArray("rsq") << QByteArray("ok sets[a:0:8:3EC,b:0:8:3EC,c:0:8:3EC,d:0:8:7EC,e:0:8:7EC,f:0:8:7EC] q1w0");
        QTest::newRow("SENSORWERTE with 12 columns gives 12") << QByteArray("SENSORWERTE\nZeit;a;b;c;d;e;f;g;h;i;j;k;l\n") << QByteArray("rs") << QByteArray("ok sets[a:0:8:3EC,b:0:8:3EC,c:0:8:3EC,d:0:8:7EC,e:0:8:7EC,f:0:8:7EC,g:0:8:1EC,h:0:8:1EC,i:0:8:1EC,j:0:8:1EC,k:0:8:1EC,l:0:8:1EC]");
        QTest::newRow("other title with 7 columns gives 7") << QByteArray("SENSORWERT\nZeit;a;b;c;d;e;f;g\n") << QByteArray("rsq") << QByteArray("ok sets[a:0:8:3EC,b:0:8:3EC,c:0:8:3EC,d:0:8:7EC,e:0:8:7EC,f:0:8:7EC,g:0:8:1EC] q0w0");
        QTest::newRow("16 columns and trailing separators") << QByteArray("K\nZeit;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;16;;\n") << QByteArray("rs") << QByteArray("ok sets[1:0:8:3EC,2:0:8:3EC,3:0:8:3EC,4:0:8:7EC,5:0:8:7EC,6:0:8:7EC,7:0:8:1EC,8:0:8:1EC,9:0:8:1EC,10:0:8:1EC,11:0:8:1EC,12:0:8:1EC,13:0:8:1EC,14:0:8:1EC,15:0:8:1EC,16:0:8:1EC]");
        QTest::newRow("17 columns") << QByteArray("K\nZeit;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;16;17\n") << QByteArray("rtsv") << QByteArray("Error in CSV line 2 !/Too many columns. 'K' sets[] v[0 0 0 0 1.5]");
        QTest::newRow("time column only") << QByteArray("K\nZeit\n") << QByteArray("rts") << QByteArray("Error in CSV line 2 !/Too many columns. 'K' sets[]");
        QTest::newRow("empty file") << QByteArray() << QByteArray("rt") << QByteArray("Error in CSV line 2 !/Too many columns. ''");
        QTest::newRow("title of 32 bytes") << QByteArray(32, 'x') + "\nZeit;A\n" << QByteArray("rtv") << QByteArray("Error in CSV title line 1 ! 'vorher' v[0 0 0 0 1.5]");
        QTest::newRow("0x07 makes a 32-byte title fit") << QByteArray(31, 'x') + "\a\nZeit;A;B\n" << QByteArray("rts") << QByteArray("ok 'xxxxxxxxxxxxxxxxxxxxxxxxxxxxxxx' sets[A:0:8:3EC]");
        QTest::newRow("title and name up to a zero byte, name of 40 bytes")
            << QByteArray("AB\0CD\nZeit;T\xB0\0x;", 16) + QByteArray(40, 'n') + "\n" << QByteArray("rts") << QByteArray("ok 'AB' sets[T\\xb0:0:8:3EC,nnnnnnnnnnnnnnnnnnnnnnnnnnnnnnnn:0:8:3EC]");
        // Lines after line 1 may be 17 x 256 bytes long, '\n' included.
        QTest::newRow("line 1 of megabytes") << QByteArray(3 << 20, 'x') + "\nZeit;a;b\n" + row << QByteArray("rt") << QByteArray("Error in CSV title line 1 ! 'vorher'");
        QTest::newRow("line 2 at the bound") << "K\nZeit;a;b" + QByteArray(17 * 256 - 9, ';') + "\n" + row << QByteArray("rv") << QByteArray("ok v[1|2]");
        QTest::newRow("line 2 one byte over") << "K\nZeit;a;b" + QByteArray(17 * 256 - 8, ';') + "\n" + row << QByteArray("r") << QByteArray("Error in CSV line 2 !/Too many columns.");
        QTest::newRow("a row at the bound") << "K\nZeit;a;b\n" + row + "01.01.2021 00:01:00;" + QByteArray(17 * 256 - 24, ' ') + "7;2\n" + row
                                           << QByteArray("rv") << QByteArray("ok v[1 7 1|2 2 2]");
        QTest::newRow("a row one byte over ends the data") << "K\nZeit;a;b\n" + row + "01.01.2021 00:01:00;" + QByteArray(17 * 256 - 23, ' ') + "7;2\n" + row
                                                          << QByteArray("rv") << QByteArray("ok v[1|2]");
        QTest::newRow("a FIFO is refused") << QByteArray("fifo") << QByteArray("rt") << QByteArray("Error reading file!! 'vorher'");
        // clang-format on
    }

    void csv()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, parts);
        QFETCH(QByteArray, expected);
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.csv"));
        if (file == "fifo")
            QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        else
            QVERIFY(writeFile(path, file));
        // Over an earlier import: a failure keeps what came before it, a good import
        // clears every store. A SENSORWERTE file asks for its siblings; No: plain import.
        ImportRun run;
        run.host.answer = false;
        g_qString2Buffer(run.model->settings.description, QStringLiteral("vorher"), kDescriptionWidth);
        run.model->data(15)->count = 5;
        run.model->data(15)->value[4] = 1.5;
        run.result = g_importControllerCsv(path, *run.model, run.host);
        QCOMPARE(run.summary(parts.constData()), expected);
    }

    // A SENSORWERTE file with its state log, parameters and card parameters
    // (tests/data/controllercsv/sensor-set): which names take the siblings, each broken
    // sibling and what stays, the state log's start check and sections.
    void csvSiblings_data()
    {
        // clang-format off
        QTest::addColumn<QStringList>("names");       // main file first
        QTest::addColumn<QByteArrayList>("contents");  // null: committed file, "-": left out, "/": a folder
        QTest::addColumn<bool>("answer");
        QTest::addColumn<QByteArray>("parts");
        QTest::addColumn<QByteArray>("expected");
        auto names = [](const char *first, const char *rest) { return QStringList{QLatin1String(first)} << QString::fromLatin1(rest).arg(2) << QString::fromLatin1(rest).arg(3) << QString::fromLatin1(rest).arg(4); };
        const QStringList upper = names("S_TS01.CSV", "S_TS0%1.CSV");
        const QByteArrayList committed{QByteArray(), QByteArray(), QByteArray(), QByteArray()};
        auto with = [&committed](int i, const QByteArray &content) { QByteArrayList l = committed; l[i] = content; return l; };
        const QByteArray state = "STATUS LOG\nKopf\n";

        QTest::newRow("all there, Yes") << upper << committed << true << QByteArray("rtsavgmpq") << QByteArray("ok 'SENSORWERTE' sets[abs. Feuchte Aussen:1:8:3EC,Temp Aussen:1:8:7EC,rel. Feuchte Aussen:0:8:1EC,abs. Feuchte Innen:1:8:1EC,Temp Innen:1:8:1EC,rel. Feuchte Innen:0:8:1EC,abs. Feuchte Innen Zone I:1:8:0E,Temp Innen Zone I:1:8:0E,rel. Feuchte Innen Zone I:0:8:0E,abs. Feuchte Innen Zone II:1:8:0E,Temp Innen Zone II:1:8:0E,rel. Feuchte Innen Zone II:0:8:0E] axes[0..20,-15..35,0..100,0..20,-15..35,0..100,0..20,-15..35,0..100,0..20,-15..35,0..100] v[8.5 8.5 - 8.5 8.5|10.5 10.5 - 10.5 10.5|60 60 - 60 60|9 9 9 9 9|21 21 21 21 21|55 55 55 55 55|9.5 9.5 9.5 9.5 9.5|20 20 20 20 20|50 50 50 50 50|9.1 9.1 9.1 9.1 9.1|19.5 19.5 19.5 19.5 19.5|48 48 48 48 48] 01.03.2021 10:00:00..01.03.2021 10:04:00 iv=60 n=5 modes=1VC flags=3 [3 1 11 7 7 2] P[45 65 5 25 3 2.5 1.5 0.1 -0.2 0.3 -0.4;15 7 8 9;-7] q1w0");
        QTest::newRow("TS02 missing") << upper << with(1, "-") << true << QByteArray("rmq") << QByteArray("ok modes=0 flags=1 [] q0w0");
        QTest::newRow("TS04 missing") << upper << with(3, "-") << true << QByteArray("rmq") << QByteArray("ok modes=0 flags=1 [] q0w0");
        QTest::newRow("lower-case ts01 finds upper-case TS02")
            << names("s_ts01.csv", "s_TS0%1.csv") << committed << true << QByteArray("rmq") << QByteArray("ok modes=1VC flags=3 [3 1 11 7 7 2] q1w0");
        QTest::newRow("state heading wrong") << upper << with(1, "STATUS\n" + dataFile("controllercsv/sensor-set/S_TS02.CSV")) << true << QByteArray("rmq") << QByteArray("Error while loading additional vaporix files! modes=0 flags=1 [] q1w0");
        QTest::newRow("parameter heading wrong") << upper << with(2, "PARAMETERS\n") << true << QByteArray("rmq") << QByteArray("Error while loading additional vaporix files! modes=0 flags=1 [3 1 11 7 7 2] q1w0");
        QTest::newRow("card heading wrong") << upper << with(3, "PARAMETER\n") << true << QByteArray("rmq") << QByteArray("Error while loading additional vaporix files! modes=0 flags=1 [3 1 11 7 7 2] q1w0");
        QTest::newRow("TS03 is a folder") << upper << with(2, "/") << true << QByteArray("rmq") << QByteArray("Error reading file!! modes=0 flags=1 [] q0w0");
        // The first state entry may lie half a sample interval (60 s) from the first row.
        QTest::newRow("state 30 s late") << upper << with(1, state + "01.03.2021 10:00:30;0;1;200;0;0\n") << true << QByteArray("rm") << QByteArray("ok modes=1VC flags=3 [11]");
        QTest::newRow("state 31 s late") << upper << with(1, state + "01.03.2021 10:00:31;0;1;200;0;0\n") << true << QByteArray("rm") << QByteArray("Error while loading additional vaporix files! modes=0 flags=1 []");
        // A clock without summer time, Yes: the state log's start is read as standard time too.
        QTest::newRow("skipped hour, Yes") << upper << QByteArrayList{dataFile("controllercsv/sensor-set/S_TS01.CSV").replace("01.03.2021 10:0", "31.03.2024 02:0"), dataFile("controllercsv/sensor-set/S_TS02.CSV").replace("01.03.2021 10:0", "31.03.2024 02:0"), QByteArray(), QByteArray()} << true << QByteArray("rgmq") << QByteArray("ok 31.03.2024 03:00:00..31.03.2024 03:04:00 iv=60 n=5 modes=1VC flags=3 [3 1 11 7 7 2] q2w0");
        QTest::newRow("state 31 s early") << upper << with(1, state + "01.03.2021 09:59:29;0;1;200;0;0\n") << true << QByteArray("rm") << QByteArray("Error while loading additional vaporix files! modes=0 flags=1 []");
        // clang-format on
    }

    void csvSiblings()
    {
        QFETCH(QStringList, names);
        QFETCH(QByteArrayList, contents);
        QFETCH(bool, answer);
        QFETCH(QByteArray, parts);
        QFETCH(QByteArray, expected);
        QTemporaryDir folder;
        for (int i = 0; i < names.size(); ++i) {
            const QByteArray committed =
                dataFile(QByteArray("controllercsv/sensor-set/S_TS0" + QByteArray::number(i + 1) + ".CSV").constData());
            if (contents[i] == "/")
                QVERIFY(QDir().mkpath(folder.filePath(names[i])));
            else if (contents[i] != "-")
                QVERIFY(writeFile(folder.filePath(names[i]), contents[i].isNull() ? committed : contents[i]));
        }
        QCOMPARE(importFile(Kind::Csv, folder.filePath(names[0]), answer).summary(parts.constData()), expected);
    }

    // Running flag, mode, detail and fault of a state entry to its state code.
    void controllerStates()
    {
        // (The other codes come out of the state logs of csvSiblings and logSiblings.)
        const int rows[][5] = {{1, 100, 0, 0, 12}, {1, 100, 12, 0, 4}, {1, 150, 9, 0, 0}, {0, 200, 9, 3, 7}};
        for (const auto &r : rows)
            QCOMPARE(int(g_controllerState(uint(r[0]), uint(r[1]), r[2], uint(r[3]))), r[4]);
    }

    // Each of the twelve sets at its limits, just beyond them and missing: an
    // implausible value takes its group of three with it. Nothing is checked in a
    // sample whose set 0 is missing, nor without the state track.
    void plausibility()
    {
        const double plausible[12] = {8.5, 10.5, 60, 9, 21, 55, 9.5, 20, 50, 9.1, 19.5, 48};
        // The limits of each set: absolute humidity, temperature (outside and
        // zone I from -40, inside and zone II from -10), relative humidity.
        const double low[12] = {0.5, -40, 5, 0.5, -10, 5, 0.5, -40, 5, 0.5, -10, 5};
        const double high[12] = {50, 50, 100, 50, 50, 100, 50, 50, 100, 50, 50, 100};
        ChartModel m;
        for (int set = 0; set < 12; ++set) {
            // at the low limit, below it, at the high limit, above it, missing, missing without the track
            const double values[6] = {low[set],         low[set] - 0.01, high[set],
                                      high[set] + 0.01, kMissingValue,   kMissingValue};
            for (int c = 0; c < 6; ++c) {
                const bool unchecked = set == 0 && c >= 4;  // then an implausible 99 in set 7 stays
                m.reset();
                m.settings.flags |= c == 5 ? 0 : kFlagShowModeTrack;
                m.settings.dataSetCount = 12;
                for (int i = 0; i < 12; ++i) {
                    m.data(i)->count = 2;
                    m.data(i)->value[0] = m.data(i)->value[1] = plausible[i];
                }
                m.data(set)->value[1] = values[c];
                m.data(7)->value[1] = unchecked ? 99 : m.data(7)->value[1];
                g_checkPlausibility(m);
                const bool bad = c == 1 || c == 3 || (c == 4 && set > 0);
                for (int i = 0; i < 12; ++i) {
                    const double expected = bad && i / 3 == set / 3 ? kMissingValue
                                            : i == set              ? values[c]
                                            : unchecked && i == 7   ? 99
                                                                    : plausible[i];
                    QVERIFY2(m.data(i)->value[0] == plausible[i] && m.data(i)->value[1] == expected,
                             qPrintable(QStringLiteral("set %1, case %2: set %3").arg(set).arg(c).arg(i)));
                }
            }
        }
    }

    // The binary log: which rows of the ring are read (start row S =
    // (offset >> 2) / count, the overflow repair when S + rows <= capacity, the
    // wrap after row C), every value type and divisor rule, failures that leave
    // the model untouched, a short data block read with zeros only when the user
    // agrees, rows without data (0xBAADF00D in word 0), a 32-byte name.
    void log_data()
    {
        // clang-format off
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("answer");
        QTest::addColumn<QByteArray>("parts");
        QTest::addColumn<QByteArray>("expected");
        auto ring = [](qint32 capacity, qint32 offset, quint32 rows, quint32 start = 1600000000) {
            qvlog::LogLayout s = ringLog(capacity, rows);
            s.oldestOffset = offset;
            s.startTime = start;
            return qvlog::file(s);
        };
        // Data set 1 of a one-row log holds the raw word.
        auto value = [](quint8 type, quint8 decimals, quint32 multiplier, qint32 divisor, quint32 offset, quint32 raw) {
            qvlog::LogLayout s = ringLog(0, 1);
            s.sets[1] = {"Wert", type, decimals, multiplier, divisor, offset};
            s.words = {0, raw};
            return qvlog::file(s);
        };
        auto log = [](void (*change)(qvlog::LogLayout &)) {
            qvlog::LogLayout s = ringLog(4, 5);
            change(s);
            return qvlog::file(s);
        };
        QTest::newRow("S = 0, no question") << ring(20, 0, 10u) << true << QByteArray("rvgq") << QByteArray("ok v[0 1 2 3 4 5 6 7 8 9|1000 1001 1002 1003 1004 1005 1006 1007 1008 1009] 13.09.2020 15:26:40..13.09.2020 15:35:40 iv=60 n=10 q0w0");
        QTest::newRow("S 5, R 10, C 100, No") << ring(100, 40, 10u) << false << QByteArray("rvgq") << QByteArray("ok v[5 6 7 8 9 10 11 12 13 14|1005 1006 1007 1008 1009 1010 1011 1012 1013 1014] 13.09.2020 15:26:40..13.09.2020 15:35:40 iv=60 n=10 q1w0");
        QTest::newRow("S + R = C still offered") << ring(10, 16, 8u) << true << QByteArray("rvgq") << QByteArray("ok v[0 1 2 3 4 5 6 7 8 9|1000 1001 1002 1003 1004 1005 1006 1007 1008 1009] 13.09.2020 15:24:40..13.09.2020 15:33:40 iv=60 n=10 q1w0");
        QTest::newRow("S + R > C wraps after row C") << ring(10, 64, 6u) << true << QByteArray("rvgq") << QByteArray("ok v[8 9 10 0 1 2|1008 1009 1010 1000 1001 1002] 13.09.2020 15:26:40..13.09.2020 15:31:40 iv=60 n=6 q0w0");
        QTest::newRow("offset inside a row") << ring(10, 15, 3u) << false << QByteArray("rvgq") << QByteArray("ok v[1 2 3|1001 1002 1003] 13.09.2020 15:26:40..13.09.2020 15:28:40 iv=60 n=3 q1w0");
        QTest::newRow("repair wraps the 32-bit start time") << ring(100, 40, 3u, 100u) << true << QByteArray("rvgq") << QByteArray("ok v[0 1 2 3 4 5 6 7|1000 1001 1002 1003 1004 1005 1006 1007] 07.02.2106 08:24:56..07.02.2106 08:31:56 iv=60 n=8 q1w0");
        QTest::newRow("S beyond C reads zeros once") << ring(10, 120, 3u) << true << QByteArray("rvgq") << QByteArray("ok v[0 0 1|0 1000 1001] 13.09.2020 15:26:40..13.09.2020 15:28:40 iv=60 n=3 q0w0");
        QTest::newRow("2: sum in doubles, no 32-bit wrap") << value(2, 1, 0u, 0, 1u, 0xFFFFFFFFu) << true << QByteArray("rsav") << QByteArray("ok sets[Zeile:0:7:3EC,Wert:1:2:3EC] axes[-1..1,4294967296..4294967297] v[0|4294967296]");
        QTest::newRow("2: unsigned multiplier") << value(2, 1, 0x80000000u, 0, 0u, 3u) << true << QByteArray("rsav") << QByteArray("ok sets[Zeile:0:7:3EC,Wert:1:2:3EC] axes[-1..1,6442450944..6442450945] v[0|6442450944]");
        QTest::newRow("4: offset, multiplier, divisor") << value(4, 2, 2u, 10, 5u, 250u) << true << QByteArray("rsav") << QByteArray("ok sets[Zeile:0:7:3EC,Wert:2:4:3EC] axes[-1..1,51..52] v[0|51]");
        QTest::newRow("3: signed raw and offset") << value(3, 1, 0u, 10, quint32(-5), quint32(-250)) << true << QByteArray("rsav") << QByteArray("ok sets[Zeile:0:7:3EC,Wert:1:3:3EC] axes[-1..1,-26..-25] v[0|-25.5]");
        QTest::newRow("5: signed multiplier, divisor -10") << value(5, 0, quint32(-2), -10, 0u, quint32(-3)) << true << QByteArray("rsav") << QByteArray("ok sets[Zeile:0:7:3EC,Wert:0:5:3EC] axes[-1..1,60..61] v[0|60]");
        QTest::newRow("7: signed raw, descriptor ignored") << value(7, 3, 5u, 10, 5u, 0xFFFFFFFEu) << true << QByteArray("rsav") << QByteArray("ok sets[Zeile:0:7:3EC,Wert:3:7:3EC] axes[-1..1,-3..-2] v[0|-2]");
        QTest::newRow("8: float") << value(8, 1, 5u, 10, 5u, qvlog::floatWord(-12.375f)) << true << QByteArray("rsav") << QByteArray("ok sets[Zeile:0:7:3EC,Wert:1:8:3EC] axes[-1..1,-13..-12] v[0|-12.375]");
        QTest::newRow("6: unsigned raw, no decimals") << value(6, 3, 5u, 10, 5u, 0xFFFFFFFEu) << true << QByteArray("rsav") << QByteArray("ok sets[Zeile:0:7:3EC,Wert:0:6:3EC] axes[-1..1,4294967294..4294967295] v[0|4294967294]");
        QTest::newRow("9: unknown") << value(9, 2, 5u, 10, 5u, 0x80000000u) << true << QByteArray("rsav") << QByteArray("ok sets[Zeile:0:7:3EC,Wert:0:9:3EC] axes[-1..1,2147483648..2147483649] v[0|2147483648]");
        const QByteArray good = qvlog::file(ringLog(4, 5));
        QTest::newRow("last magic byte differs") << QByteArray(good).replace(63, 1, "!") << true << QByteArray("rtsavgq") << QByteArray("File is no Ventimar sampling! '' sets[] axes[] v[] 0..0 iv=0 n=0 q0w0");
        QTest::newRow("header one byte short") << good.left(64 + 3007) << true << QByteArray("rtsavgq") << QByteArray("Ventimar sampling seems to be broken (header)! '' sets[] axes[] v[] 0..0 iv=0 n=0 q0w0");
        QTest::newRow("17 data sets") << log([](qvlog::LogLayout &s) { s.count = 17; }) << true << QByteArray("rtsavgq") << QByteArray("Ventimar sampling seems to be broken (header)! '' sets[] axes[] v[] 0..0 iv=0 n=0 q0w0");
        QTest::newRow("data size 16 MiB + 1") << log([](qvlog::LogLayout &s) { s.dataSize = 16 * 1024 * 1024 + 1; }) << true << QByteArray("rtsavgq") << QByteArray("Ventimar sampling seems to be broken (header)! '' sets[] axes[] v[] 0..0 iv=0 n=0 q0w0");
        QTest::newRow("negative capacity") << log([](qvlog::LogLayout &s) { s.capacity = -1; }) << true << QByteArray("rtsavgq") << QByteArray("Ventimar sampling seems to be broken (header)! '' sets[] axes[] v[] 0..0 iv=0 n=0 q0w0");
        QTest::newRow("negative oldest-row offset") << log([](qvlog::LogLayout &s) { s.oldestOffset = -8; }) << true << QByteArray("rtsavgq") << QByteArray("Ventimar sampling seems to be broken (header)! '' sets[] axes[] v[] 0..0 iv=0 n=0 q0w0");
        qvlog::LogLayout sixteen = ringLog(2, 3);
        sixteen.count = 16;
        sixteen.words = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18};
        sixteen.dataSize = 16 * 1024 * 1024;
        const QByteArray shortData = qvlog::file(sixteen).chopped(1);
        QTest::newRow("short data, No") << shortData << false << QByteArray("rtsavgq") << QByteArray("Ventimar sampling seems to be broken (filesize)! '' sets[] axes[] v[] 0..0 iv=0 n=0 q1w0");
        QTest::newRow("short data, Yes: zeros") << shortData << true << QByteArray("rtsavgq") << QByteArray("ok 'Halle 3' sets[Zeile:0:7:3EC,Zeile plus 1000:0:7:3EC,:0:7:3EC,:0:7:7EC,:0:7:7EC,:0:7:7EC,:0:7:1EC,:0:7:1EC,:0:7:1EC,:0:7:1EC,:0:7:1EC,:0:7:1EC,:0:7:1EC,:0:7:1EC,:0:7:1EC,:0:7:1EC] axes[-1..18,-1..19,-1..4,-1..5,-1..6,-1..7,-1..8,-1..9,-1..10,-1..11,-1..12,-1..13,-1..14,-1..15,-1..16,-1..17] v[1 17 0|2 18 0|3 0 0|4 0 0|5 0 0|6 0 0|7 0 0|8 0 0|9 0 0|10 0 0|11 0 0|12 0 0|13 0 0|14 0 0|15 0 0|16 0 0] 13.09.2020 15:26:40..13.09.2020 15:28:40 iv=60 n=3 q1w0");
        qvlog::LogLayout gaps = ringLog(3, 4);
        gaps.count = 3;
        gaps.sets[2] = {QByteArray(32, 'R'), 6, 0, 0, 0, 0};
        gaps.words = {10, 20, 30, 0xBAADF00Du, 900, 900, 11, 21, 0xBAADF00Du, 12, 22, 32};
        QTest::newRow("rows without data") << qvlog::file(gaps) << true << QByteArray("rtsavgq") << QByteArray("ok 'Halle 3' sets[Zeile:0:7:3EC,Zeile plus 1000:0:7:3EC,RRRRRRRRRRRRRRRRRRRRRRRRRRRRRRR:0:6:3EC] axes[9..13,19..23,-62639197..3194600584] v[10 - 11 12|20 - 21 22|30 - - 32] 13.09.2020 15:26:40..13.09.2020 15:29:40 iv=60 n=4 q0w0");
        // clang-format on
    }

    void log()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, answer);
        QFETCH(QByteArray, parts);
        QFETCH(QByteArray, expected);
        QCOMPARE(importBytes(Kind::Log, bytes, answer).summary(parts.constData()), expected);
    }

    // SV_SA_01.LOG with its state log, parameters and card parameters
    // (02..04): the names that take them, the state log's step, the overflow
    // repair carried over, and each broken sibling with what stays.
    void logSiblings_data()
    {
        // clang-format off
        QTest::addColumn<QString>("name");
        QTest::addColumn<QByteArray>("fault");
        QTest::addColumn<qint32>("stateShift");  // seconds the state log starts after the sensor log
        QTest::addColumn<qint32>("start");       // start row of both logs
        QTest::addColumn<bool>("answer");
        QTest::addColumn<QByteArray>("expected");
        const QString upper = QStringLiteral("SV_SA_01.LOG");

        QTest::newRow("in step") << upper << QByteArray() << 0 << 0 << true << QByteArray("ok modes=1VC flags=3 [5 2 1 11 7 6 10 7] P[45 21474835.48 -2.5 25 3 2.5 1.5 0.1 -0.2 0.3 -0.4;15 7 8 9;-120] q1w0");
        // "sv_sa_02.LOG" (the literal replacement) is not there; "sv_sa_02.log" is taken.
        QTest::newRow("lower-case name") << QStringLiteral("sv_sa_01.log") << QByteArray() << 0 << 0 << true << QByteArray("ok modes=1VC flags=3 [5 2 1 11 7 6 10 7] P[45 21474835.48 -2.5 25 3 2.5 1.5 0.1 -0.2 0.3 -0.4;15 7 8 9;-120] q1w0");
        QTest::newRow("SV_SA_1.LOG is no sensor log name") << QStringLiteral("SV_SA_1.LOG") << QByteArray() << 0 << 0 << true << QByteArray("ok modes=0 flags=1 [] P[0 0 0 0 0 0 0 0 0 0 0;0 0 0 0;0] q0w0");
        QTest::newRow("declined") << upper << QByteArray() << 0 << 0 << false << QByteArray("ok modes=0 flags=1 [] P[0 0 0 0 0 0 0 0 0 0 0;0 0 0 0;0] q1w0");
        QTest::newRow("04 missing") << upper << QByteArray("missing") << 0 << 0 << true << QByteArray("ok modes=0 flags=1 [] P[0 0 0 0 0 0 0 0 0 0 0;0 0 0 0;0] q0w0");
        // k = 2 (2 intervals and 59 s, truncated): two rows of no data first.
        QTest::newRow("state log 2 rows late") << upper << QByteArray() << 179 << 0 << true << QByteArray("ok modes=1VC flags=3 [10 10 5 2 1 11] P[45 21474835.48 -2.5 25 3 2.5 1.5 0.1 -0.2 0.3 -0.4;15 7 8 9;-120] q1w0");
        QTest::newRow("state log 1 row early") << upper << QByteArray() << -119 << 0 << true << QByteArray("ok modes=1VC flags=3 [2 1 11 7 6 10 7] P[45 21474835.48 -2.5 25 3 2.5 1.5 0.1 -0.2 0.3 -0.4;15 7 8 9;-120] q1w0");
        QTest::newRow("state log 3 rows late") << upper << QByteArray() << 180 << 0 << true << QByteArray("Error while loading additional vaporix files! modes=0 flags=1 [] P[0 0 0 0 0 0 0 0 0 0 0;0 0 0 0;0] q1w0");
        QTest::newRow("state log 3 rows early") << upper << QByteArray() << -180 << 0 << true << QByteArray("Error while loading additional vaporix files! modes=0 flags=1 [] P[0 0 0 0 0 0 0 0 0 0 0;0 0 0 0;0] q1w0");
        QTest::newRow("overflow repair carried over") << upper << QByteArray() << 0 << 2 << true << QByteArray("ok modes=1VC flags=3 [5 2 1 11 7 6 10 7] P[45 21474835.48 -2.5 25 3 2.5 1.5 0.1 -0.2 0.3 -0.4;15 7 8 9;-120] q2w0");
        QTest::newRow("04 magic") << upper << QByteArray("magic") << 0 << 0 << true << QByteArray("Error while loading additional vaporix files! modes=0 flags=1 [] P[0 0 0 0 0 0 0 0 0 0 0;0 0 0 0;0] q1w0");
        QTest::newRow("03 title") << upper << QByteArray("title") << 0 << 0 << true << QByteArray("Error while loading additional vaporix files! modes=0 flags=1 [5 2 1 11 7 6 10 7] P[0 0 0 0 0 0 0 0 0 0 0;0 0 0 0;0] q1w0");
        QTest::newRow("02 data short") << upper << QByteArray("short") << 0 << 0 << true << QByteArray("Error while loading additional vaporix files! modes=0 flags=1 [] P[0 0 0 0 0 0 0 0 0 0 0;0 0 0 0;0] q1w0");
        QTest::newRow("03 without data sets") << upper << QByteArray("nosets") << 0 << 0 << true << QByteArray("Error while loading additional vaporix files! modes=0 flags=1 [5 2 1 11 7 6 10 7] P[0 0 0 0 0 0 0 0 0 0 0;0 0 0 0;0] q1w0");
        QTest::newRow("04 header short") << upper << QByteArray("header") << 0 << 0 << true << QByteArray("Error while loading additional vaporix files! modes=0 flags=1 [5 2 1 11 7 6 10 7] P[45 21474835.48 -2.5 25 3 2.5 1.5 0.1 -0.2 0.3 -0.4;15 7 8 9;0] q1w0");
        QTest::newRow("04 is a folder") << upper << QByteArray("folder") << 0 << 0 << true << QByteArray("Error reading file!! modes=0 flags=1 [] P[0 0 0 0 0 0 0 0 0 0 0;0 0 0 0;0] q0w0");
        // clang-format on
    }

    void logSiblings()
    {
        QFETCH(QString, name);
        QFETCH(QByteArray, fault);
        QFETCH(qint32, stateShift);
        QFETCH(qint32, start);
        QFETCH(bool, answer);
        QFETCH(QByteArray, expected);

        // Eight rows of twelve values in a ring of ten rows; row 4 of the
        // recording has an implausible outside temperature of 70. Rows before a
        // start row hold the same recording, so that the repair reads them.
        qvlog::LogLayout logs[4];
        const quint32 row[12] = {8, 10, 60, 9, 21, 55, 9, 20, 50, 9, 19, 48};
        // Running flag, mode, detail and fault of the state rows; row 6 has no data.
        const quint32 states[8][4] = {{1, 100, 9, 0},           {1, 100, 11, 0}, {0, 100, 9, 0},  {1, 200, 0, 0},
                                      {1, 100, quint32(-1), 0}, {1, 100, 20, 0}, {1, 100, 18, 0}, {1, 100, 12, 4}};
        for (int f = 0; f < 2; ++f) {
            qvlog::LogLayout &s = logs[f];
            s.title = f == 0 ? "SENSORWERTE" : "STATUS LOG";
            s.count = f == 0 ? 12 : 5;
            s.capacity = 9;
            s.timeCorrection = 3600;
            s.startTime = quint32(1600000000 + start * 60 + (f == 1 ? stateShift : 0));
            s.rows = quint32(8 - start);
            s.oldestOffset = start * s.count * 4;
            for (int r = 0; r < 10; ++r) {
                for (int i = 0; i < s.count; ++i)
                    s.words << (f == 0   ? (i == 1 && r == 4 ? 70 : row[i])
                                : i == 0 ? (r == 6 ? 0xBAADF00Du : quint32(r))
                                         : states[r % 8][i - 1]);
            }
        }
        // Parameters: rows 3 and 0 of a ring of four (the last read counts);
        // card parameters: row 1, then row 0.
        logs[2].title = fault == "title" ? "PARAMETERS" : "PARAMETER";
        logs[2].count = fault == "nosets" ? 0 : 16;
        logs[2].capacity = 3;
        logs[2].rows = 2;
        logs[2].oldestOffset = 3 * 16 * 4;
        logs[2].words = {
            0, 9000, quint32(-200), quint32(-250), 2500, 300, 15, 250, 150, 10, quint32(-20), 60, quint32(-80), 7,
            8, 9};
        logs[2].words.resize(64);
        logs[3].title = "PARAMETER SDKARTE";
        logs[3].capacity = 1;
        logs[3].rows = 2;
        logs[3].oldestOffset = 4;
        logs[3].words = {quint32(-2), 5};

        QTemporaryDir folder;
        for (int i = 0; i < 4; ++i) {
            QByteArray bytes = qvlog::file(logs[i]);
            if (i == 3 && fault == "magic")
                bytes[0] = 's';
            if (i == 1 && fault == "short")
                bytes.chop(1);
            if (i == 3 && fault == "header")
                bytes = bytes.left(64 + 3007);
            QString file = i == 0 ? name : name.contains(QLatin1String("01")) ? name : QStringLiteral("SV_SA_01.LOG");
            file.replace(QLatin1String("01"), QStringLiteral("0%1").arg(i + 1));
            if (i == 3 && fault == "folder")
                QVERIFY(QDir().mkpath(folder.filePath(file)));
            else if (!(i == 3 && fault == "missing"))
                QVERIFY(writeFile(folder.filePath(file), bytes));
        }
        const ImportRun run = importFile(Kind::Log, folder.filePath(name), answer);
        // The sensor rows are kept in every case; the plausibility pass runs with the state data.
        QCOMPARE(run.model->data(0)->count, 8);
        QCOMPARE(g_isMissing(run.model->data(1)->value[4]), bool(run.model->settings.hasModeData));
        QCOMPARE(run.summary("rmpq"), expected);
    }

    // vaporix-VIS files (tests/data/viscsv/four-states.csv with one line changed
    // or data lines of its own): header checks and what they leave, the title,
    // the parameter block, values, states, the end of the data, the bound,
    // the interval and the plausibility limits.
    void vis_data()
    {
        // clang-format off
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("parts");
        QTest::addColumn<QByteArray>("expected");
        auto data = [](const QByteArrayList &lines) -> QByteArray { return visWith(0) + lines.join(); };
        auto line = [](const char *stamp, const QByteArray &values, const QByteArray &state) -> QByteArray {
            return QByteArray(stamp) + ';' + values + ';' + state + '\n';
        };
        const QByteArray v = "20.5;65;9.8;5.0;80;4.5";
        const QByteArray ok = line("01.02.2021;10:00", v, "OPTIMAL   ");
        auto pad = [](const QByteArray &t, int w) -> QByteArray { return t.leftJustified(w, ' ', true); };

        QTest::newRow("whole import") << dataFile("viscsv/four-states.csv") << QByteArray("rtsavxgmpq") << QByteArray("ok 'vaporix-VIS Kellerklima - Keller Nord' sets[Temperatur Innen:1:8:7EC,rel. Feuchte Innen:0:8:3EC,abs. Feuchte Innen:1:8:3EC,Temperatur Aussen:1:8:1EC,rel. Feuchte Aussen:0:8:1EC,abs. Feuchte Aussen:1:8:1EC] axes[-15..35,0..100,0..20,-15..35,0..100,0..20] v[10 10.25 10.5 10.75|51 51.25 51.5 51.75|12 12.25 12.5 12.75|13 13.25 13.5 13.75|54 54.25 54.5 54.75|15 15.25 15.5 15.75] x[30.11.2021 08:30:00 +3600 +3600 +3600] 30.11.2021 08:30:00..30.11.2021 11:30:00 iv=3600 n=4 modes=1VC flags=3 [5 12 4 2] P[55 75 8 18.5 3 2.5 1.5 0 0 0 0;1 0 0 2;600] q0w0");
        QTest::newRow("empty file") << QByteArray() << QByteArray("rtgp") << QByteArray("Error in CSV line 1 !/No vaporix-Vis sampling. '' 0..0 iv=0 n=0 P[0 0 0 0 0 0 0 0 0 0 0;0 0 0 0;0]");
        QTest::newRow("UTF-8 BOM in line 1") << visWith(1, "\xEF\xBB\xBF") << QByteArray("rt") << QByteArray("Error in CSV line 1 !/No vaporix-Vis sampling. ''");
        QTest::newRow("CR LF at line 2") << visWith(2, pad("vaporix-VIS Kellerklima", 48) + "\r") << QByteArray("rt") << QByteArray("Error in CSV title line 2 ! ''");
        QTest::newRow("line 2 short") << visWith(2, pad("T", 47)) << QByteArray("rt") << QByteArray("Error in CSV title line 2 ! ''");
        QTest::newRow("line 3 long") << visWith(3, pad("Keller Nord", 17)) << QByteArray("rt") << QByteArray("Error in CSV title line 3 ! 'vaporix-VIS Kellerklima - '");
        QTest::newRow("line 4 83 bytes") << visWith(4, pad("V", 82)) << QByteArray("rt") << QByteArray("Error in CSV title line 4 ! 'vaporix-VIS Kellerklima - Keller Nord'");
        QTest::newRow("line 4 85 bytes") << visWith(4, pad("V", 84)) << QByteArray("rt") << QByteArray("Error in CSV title line 4 ! 'vaporix-VIS Kellerklima - Keller Nord'");
        QTest::newRow("line 5 39 bytes") << visWith(5, pad("1;2;3;4;5;6;7;8;9;0:10:00", 38)) << QByteArray("rtgp") << QByteArray("Error in CSV title line 5 ! 'vaporix-VIS Kellerklima - Keller Nord' 0..0 iv=0 n=0 P[0 0 0 0 0 0 0 0 0 0 0;0 0 0 0;0]");
        QTest::newRow("line 5 nine fields") << visWith(5, pad("1;2;3;4;5;6;7;8;0:10:00", 39)) << QByteArray("rtgp") << QByteArray("Error in CSV line 5 !/Too many columns. 'vaporix-VIS Kellerklima - Keller Nord' 0..0 iv=0 n=0 P[0 0 0 0 0 0 0 0 0 0 0;0 0 0 0;0]");
        QTest::newRow("line 7 191 bytes") << visWith(7, pad("a;b;c;d;e;f;g;h;i", 190)) << QByteArray("rtgpsmv") << QByteArray("Error in CSV title line 7 ! 'vaporix-VIS Kellerklima - Keller Nord' 0..0 iv=600 n=0 P[55 75 8 18.5 3 2.5 1.5 0 0 0 0;1 0 0 2;600] sets[] modes=0 flags=1 [] v[]");
        // The terminator belongs to the last field: ten fields even with it.
        QTest::newRow("line 7 ten fields") << visWith(7, pad("a;b;c;d;e;f;g;h;i;", 191)) << QByteArray("rt") << QByteArray("Error in CSV line 7 !/Too many columns. 'vaporix-VIS Kellerklima - Keller Nord'");
        QTest::newRow("line 7 eight fields") << visWith(7, pad("a;b;c;d;e;f;g;h", 191)) << QByteArray("rt") << QByteArray("Error in CSV line 7 !/Too many columns. 'vaporix-VIS Kellerklima - Keller Nord'");
        // No line is read beyond 9 x 256 bytes: after a longer one every line reads as empty.
        QTest::newRow("line 6 over the bound") << visWith(6, QByteArray(9 * 256, ';')) << QByteArray("rt") << QByteArray("Error in CSV title line 7 ! 'vaporix-VIS Kellerklima - Keller Nord'");
        const int blanksAt = ok.indexOf(';', 11) + 1;  // blanks in a value are dropped
        QTest::newRow("a data line at the bound") << data({ok, QByteArray(ok).insert(blanksAt, QByteArray(9 * 256 - ok.size(), ' ')), ok})
                                                  << QByteArray("rv") << QByteArray("ok v[20.5 20.5 20.5|65 65 65|9.8 9.8 9.8|5 5 5|80 80 80|4.5 4.5 4.5]");
        QTest::newRow("a data line one byte over ends the data")
            << data({ok, QByteArray(ok).insert(blanksAt, QByteArray(9 * 256 + 1 - ok.size(), ' ')), ok}) << QByteArray("rv") << QByteArray("ok v[20.5|65|9.8|5|80|4.5]");
        QTest::newRow("title: inner blanks kept, name up to a zero byte")
            << visWith(2, pad("Keller  klima", 48)).replace("Keller Nord", QByteArray("VIS\0 0815xx", 11)) << QByteArray("t") << QByteArray("'Keller  klima - VIS'");
        QTest::newRow("title: 48 blanks, blank name") << visWith(2, pad("", 48)).replace("Keller Nord", "           ") << QByteArray("t") << QByteArray("'  -'");
        QTest::newRow("title: full width") << visWith(2, QByteArray(48, 'T')).replace("Keller Nord     ", QByteArray(16, 'N')) << QByteArray("t") << QByteArray("'TTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTTT - NNNNNNNNNNNNNNNN'");
        QTest::newRow("parameters: unconvertible and blank fields")
            << visWith(5, "a;-1.25;;5 5;1,5;1e1;x;" + QByteArray(7, '0') + ";;1:00:00") << QByteArray("rpg") << QByteArray("ok P[0 0 0 -1.25 0 10 0 0 0 0 0;1 0 0 2;3600] 30.11.2021 08:30:00..30.11.2021 11:30:00 iv=3600 n=4");
        QTest::newRow("parameters: seconds") << visWith(5, "1;2;3;4;5;6;7;" + QByteArray(16, '0') + ";;0:00:45") << QByteArray("rp") << QByteArray("ok P[4 5 1 2 3 6 7 0 0 0 0;1 0 0 2;45]");
        QTest::newRow("values") << data({line("01.02.2021;10:00", "-3.5;65;9.8;2 1.5;80;4.5", "OPTIMAL   "),
                                         line("01.02.2021;10:10", "20;65;9.8; - 3 . 2 5 ;80;4.5", "OPTIMAL   "),
                                         line("01.02.2021;10:20", "20;65;9.8;1,5;80;4.5", "OPTIMAL   "),
                                         line("01.02.2021;10:50", "20;65;9.8;" + QByteArray(80, ' ') + "2." + QByteArray(80, '0') + "5;80;4.5", "OPTIMAL   ")})
                                << QByteArray("rv") << QByteArray("ok v[-3.5 20 20 20|65 65 65 65|9.8 9.8 9.8 9.8|21.5 -3.25 0 2|80 80 80 80|4.5 4.5 4.5 4.5]");
        QByteArrayList states;
        for (const char *s : {"FROST     ", "ZU KALT   ", "ZU WARM   ", "OPTIMAL   ", "L\xDC" "FTEN AUS", "ERR INNEN ", "ERR AUSSEN",
                              "L\xDC" "FTEN EIN", "STANDBY   ", "OPTIMAL"})
            states << line("01.02.2021;10:00", v, s);
        QTest::newRow("states, the last line without terminator") << data(states + QByteArrayList{line("01.02.2021;10:00", v, "OPTIMAL   ").chopped(1)})
                                                                  << QByteArray("rm") << QByteArray("ok modes=1VC flags=3 [2 3 4 5 6 8 9 12 0 0 0]");
        QTest::newRow("state with a CR") << data({ok, line("01.02.2021;10:00", v, "OPTIMAL   \r")}) << QByteArray("rm") << QByteArray("ok modes=1VC flags=3 [5 0]");
        QTest::newRow("eight fields end the data") << data({ok, "01.02.2021;10:20;1;2;3;4;5;6\n", ok}) << QByteArray("rmg") << QByteArray("ok modes=1VC flags=3 [5] 01.02.2021 10:00:00..01.02.2021 10:00:00 iv=-1612170000 n=1");
        QTest::newRow("ten fields end the data") << data({ok, QByteArray(ok).insert(ok.size() - 1, ';'), ok}) << QByteArray("rmg") << QByteArray("ok modes=1VC flags=3 [5] 01.02.2021 10:00:00..01.02.2021 10:00:00 iv=-1612170000 n=1");
        QTest::newRow("interval backwards") << data({line("01.02.2021;10:05", v, "OPTIMAL   "), ok}) << QByteArray("g") << QByteArray("01.02.2021 10:05:00..01.02.2021 10:00:00 iv=-300 n=0");
        QTest::newRow("interval: same minute keeps the header") << data({ok, ok}) << QByteArray("g") << QByteArray("01.02.2021 10:00:00..01.02.2021 10:00:00 iv=600 n=2");
        QTest::newRow("interval: invalid time means midnight") << data({line("01.02.2021;24:00", v, "OPTIMAL   "), ok}) << QByteArray("g") << QByteArray("01.02.2021 00:00:00..01.02.2021 10:00:00 iv=36000 n=2");
        // Inside limits: temperature -10..50, relative 5..100, absolute 0.5..50;
        // outside temperature from -40. A bad value takes its group of three.
        const QByteArray inside = "v[20.5 -|65 -|9.8 -|5 5|80 80|4.5 4.5]", outside = "v[20.5 20.5|65 65|9.8 9.8|5 -|80 -|4.5 -]";
        const QByteArray limits[][3] = {{"2", "50.0", "v[20.5 20.5|65 65|9.8 50|5 5|80 80|4.5 4.5]"}, {"2", "50.01", inside},
                                        {"2", "0.5", "v[20.5 20.5|65 65|9.8 0.5|5 5|80 80|4.5 4.5]"},  {"2", "0.49", inside},
                                        {"0", "-10.0", "v[20.5 -10|65 65|9.8 9.8|5 5|80 80|4.5 4.5]"}, {"0", "-10.01", inside},
                                        {"1", "5", "v[20.5 20.5|65 5|9.8 9.8|5 5|80 80|4.5 4.5]"},     {"1", "4.99", inside},
                                        {"3", "-40.0", "v[20.5 20.5|65 65|9.8 9.8|5 -40|80 80|4.5 4.5]"}, {"3", "-40.01", outside},
                                        {"4", "100.0", "v[20.5 20.5|65 65|9.8 9.8|5 5|80 100|4.5 4.5]"}, {"4", "100.01", outside}};
        for (const auto &l : limits) {
            QByteArrayList values = v.split(';');
            values[l[0].toInt()] = l[1];
            QTest::newRow(QByteArray("set " + l[0] + " at " + l[1]).constData())
                << data({ok, line("01.02.2021;10:10", values.join(';'), "OPTIMAL   ")}) << QByteArray("v") << l[2];
        }
        // clang-format on
    }

    void vis()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, parts);
        QFETCH(QByteArray, expected);
        QCOMPARE(importBytes(Kind::Vis, file).summary(parts.constData()), expected);
    }

    // A clock without summer time (TZ=Europe/Berlin): a time the local clock
    // skips asks once; Yes reads every time of the file with the standard
    // offset, No as local time. A file without such a time is not asked about.
    void standardTime_data()
    {
        // clang-format off
        QTest::addColumn<int>("kind");
        QTest::addColumn<QByteArrayList>("stamps");  // "dd.MM.yyyy hh:mm", one row each
        QTest::addColumn<bool>("answer");
        QTest::addColumn<QByteArray>("expected");   // result, times of store 0, questions
        const QByteArrayList spring{"31.03.2024 01:30", "31.03.2024 02:00", "31.03.2024 02:30", "31.03.2024 03:00"};
        const QByteArrayList autumn{"27.10.2024 01:30", "27.10.2024 02:00", "27.10.2024 02:30", "27.10.2024 03:00"};
        QTest::newRow("csv spring, Yes") << int(Kind::Csv) << spring << true << QByteArray("ok x[31.03.2024 01:30:00 +1800 +1800 +1800] 31.03.2024 01:30:00..31.03.2024 04:00:00 iv=1800 n=4 q1w0");
        QTest::newRow("csv spring, No") << int(Kind::Csv) << spring << false << QByteArray("ok x[31.03.2024 01:30:00 +-1711848600 +0 +1711850400] 31.03.2024 01:30:00..31.03.2024 03:00:00 iv=1711850400 n=2 q1w0");
        QTest::newRow("vis spring, Yes") << int(Kind::Vis) << spring << true << QByteArray("ok x[31.03.2024 01:30:00 +1800 +1800 +1800] 31.03.2024 01:30:00..31.03.2024 04:00:00 iv=1800 n=4 q1w0");
        QTest::newRow("vis spring, No") << int(Kind::Vis) << spring << false << QByteArray("ok x[31.03.2024 01:30:00 +-1800 +1800 +1800] 31.03.2024 01:30:00..31.03.2024 03:00:00 iv=-1800 n=3 q1w0");
        QTest::newRow("csv autumn: nothing asked") << int(Kind::Csv) << autumn << true << QByteArray("ok x[27.10.2024 01:30:00 +1800 +1800 +5400] 27.10.2024 01:30:00..27.10.2024 03:00:00 iv=5400 n=4 q0w0");
        QTest::newRow("vis autumn: nothing asked") << int(Kind::Vis) << autumn << true << QByteArray("ok x[27.10.2024 01:30:00 +1800 +1800 +5400] 27.10.2024 01:30:00..27.10.2024 03:00:00 iv=1800 n=4 q0w0");
        // The autumn night before the skipped time: moved to standard time too.
        const QByteArrayList autumnFirst = QByteArrayList{"29.10.2023 01:30", "29.10.2023 02:00", "29.10.2023 02:30", "29.10.2023 03:00", "31.03.2024 02:30"};
        QTest::newRow("csv autumn, then a skipped time, Yes") << int(Kind::Csv) << autumnFirst << true << QByteArray("ok x[29.10.2023 02:30:00 +1800 +1800 +1800 +13303800] 29.10.2023 02:30:00..31.03.2024 03:30:00 iv=1800 n=5 q1w0");
        QTest::newRow("csv autumn, then a skipped time, No") << int(Kind::Csv) << autumnFirst << false << QByteArray("ok x[29.10.2023 01:30:00 +1800 +1800 +5400 +-1698548400] 29.10.2023 01:30:00..01.01.1970 00:00:00 iv=5400 n=0 q1w0");
        QTest::newRow("vis autumn, then a skipped time, Yes") << int(Kind::Vis) << autumnFirst << true << QByteArray("ok x[29.10.2023 02:30:00 +1800 +1800 +1800 +13303800] 29.10.2023 02:30:00..31.03.2024 03:30:00 iv=1800 n=5 q1w0");
        // clang-format on
    }

    void standardTime()
    {
        QFETCH(int, kind);
        QFETCH(QByteArrayList, stamps);
        QFETCH(bool, answer);
        QFETCH(QByteArray, expected);
        const bool csv = kind == int(Kind::Csv);
        QByteArray file = csv ? QByteArray("K\nZeit;A;B\n") : visWith(0);
        for (const QByteArray &stamp : qAsConst(stamps))
            file += csv ? QByteArray(stamp + ":00;1;2\n")
                        : QByteArray(QByteArray(stamp).replace(' ', ';') + ";20.5;65;9.8;5.0;80;4.5;OPTIMAL   \n");
        const ImportRun run = importBytes(Kind(kind), file, answer);
        QCOMPARE(run.summary("rxgq"), expected);
        const _chartDataType &first = *run.model->data(0);
        for (int i = 1; i < run.model->usedDataSets(); ++i)  // every data set has the times of set 0
            QVERIFY(std::equal(first.time, first.time + first.count, run.model->data(i)->time));
    }

    // A full store, and one row more: the rows stop at the store's end, with one
    // warning (the vaporix-VIS import warns already when the store is full).
    void storeLimit_data()
    {
        // clang-format off
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("rows");
        QTest::addColumn<QByteArray>("expected");  // questions, warnings; count, last value, last time
        QTest::newRow("csv 262144") << int(Kind::Csv) << kMaxSamples << QByteArray("ok q0w0 262144 143 2021-01-04T00:49:03 0");
        QTest::newRow("csv 262145") << int(Kind::Csv) << kMaxSamples + 1 << QByteArray("ok q0w1 262144 143 2021-01-04T00:49:03 0");
        QTest::newRow("log 262145") << int(Kind::Log) << kMaxSamples + 1 << QByteArray("ok q0w1 262144 262143 2021-03-14T15:29:40 0");
        QTest::newRow("vis 262143") << int(Kind::Vis) << kMaxSamples - 1 << QByteArray("ok q1w0 262143 42 2019-07-02T02:02:00 262143");
        QTest::newRow("vis 262144") << int(Kind::Vis) << kMaxSamples << QByteArray("ok q1w1 262144 43 2019-07-02T02:03:00 262144");
        // clang-format on
    }

    void storeLimit()
    {
        QFETCH(int, kind);
        QFETCH(int, rows);
        QFETCH(QByteArray, expected);
        // Times in UTC: the texts run on through the changes of the local clock, and
        // the vaporix-VIS file, which meets the skipped hour of 31.03.2019 half way,
        // is read as standard time (Yes), the lines before it moved to it.
        const QDateTime first(QDate(2021, 1, 1), QTime(0, 0), Qt::UTC);
        const bool csv = kind == int(Kind::Csv);
        QByteArray bytes = csv ? QByteArray("K\nZeit;a;b\n") : visWith(0);
        bytes.reserve(rows * 64);  // appending a builder reserves exactly: grow once up front
        for (int k = 0; kind != int(Kind::Log) && k < rows; ++k)
            bytes += (csv ? first.addSecs(k) : first.addYears(-2).addSecs(k * 60))
                         .toString(csv ? QStringLiteral("dd.MM.yyyy hh:mm:ss;") : QStringLiteral("dd.MM.yyyy;hh:mm;"))
                         .toLatin1() +
                     QByteArray::number(csv ? k % 1000 : k % 50) + (csv ? ";1\n" : ";65;9.8;5.0;80;4.5;OPTIMAL   \n");
        if (kind == int(Kind::Log)) {
            qvlog::LogLayout s = ringLog(rows - 1, quint32(rows));
            s.count = 1;
            s.words.resize(rows);
            std::iota(s.words.begin(), s.words.end(), 0u);
            bytes = qvlog::file(s);
        }
        const ImportRun run = importBytes(Kind(kind), bytes);
        const _chartDataType &d = *run.model->data(0);
        const QByteArray got =
            run.summary("rq") + ' ' + QByteArray::number(d.count) + ' ' + QByteArray::number(d.value[d.count - 1]) +
            ' ' + QDateTime::fromMSecsSinceEpoch(run.model->settings.lastTime).toString(Qt::ISODate).toLatin1() + ' ' +
            QByteArray::number(run.model->modeCodes()->count);
        QCOMPARE(got, expected);
    }
};

QTEST_GUILESS_MAIN(TestImport)
#include "tst_import.moc"

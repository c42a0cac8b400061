// Controller CSV import without sibling files: title, header, rows, values,
// ranges, progress and the record bytes they produce, and every failure with
// what it leaves in the model.
#include "csvtesthelpers.h"
#include "support/testsupport.h"

#include "import/csvimport.h"
#include "project/fixedstring.h"

#include <QtTest>

#include <cfloat>
#include <cstring>

using namespace qv;
using namespace qvtest;

namespace {

QByteArray lines(const QByteArrayList &l)
{
    return l.join('\n') + '\n';
}

// The 32 bytes of a name field holding text.
QByteArray nameField(const QByteArray &text)
{
    QByteArray f = text.left(kNameWidth);
    f.append(QByteArray(kNameWidth - f.size(), '\0'));
    return f;
}

QByteArray descriptionOf(const ChartModel &m)
{
    return QByteArray(m.settings.description, kDescriptionWidth);
}

}  // namespace

class TestCsvImport : public QObject
{
    Q_OBJECT

private slots:
    void header_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("message");  // empty: imported
        QTest::addColumn<QByteArray>("title");
        QTest::addColumn<QByteArrayList>("names");
        QTest::addColumn<QByteArray>("decimals");

        const QByteArray row3 = "01.01.2021 00:00:00;1.25;3;-0.5";
        QTest::newRow("only lines 1 and 2")
            << lines({"Keller", "Zeit;T1;T2;T3"}) << QByteArray() << QByteArray("Keller")
            << QByteArrayList{"T1", "T2", "T3"} << QByteArray("\0\0\0", 3);
        QTest::newRow("trailing separators dropped")
            << lines({"Keller", "Zeit;T1;T2;T3;;;", row3}) << QByteArray() << QByteArray("Keller")
            << QByteArrayList{"T1", "T2", "T3"} << QByteArray("\2\0\1", 3);
        QTest::newRow("empty middle field kept")
            << lines({"K", "Zeit;T1;;T3", row3}) << QByteArray() << QByteArray("K") << QByteArrayList{"T1", "", "T3"}
            << QByteArray("\2\0\1", 3);
        QTest::newRow("comma separator")
            << lines({"K", "Zeit,A,B", "01.01.2021 00:00:00,1.5,2.25"}) << QByteArray() << QByteArray("K")
            << QByteArrayList{"A", "B"} << QByteArray("\1\2", 2);
        QTest::newRow("semicolon wins over comma")
            << lines({"K", "Zeit;A,1;B", "01.01.2021 00:00:00;1,5;2.25"}) << QByteArray() << QByteArray("K")
            << QByteArrayList{"A,1", "B"} << QByteArray("\0\2", 2);
        QTest::newRow("zero byte separator")
            << lines({"K", QByteArray("Zeit\0A\0B", 8), QByteArray("01.01.2021 00:00:00\0" "1.5\0" "7", 25)})
            << QByteArray() << QByteArray("K") << QByteArrayList{"A", "B"} << QByteArray("\1\0", 2);
        QTest::newRow("SENSORWERTE with 7 columns gives 6")
            << lines({"SENSORWERTE", "Zeit;a;b;c;d;e;f;g"}) << QByteArray() << QByteArray("SENSORWERTE")
            << QByteArrayList{"a", "b", "c", "d", "e", "f"} << QByteArray(6, '\0');
        QTest::newRow("SENSORWERTE with 12 columns gives 12")
            << lines({"SENSORWERTE", "Zeit;a;b;c;d;e;f;g;h;i;j;k;l"}) << QByteArray() << QByteArray("SENSORWERTE")
            << QByteArrayList{"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l"} << QByteArray(12, '\0');
        QTest::newRow("other title with 7 columns gives 7")
            << lines({"SENSORWERT", "Zeit;a;b;c;d;e;f;g"}) << QByteArray() << QByteArray("SENSORWERT")
            << QByteArrayList{"a", "b", "c", "d", "e", "f", "g"} << QByteArray(7, '\0');
        QTest::newRow("16 columns")
            << lines({"K", "Zeit;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;16"}) << QByteArray() << QByteArray("K")
            << QByteArrayList{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14", "15", "16"}
            << QByteArray(16, '\0');
        QTest::newRow("17 columns") << lines({"K", "Zeit;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;16;17"})
                                    << QByteArray(kMsgCsvColumns) << QByteArray("K") << QByteArrayList() << QByteArray();
        QTest::newRow("17 columns, trailing separators do not count")
            << lines({"K", "Zeit;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;16;;"}) << QByteArray() << QByteArray("K")
            << QByteArrayList{"1", "2", "3", "4", "5", "6", "7", "8", "9", "10", "11", "12", "13", "14", "15", "16"}
            << QByteArray(16, '\0');
        QTest::newRow("time column only") << lines({"K", "Zeit"}) << QByteArray(kMsgCsvColumns) << QByteArray("K")
                                          << QByteArrayList() << QByteArray();
        QTest::newRow("separators only") << lines({"K", ";;;"}) << QByteArray(kMsgCsvColumns) << QByteArray("K")
                                         << QByteArrayList() << QByteArray();
        QTest::newRow("empty file") << QByteArray() << QByteArray(kMsgCsvColumns) << QByteArray() << QByteArrayList()
                                    << QByteArray();
        QTest::newRow("title of 31 bytes") << lines({QByteArray(31, 'x'), "Zeit;A"}) << QByteArray()
                                           << QByteArray(31, 'x') << QByteArrayList{"A"} << QByteArray(1, '\0');
        QTest::newRow("title of 32 bytes") << lines({QByteArray(32, 'x'), "Zeit;A"}) << QByteArray(kMsgCsvTitle)
                                           << QByteArray() << QByteArrayList() << QByteArray();
        QTest::newRow("title up to its zero byte")
            << lines({QByteArray("AB\0CD", 5), "Zeit;A"}) << QByteArray() << QByteArray("AB") << QByteArrayList{"A"}
            << QByteArray(1, '\0');
        // 0x07 in line 1 makes every line lose two bytes: "Zeit;A;B\n" becomes
        // "Zeit;A;" and holds one data set.
        QTest::newRow("0x07 cuts two bytes from every line")
            << lines({"Ti\atle", "Zeit;A;B", "01.01.2021 00:00:00;1.5;"}) << QByteArray() << QByteArray("Ti\atl")
            << QByteArrayList{"A"} << QByteArray(1, '\1');
        QTest::newRow("0x07 makes a 32-byte line 1 fit")
            << lines({QByteArray(31, 'x') + '\a', "Zeit;A;B"}) << QByteArray() << QByteArray(31, 'x')
            << QByteArrayList{"A"} << QByteArray(1, '\0');
        QTest::newRow("CR LF keeps the CR")
            << QByteArray("SENSORWERTE\r\nZeit;A;B\r\n01.01.2021 00:00:00;1.5;2.25\r\n") << QByteArray()
            << QByteArray("SENSORWERTE\r") << QByteArrayList{"A", "B\r"} << QByteArray("\1\3", 2);
        QTest::newRow("name of 40 bytes fills the field")
            << lines({"K", "Zeit;" + QByteArray(40, 'n')}) << QByteArray() << QByteArray("K")
            << QByteArrayList{QByteArray(32, 'n')} << QByteArray(1, '\0');
        QTest::newRow("name up to its zero byte, Latin-1 kept")
            << lines({"K", QByteArray("Zeit;T\xB0\0x;B", 11)}) << QByteArray() << QByteArray("K")
            << QByteArrayList{"T\xB0", "B"} << QByteArray(2, '\0');
    }

    void header()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, message);
        QFETCH(QByteArray, title);
        QFETCH(QByteArrayList, names);
        QFETCH(QByteArray, decimals);

        // A SENSORWERTE file asks for its siblings; No keeps it a plain import.
        CsvFolder folder;
        ScriptedHost host(false);
        const ImportRun run = importCsv(folder.write(QStringLiteral("a.csv"), file), host);
        const settingsT &s = run.model->settings;
        QCOMPARE(QByteArray(run.result.message), message);
        QCOMPARE(run.result.ok, message.isEmpty());
        QCOMPARE(run.result.critical(), false);
        QCOMPARE(host.questions.size(), title == "SENSORWERTE" ? 1 : 0);

        // The title is written before line 2 is judged.
        QByteArray description = title;
        description.append(QByteArray(kDescriptionWidth - title.size(), '\0'));
        QV_COMPARE_BYTES(descriptionOf(*run.model), message == kMsgCsvTitle ? QByteArray(kDescriptionWidth, '\0')
                                                                             : description);
        if (!message.isEmpty()) {
            QCOMPARE(s.dataSetCount, 0);
            return;
        }
        QCOMPARE(s.dataSetCount, names.size());
        for (int i = 0; i < kMaxDataSets; ++i) {
            const bool used = i < names.size();
            QV_COMPARE_BYTES(QByteArray(s.name[i], kNameWidth), nameField(used ? names[i] : QByteArray()));
            QCOMPARE(int(s.decimals[i]), used ? int(uchar(decimals[i])) : 0);
            QCOMPARE(int(s.valueType[i]), used ? 8 : 0);
        }
    }

    void values_data()
    {
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<double>("value");
        QTest::addColumn<int>("decimals");

        QTest::newRow("negative zero") << QByteArray("-0") << -0.0 << 0;
        QTest::newRow("inexact decimal") << QByteArray("0.1") << 0.1 << 1;
        QTest::newRow("blank inside, second attempt") << QByteArray("1 234.5") << 1234.5 << 1;
        QTest::newRow("leading blank, first attempt") << QByteArray(" 2.5") << 2.5 << 1;
        QTest::newRow("zero byte inside, second attempt") << QByteArray("1\0" "2.5", 5) << 12.5 << 1;
        QTest::newRow("Latin-1 no-break space trimmed") << QByteArray("12\xa0") << 12.0 << 0;
        QTest::newRow("tab inside") << QByteArray("1\t2") << kMissingValue << 0;
        QTest::newRow("not a number") << QByteArray("abc") << kMissingValue << 0;
        QTest::newRow("empty") << QByteArray() << kMissingValue << 0;
        // QByteArray::toDouble takes a field of white space for 0.
        QTest::newRow("blanks only") << QByteArray("   ") << 0.0 << 0;
        QTest::newRow("decimal comma") << QByteArray("1,5") << kMissingValue << 0;
        QTest::newRow("exponent") << QByteArray("1.5e3") << 1500.0 << 3;
        QTest::newRow("overflow") << QByteArray("1e400") << kMissingValue << 0;
        QTest::newRow("the marker itself") << QByteArray("3131961357") << kMissingValue << 0;
        QTest::newRow("point only at the end") << QByteArray("7.") << 7.0 << 0;
        QTest::newRow("two points") << QByteArray("1.2.3") << kMissingValue << 3;
    }

    void values()
    {
        QFETCH(QByteArray, text);
        QFETCH(double, value);
        QFETCH(int, decimals);

        CsvFolder folder;
        const QByteArray file = lines({"K", "Zeit;V;W", "01.01.2021 00:00:00;" + text + ";1", "01.01.2021 00:01:00;1;" + text});
        const ImportRun run = importCsv(folder.write(QStringLiteral("v.csv"), file));
        QVERIFY(run.result.ok);
        QCOMPARE(run.model->data(0)->count, 2);
        QV_COMPARE_DOUBLE(run.model->data(0)->value[0], value);
        QV_COMPARE_DOUBLE(run.model->data(1)->value[1], value);
        QCOMPARE(int(run.model->settings.decimals[0]), decimals);
    }

    void dataRows_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArrayList>("times");  // as written in the file
        QTest::addColumn<QVector<double>>("set0");
        QTest::addColumn<QVector<double>>("set1");

        const QByteArray head = "K\nZeit;A;B\n";
        const QByteArray r1 = "01.01.2021 00:00:00;1;10\n";
        const QByteArray r2 = "01.01.2021 00:01:00;2;20\n";
        const QByteArray r3 = "01.01.2021 00:02:00;3;30\n";
        const QByteArrayList t12{"01.01.2021 00:00:00", "01.01.2021 00:01:00"};

        QTest::newRow("all rows") << head + r1 + r2 + r3
                                  << QByteArrayList{"01.01.2021 00:00:00", "01.01.2021 00:01:00", "01.01.2021 00:02:00"}
                                  << QVector<double>{1, 2, 3} << QVector<double>{10, 20, 30};
        QTest::newRow("a row with one field more ends the data")
            << head + r1 + r2 + "01.01.2021 00:02:00;3;30;x\n" + r3 << t12 << QVector<double>{1, 2}
            << QVector<double>{10, 20};
        QTest::newRow("a row with one field less ends the data")
            << head + r1 + r2 + "01.01.2021 00:02:00;3\n" + r3 << t12 << QVector<double>{1, 2} << QVector<double>{10, 20};
        QTest::newRow("an empty line ends the data")
            << head + r1 + r2 + "\n" + r3 << t12 << QVector<double>{1, 2} << QVector<double>{10, 20};
        QTest::newRow("a malformed first row leaves no samples")
            << head + "01.01.2021 00:00:00;1\n" + r1 << QByteArrayList() << QVector<double>() << QVector<double>();
        QTest::newRow("the last line loses its last byte without a line end")
            << head + r1 + "01.01.2021 00:01:00;2;20.25" << QByteArrayList{"01.01.2021 00:00:00", "01.01.2021 00:01:00"}
            << QVector<double>{1, 2} << QVector<double>{10, 20.2};
        QTest::newRow("an unreadable time is kept as QDateTime converts it")
            << head + "gestern;1;10\n" + "31.02.2021 00:00:00;2;20\n"
            << QByteArrayList{"gestern", "31.02.2021 00:00:00"} << QVector<double>{1, 2} << QVector<double>{10, 20};
        QTest::newRow("a time is read up to its zero byte")
            << head + QByteArray("01.01.2021 00:00:00\0xyz;1;10\n", 29) + QByteArray("\0" "01.01.2021 00:01:00;2;20\n", 26)
            << QByteArrayList{"01.01.2021 00:00:00", ""} << QVector<double>{1, 2} << QVector<double>{10, 20};
        QTest::newRow("CR LF rows keep the CR in the last field")
            << QByteArray("K\r\nZeit;A;B\r\n01.01.2021 00:00:00;1;10.5\r\n01.01.2021 00:01:00;2;x\r\n")
            << t12 << QVector<double>{1, 2} << QVector<double>{10.5, kMissingValue};
    }

    void dataRows()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArrayList, times);
        QFETCH(QVector<double>, set0);
        QFETCH(QVector<double>, set1);

        CsvFolder folder;
        const ImportRun run = importCsv(folder.write(QStringLiteral("r.csv"), file));
        QVERIFY(run.result.ok);
        QVector<qint64> expectedTimes;
        for (const QByteArray &t : times)
            expectedTimes << referenceTime(t.constData());
        QV_COMPARE_BYTES(storeBytes(*run.model->data(0)), expectedStore(expectedTimes, set0));
        QV_COMPARE_BYTES(storeBytes(*run.model->data(1)), expectedStore(expectedTimes, set1));
        QCOMPARE(run.model->data(2)->count, 0);
    }

    void timeRange_data()
    {
        QTest::addColumn<QByteArrayList>("times");
        QTest::addColumn<qint64>("first");
        QTest::addColumn<qint64>("last");
        QTest::addColumn<int>("interval");
        QTest::addColumn<int>("inRange");

        const qint64 t0 = referenceTime("01.06.2021 12:00:00");
        // An empty store: first and last are 0, and so is the interval.
        QTest::newRow("no samples") << QByteArrayList() << qint64(0) << qint64(0) << 0 << 0;
        // One or two samples: the interval reaches into the zeroed part of the store.
        QTest::newRow("one sample") << QByteArrayList{"01.06.2021 12:00:00"} << t0 << t0 << int(-t0 / 1000) << 1;
        QTest::newRow("two samples") << QByteArrayList{"01.06.2021 11:59:00", "01.06.2021 12:00:00"} << t0 - 60000 << t0
                                     << int(-t0 / 1000) << 2;
        QTest::newRow("the middle pair decides")
            << QByteArrayList{"01.06.2021 12:00:00", "01.06.2021 12:01:00", "01.06.2021 12:11:00",
                              "01.06.2021 12:41:00", "01.06.2021 12:42:00"}
            << t0 << t0 + 42 * 60000 << 1800 << 5;
        QTest::newRow("even count: n/2 and n/2 + 1")
            << QByteArrayList{"01.06.2021 12:00:00", "01.06.2021 12:00:10", "01.06.2021 12:00:30",
                              "01.06.2021 12:01:00"}
            << t0 << t0 + 60000 << 30 << 4;
        QTest::newRow("range counts only times between the first and the last")
            << QByteArrayList{"01.06.2021 12:00:00", "01.06.2021 11:00:00", "01.06.2021 13:00:00",
                              "01.06.2021 12:30:00"}
            << t0 << t0 + 1800000 << -1800 << 2;
    }

    void timeRange()
    {
        QFETCH(QByteArrayList, times);
        QFETCH(qint64, first);
        QFETCH(qint64, last);
        QFETCH(int, interval);
        QFETCH(int, inRange);

        QByteArray file = "K\nZeit;A\n";
        for (const QByteArray &t : times)
            file += t + ";1\n";
        CsvFolder folder;
        const ImportRun run = importCsv(folder.write(QStringLiteral("t.csv"), file));
        QVERIFY(run.result.ok);
        const settingsT &s = run.model->settings;
        QCOMPARE(s.firstTime, first);
        QCOMPARE(s.lastTime, last);
        QCOMPARE(s.rangeBegin, first);
        QCOMPARE(s.viewBegin, first);
        QCOMPARE(s.rangeEnd, last);
        QCOMPARE(s.viewEnd, last);
        QCOMPARE(s.sampleInterval, interval);
        QCOMPARE(s.rangeSampleCount, inRange);
    }

    void axisRange_data()
    {
        QTest::addColumn<QByteArrayList>("values");
        QTest::addColumn<double>("axisMin");
        QTest::addColumn<double>("axisMax");

        QTest::newRow("no samples") << QByteArrayList() << DBL_MAX << DBL_MAX;
        QTest::newRow("no valid value") << QByteArrayList{"x", "3131961357"} << DBL_MAX << DBL_MAX;
        // One value: margin 0.5, rounded half away from zero.
        QTest::newRow("one positive value") << QByteArrayList{"20"} << 20.0 << 21.0;
        QTest::newRow("0 to 100") << QByteArrayList{"0", "100", "50"} << -3.0 << 103.0;
        QTest::newRow("missing values skipped") << QByteArrayList{"x", "12.5", "3131961357", "17.25"} << 12.0 << 18.0;
    }

    void axisRange()
    {
        QFETCH(QByteArrayList, values);
        QFETCH(double, axisMin);
        QFETCH(double, axisMax);

        QByteArray file = "K\nZeit;A;B\n";
        for (const QByteArray &v : values)
            file += "01.01.2021 00:00:00;" + v + ";5\n";
        CsvFolder folder;
        const ImportRun run = importCsv(folder.write(QStringLiteral("a.csv"), file));
        QVERIFY(run.result.ok);
        QV_COMPARE_DOUBLE(run.model->settings.axisMin[0], axisMin);
        QV_COMPARE_DOUBLE(run.model->settings.axisMax[0], axisMax);
        if (!values.isEmpty()) {
            QV_COMPARE_DOUBLE(run.model->settings.axisMin[1], 5.0);
            QV_COMPARE_DOUBLE(run.model->settings.axisMax[1], 6.0);
        }
    }

    // The whole record of an ordinary import, built field by field.
    void recordBytes()
    {
        CsvFolder folder;
        const QByteArray file = lines({"Keller Nord", "Datum Zeit;Temp;Feuchte;", "01.12.2020 10:00:00;12.50;81",
                                       "01.12.2020 10:10:00;12.25;x", "01.12.2020 10:20:00;11.75;79.5"});
        ScriptedHost host;
        const ImportRun run = importCsv(folder.write(QStringLiteral("k.csv"), file), host);
        QVERIFY(run.result.ok);

        const qint64 t0 = referenceTime("01.12.2020 10:00:00");
        settingsT e = freshSettings(*run.model);
        g_qString2Buffer(e.description, QStringLiteral("Keller Nord"), kDescriptionWidth);
        e.dataSetCount = 2;
        g_qString2Buffer(e.name[0], QStringLiteral("Temp"), kNameWidth);
        g_qString2Buffer(e.name[1], QStringLiteral("Feuchte"), kNameWidth);
        e.decimals[0] = 2;
        e.decimals[1] = 0;
        e.valueType[0] = e.valueType[1] = 8;
        e.lineFlags[0] = 2;  // shown bit moved into the ticked box
        e.lineFlags[1] = 2;
        e.axisMin[0] = std::round(11.75 - 0.75 * 0.02 - 0.5);
        e.axisMax[0] = std::round(12.5 + 0.75 * 0.02 + 0.5);
        e.axisMin[1] = std::round(79.5 - 1.5 * 0.02 - 0.5);
        e.axisMax[1] = std::round(81 + 1.5 * 0.02 + 0.5);
        e.firstTime = e.rangeBegin = e.viewBegin = t0;
        e.lastTime = e.rangeEnd = e.viewEnd = t0 + 1200000;
        e.rangeSampleCount = 3;
        e.sampleInterval = 600;
        QV_COMPARE_BYTES(qvtest::recordBytes(run.model->settings), qvtest::recordBytes(e));

        const QVector<qint64> times{t0, t0 + 600000, t0 + 1200000};
        QV_COMPARE_BYTES(storeBytes(*run.model->data(0)), expectedStore(times, {12.5, 12.25, 11.75}));
        QV_COMPARE_BYTES(storeBytes(*run.model->data(1)), expectedStore(times, {81, kMissingValue, 79.5}));
        for (int i = 0; i < kMaxDataSets; ++i) {
            QCOMPARE(run.model->row[i].enabled, i < 2);
            QCOMPARE(run.model->row[i].checked, i < 2);
        }
        QCOMPARE(run.model->modeBoxVisible, false);
        QCOMPARE(run.model->modeCodes()->count, 0);
        QVERIFY(host.questions.isEmpty());
    }

    void progress()
    {
        CsvFolder folder;
        ScriptedHost host;
        importCsv(folder.write(QStringLiteral("p.csv"), lines({"K", "Zeit;A;B", "01.01.2021 00:00:00;1;2",
                                                                "01.01.2021 00:01:00;1;2", "01.01.2021 00:02:00;1;2"})),
                  host);
        const QVector<QPair<int, int>> expected{{1, 255}, {0, 255}, {1, 255}, {2, 255}, {223, 255}, {255, 255}};
        QCOMPARE(host.progressCalls, expected);

        // The row counter stops at 256, so the main bar stops at 191.
        QByteArray many = "K\nZeit;A\n";
        for (int k = 0; k < 300; ++k)
            many += "01.01.2021 00:00:00;1\n";
        ScriptedHost host2;
        importCsv(folder.write(QStringLiteral("many.csv"), many), host2);
        QCOMPARE(host2.progressCalls.size(), 1 + 300 + 1);
        QCOMPARE(host2.progressCalls.at(255), qMakePair(190, 255));
        QCOMPARE(host2.progressCalls.at(256), qMakePair(191, 255));
        QCOMPARE(host2.progressCalls.at(300), qMakePair(191, 255));
        QCOMPARE(host2.progressCalls.last(), qMakePair(255, 255));
    }

    // A failure returns its text and leaves what was written before it.
    void failuresKeep()
    {
        CsvFolder folder;
        auto prepared = [] {
            auto m = std::make_unique<ChartModel>();
            g_qString2Buffer(m->settings.description, QStringLiteral("vorher"), kDescriptionWidth);
            m->data(3)->count = 5;
            m->data(3)->value[4] = 1.5;
            return m;
        };
        ScriptedHost host;

        auto m = prepared();
        FileResult r = g_importControllerCsv(folder.path(QStringLiteral("missing.csv")), *m, host);
        QVERIFY(!r.ok);
        QCOMPARE(QByteArray(r.message), QByteArray("Error reading file!"));
        QVERIFY(r.critical());
        QCOMPARE(QByteArray(m->settings.description), QByteArray("vorher"));
        QVERIFY(host.progressCalls.isEmpty());

        m = prepared();
        r = g_importControllerCsv(folder.write(QStringLiteral("t.csv"), lines({QByteArray(40, 'T'), "Zeit;A"})), *m, host);
        QCOMPARE(QByteArray(r.message), QByteArray("Error in CSV title line 1 !"));
        QVERIFY(!r.critical());
        QCOMPARE(QByteArray(m->settings.description), QByteArray("vorher"));
        QCOMPARE(m->data(3)->count, 5);

        m = prepared();
        r = g_importControllerCsv(folder.write(QStringLiteral("c.csv"), lines({"Neu", "Zeit"})), *m, host);
        QCOMPARE(QByteArray(r.message), QByteArray("Error in CSV line 2 !\nToo many columns."));
        QVERIFY(!r.critical());
        QCOMPARE(QByteArray(m->settings.description), QByteArray("Neu"));
        QCOMPARE(m->settings.dataSetCount, 0);
        QCOMPARE(m->data(3)->count, 5);  // the stores are cleared only after line 2
        QCOMPARE(m->row[0].enabled, false);

        // A good import clears every store, used or not.
        m = prepared();
        r = g_importControllerCsv(folder.write(QStringLiteral("g.csv"), lines({"Neu", "Zeit;A", "01.01.2021 00:00:00;1"})),
                                  *m, host);
        QVERIFY(r.ok);
        QCOMPARE(m->data(3)->count, 0);
        QV_COMPARE_DOUBLE(m->data(3)->value[4], 0.0);
    }
};

QTEST_GUILESS_MAIN(TestCsvImport)
#include "tst_csvimport.moc"

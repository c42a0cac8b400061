// vaporix-VIS CSV import: every header check with what it leaves in the
// model, the title, the parameter block, values, states, the end of the data,
// the interval, the plausibility limits, the sample limit and the bytes of a
// whole import.
#include "csvtesthelpers.h"
#include "support/testsupport.h"
#include "visfile.h"

#include "import/visimport.h"

#include <QtTest>

#include <cstring>

using namespace qv;
using namespace qvtest;

namespace {

const QByteArrayList kValues{"20.5", "65", "9.8", "5.0", "80", "4.5"};

qint64 localMs(int y, int mo, int d, int h, int mi)
{
    return QDateTime(QDate(y, mo, d), QTime(h, mi)).toMSecsSinceEpoch();
}

ImportRun importVis(const QByteArray &bytes, ScriptedHost &host)
{
    CsvFolder folder;
    ImportRun run;
    run.result = g_importVisCsv(folder.write(QStringLiteral("vis.csv"), bytes), *run.model, host);
    return run;
}

ImportRun importVis(const QByteArray &bytes)
{
    ScriptedHost host;
    return importVis(bytes, host);
}

// A file with the given data lines after a well-formed header.
QByteArray withData(const QByteArrayList &lines)
{
    VisFile f;
    f.data = lines;
    return f.bytes();
}

QByteArray field(const char *text, int width)
{
    QByteArray f(text);
    return f + QByteArray(width - f.size(), '\0');
}

QByteArray raw(const void *p, int size)
{
    return QByteArray(static_cast<const char *>(p), size);
}

const char kTitle[] = "vaporix-VIS Kellerklima - Keller Nord";

}  // namespace

class TestVisImport : public QObject
{
    Q_OBJECT

private slots:
    void headerErrors_data()
    {
        QTest::addColumn<int>("line");
        QTest::addColumn<QByteArray>("content");
        QTest::addColumn<QByteArray>("message");
        QTest::addColumn<QByteArray>("title");  // what the description holds after the error
        QTest::addColumn<bool>("parameters");   // line 5 was stored

        const QByteArray noLine1 = "Error in CSV line 1 !\nNo vaporix-Vis sampling.";
        QTest::newRow("empty file") << 0 << QByteArray() << noLine1 << QByteArray() << false;
        QTest::newRow("UTF-8 BOM in line 1") << 1 << QByteArray("\xEF\xBB\xBF\n") << noLine1 << QByteArray() << false;
        QTest::newRow("CR LF at line 2") << 2 << padded("vaporix-VIS Kellerklima", 48) + "\r\n"
                                         << QByteArray("Error in CSV title line 2 !") << QByteArray() << false;
        QTest::newRow("line 2 short") << 2 << padded("T", 47) + '\n' << QByteArray("Error in CSV title line 2 !")
                                      << QByteArray() << false;
        QTest::newRow("line 3 long") << 3 << padded("Keller Nord", 17) + '\n'
                                     << QByteArray("Error in CSV title line 3 !") << QByteArray("vaporix-VIS Kellerklima - ")
                                     << false;
        QTest::newRow("line 3 short") << 3 << padded("Keller", 15) + '\n'
                                      << QByteArray("Error in CSV title line 3 !") << QByteArray("vaporix-VIS Kellerklima - ")
                                      << false;
        QTest::newRow("line 4 83 bytes") << 4 << padded("V", 82) + '\n' << QByteArray("Error in CSV title line 4 !")
                                         << QByteArray(kTitle) << false;
        QTest::newRow("line 4 85 bytes") << 4 << padded("V", 84) + '\n' << QByteArray("Error in CSV title line 4 !")
                                         << QByteArray(kTitle) << false;
        QTest::newRow("line 5 39 bytes") << 5 << padded("1;2;3;4;5;6;7;8;9;0:10:00", 38) + '\n'
                                         << QByteArray("Error in CSV title line 5 !") << QByteArray(kTitle) << false;
        QTest::newRow("line 5 nine fields") << 5 << padded("1;2;3;4;5;6;7;8;0:10:00", 39) + '\n'
                                            << QByteArray("Error in CSV line 5 !\nToo many columns.") << QByteArray(kTitle)
                                            << false;
        QTest::newRow("line 7 191 bytes") << 7 << padded("a;b;c;d;e;f;g;h;i", 190) + '\n'
                                          << QByteArray("Error in CSV title line 7 !") << QByteArray(kTitle) << true;
        // The terminator belongs to the last field: ten fields even with it.
        QTest::newRow("line 7 ten fields") << 7 << padded("a;b;c;d;e;f;g;h;i;", 191) + '\n'
                                           << QByteArray("Error in CSV line 7 !\nToo many columns.") << QByteArray(kTitle)
                                           << true;
        // No line is read beyond 9 x 256 bytes: one that long fails its own check.
        QTest::newRow("zero bytes without a line end") << 1 << QByteArray(3 << 20, '\0') << noLine1 << QByteArray()
                                                       << false;
        QTest::newRow("line 2 of megabytes") << 2 << QByteArray(3 << 20, 'T') + '\n'
                                             << QByteArray("Error in CSV title line 2 !") << QByteArray() << false;
        QTest::newRow("line 6 beyond the bound") << 6 << QByteArray(9 * 256, ';') + '\n'
                                                 << QByteArray("Error in CSV title line 7 !") << QByteArray(kTitle)
                                                 << true;
        QTest::newRow("line 7 eight fields") << 7 << padded("a;b;c;d;e;f;g;h", 191) + '\n'
                                             << QByteArray("Error in CSV line 7 !\nToo many columns.")
                                             << QByteArray(kTitle) << true;
    }

    void headerErrors()
    {
        QFETCH(int, line);
        QFETCH(QByteArray, content);
        QFETCH(QByteArray, message);
        QFETCH(QByteArray, title);
        QFETCH(bool, parameters);

        VisFile f;
        f.data = QByteArrayList{dataLine("01.02.2021", "10:00", kValues, "OPTIMAL   ")};
        QByteArray *lines[] = {&f.line1, &f.line2, &f.line3, &f.line4, &f.line5, &f.line6, &f.line7};
        QByteArray bytes;
        if (line > 0) {
            *lines[line - 1] = content;
            bytes = f.bytes();
        }
        const ImportRun run = importVis(bytes);
        QVERIFY(!run.result.ok);
        QCOMPARE(QByteArray(run.result.message), message);
        QVERIFY(!run.result.critical());

        // Nothing but the title and, once line 5 passed, the parameters change.
        settingsT expected = freshSettings(*run.model);
        std::memcpy(expected.description, field(title.constData(), kDescriptionWidth).constData(), kDescriptionWidth);
        modeParametersT block{};
        if (parameters) {
            expected.sampleInterval = 600;
            const double p[7] = {55, 75, 8.0, 18.5, 3.0, 2.5, 1.5};
            std::memcpy(block.parameter, p, sizeof p);
            block.intParameter[0] = 1;
            block.intParameter[3] = 2;
            block.interval = 600;
        }
        QV_COMPARE_BYTES(recordBytes(run.model->settings), recordBytes(expected));
        QV_COMPARE_BYTES(raw(run.model->modeParameters(), 256), raw(&block, 256));
        QCOMPARE(run.model->data(0)->count, 0);
        QCOMPARE(run.model->modeCodes()->count, 0);
        QVERIFY(!run.model->row[0].enabled);
        QVERIFY(!run.model->modeBoxVisible);
    }

    void title_data()
    {
        QTest::addColumn<QByteArray>("deviceTitle");  // 48 bytes
        QTest::addColumn<QByteArray>("deviceName");   // 16 bytes
        QTest::addColumn<QByteArray>("title");

        QTest::newRow("blanks trimmed") << padded("Kellerklima  Nord", 48) << padded("VIS 0815", 16)
                                        << QByteArray("Kellerklima  Nord - VIS 0815");
        // Position 0 is never looked at: it stays a blank, the separator follows.
        QTest::newRow("48 blanks") << padded("", 48) << padded("VIS 0815", 16) << QByteArray("  - VIS 0815");
        QTest::newRow("one character") << padded("K", 48) << padded("VIS 0815", 16) << QByteArray("K - VIS 0815");
        QTest::newRow("full width") << QByteArray(48, 'T') << QByteArray(16, 'N')
                                    << QByteArray(48, 'T') + " - " + QByteArray(16, 'N');
        QTest::newRow("blank name") << padded("Keller", 48) << padded("", 16) << QByteArray("Keller -");
        QTest::newRow("title up to a zero byte") << padded(QByteArray("Kel\0ler", 7), 48) << padded("N", 16)
                                                 << QByteArray("Kel - N");
    }

    void title()
    {
        QFETCH(QByteArray, deviceTitle);
        QFETCH(QByteArray, deviceName);
        QFETCH(QByteArray, title);

        VisFile f;
        f.line2 = deviceTitle + '\n';
        f.line3 = deviceName + '\n';
        const ImportRun run = importVis(f.bytes());
        QVERIFY(run.result.ok);
        QV_COMPARE_BYTES(raw(run.model->settings.description, kDescriptionWidth), field(title.constData(), 128));
    }

    void parameters_data()
    {
        QTest::addColumn<QByteArrayList>("fields");
        QTest::addColumn<QVector<double>>("expected");  // bytes 0 to 48
        QTest::addColumn<int>("seconds");

        QTest::newRow("unconvertible and blank fields") << QByteArrayList{"a", "-1.25", "", "5 5", "1,5", "1e1", "x", "",
                                                                          "", "1:00:00"}
                                                        << QVector<double>{0, 0, 0, -1.25, 0, 10, 0} << 3600;
        QTest::newRow("interval with seconds") << QByteArrayList{"1", "2", "3", "4", "5", "6", "7", "", "", "0:00:45"}
                                               << QVector<double>{4, 5, 1, 2, 3, 6, 7} << 45;
        QTest::newRow("invalid interval") << QByteArrayList{"1", "2", "3", "4", "5", "6", "7", "", "", "0:61:00"}
                                          << QVector<double>{4, 5, 1, 2, 3, 6, 7} << 0;
    }

    void parameters()
    {
        QFETCH(QByteArrayList, fields);
        QFETCH(QVector<double>, expected);
        QFETCH(int, seconds);

        VisFile f;
        f.line5 = parameterLine(fields);
        CsvFolder folder;
        ImportRun run;
        // The sensor offsets at bytes 56 to 80 are not the import's to write.
        modeParametersT block{};
        for (int i = 7; i < 11; ++i)
            block.parameter[i] = run.model->modeParameters()->parameter[i] = i * 0.5;
        ScriptedHost host;
        run.result = g_importVisCsv(folder.write(QStringLiteral("p.csv"), f.bytes()), *run.model, host);
        QVERIFY(run.result.ok);

        std::memcpy(block.parameter, expected.constData(), 7 * sizeof(double));
        block.intParameter[0] = 1;
        block.intParameter[3] = 2;
        block.interval = seconds;
        QV_COMPARE_BYTES(raw(run.model->modeParameters(), 256), raw(&block, 256));
        QCOMPARE(run.model->settings.sampleInterval, seconds);  // no samples: the header interval stays
    }

    void wholeImport()
    {
        const QByteArray states[4] = {"OPTIMAL   ", "L\xDC" "FTEN EIN", "ZU WARM   ", "FROST     "};
        QByteArrayList lines;
        QVector<qint64> times;
        QVector<QVector<double>> values(6);
        for (int k = 0; k < 4; ++k) {
            const QByteArray hour = QByteArray::number(8 + k).rightJustified(2, '0');
            QByteArrayList v;
            for (int i = 0; i < 6; ++i) {
                const double x = (i == 1 || i == 4 ? 50 : 10) + k * 0.25 + i;
                v << QByteArray::number(x);
                values[i] << x;
            }
            lines << dataLine("30.11.2021", hour + ":30", v, states[k]);
            times << localMs(2021, 11, 30, 8 + k, 30);
        }
        ScriptedHost host;
        const ImportRun run = importVis(withData(lines), host);
        QVERIFY(run.result.ok);
        QVERIFY(host.warnings.isEmpty());
        QCOMPARE(host.progressCalls.first(), qMakePair(1, 255));

        settingsT s = freshSettings(*run.model);
        s.flags = 3;
        s.dataSetCount = 6;
        const quint32 flags[6] = {7, 3, 3, 1, 1, 1};
        const char *names[6] = {"Temperatur Innen", "rel. Feuchte Innen", "abs. Feuchte Innen",
                                "Temperatur Aussen", "rel. Feuchte Aussen", "abs. Feuchte Aussen"};
        const char *units[6] = {"\xB0" "C", "%", "g/kg", "\xB0" "C", "%", "g/kg"};
        const quint8 decimals[6] = {1, 0, 1, 1, 0, 1};
        const double low[6] = {-15, 0, 0, -15, 0, 0}, high[6] = {35, 100, 20, 35, 100, 20};
        for (int i = 0; i < 6; ++i) {
            s.lineFlags[i] = flags[i];
            s.valueType[i] = 8;
            s.decimals[i] = decimals[i];
            s.axisMin[i] = low[i];
            s.axisMax[i] = high[i];
            std::memcpy(s.name[i], field(names[i], 32).constData(), 32);
            std::memcpy(s.unit[i], field(units[i], 8).constData(), 8);
        }
        std::memcpy(s.description, field(kTitle, 128).constData(), 128);
        s.firstTime = s.rangeBegin = s.viewBegin = times.first();
        s.lastTime = s.rangeEnd = s.viewEnd = times.last();
        s.rangeSampleCount = 4;
        s.sampleInterval = 3600;  // from the first two samples, not the header's 600
        s.hasModeData = 1;
        QV_COMPARE_BYTES(recordBytes(run.model->settings), recordBytes(s));

        for (int i = 0; i < 6; ++i)
            QV_COMPARE_BYTES(storeBytes(*run.model->data(i)), expectedStore(times, values[i]));
        for (int i = 6; i < 16; ++i)
            QCOMPARE(run.model->data(i)->count, 0);
        QCOMPARE(run.model->modeCodes()->count, 4);
        QCOMPARE(raw(run.model->modeCodes()->code, 5), QByteArray("\x05\x0C\x04\x02\x00", 5));
        for (int i = 0; i < 16; ++i)
            QCOMPARE(run.model->row[i].enabled && run.model->row[i].checked, i < 6);
        QVERIFY(run.model->modeBoxVisible && run.model->modeBoxChecked);
    }

    void values_data()
    {
        QTest::addColumn<QByteArray>("text");  // outside temperature: 0.0 passes its limits
        QTest::addColumn<double>("value");

        QTest::newRow("plain") << QByteArray("-3.5") << -3.5;
        QTest::newRow("inner blank") << QByteArray("2 1.5") << 21.5;
        QTest::newRow("blanks everywhere") << QByteArray(" - 3 . 2 5 ") << -3.25;
        QTest::newRow("comma") << QByteArray("1,5") << 0.0;
        QTest::newRow("text") << QByteArray("n/a") << 0.0;
        QTest::newRow("empty") << QByteArray() << 0.0;
        QTest::newRow("long field") << QByteArray(80, ' ') + "2." + QByteArray(80, '0') + "5" << 2.0;
    }

    void values()
    {
        QFETCH(QByteArray, text);
        QFETCH(double, value);

        QByteArrayList v = kValues;
        v[3] = text;
        const ImportRun run = importVis(withData({dataLine("01.02.2021", "10:00", v, "OPTIMAL   ")}));
        QVERIFY(run.result.ok);
        QV_COMPARE_DOUBLE(run.model->data(3)->value[0], value);
    }

    void states_data()
    {
        QTest::addColumn<QByteArray>("state");
        QTest::addColumn<QByteArray>("terminator");
        QTest::addColumn<int>("code");

        QTest::newRow("FROST") << QByteArray("FROST     ") << QByteArray("\n") << 2;
        QTest::newRow("ZU KALT") << QByteArray("ZU KALT   ") << QByteArray("\n") << 3;
        QTest::newRow("ZU WARM") << QByteArray("ZU WARM   ") << QByteArray("\n") << 4;
        QTest::newRow("OPTIMAL") << QByteArray("OPTIMAL   ") << QByteArray("\n") << 5;
        QTest::newRow("LUEFTEN AUS") << QByteArray("L\xDC" "FTEN AUS") << QByteArray("\n") << 6;
        QTest::newRow("ERR INNEN") << QByteArray("ERR INNEN ") << QByteArray("\n") << 8;
        QTest::newRow("ERR AUSSEN") << QByteArray("ERR AUSSEN") << QByteArray("\n") << 9;
        QTest::newRow("LUEFTEN EIN") << QByteArray("L\xDC" "FTEN EIN") << QByteArray("\n") << 12;
        QTest::newRow("unknown") << QByteArray("STANDBY   ") << QByteArray("\n") << 0;
        QTest::newRow("without trailing blanks") << QByteArray("OPTIMAL") << QByteArray("\n") << 0;
        QTest::newRow("CR left by a CR LF file") << QByteArray("OPTIMAL   ") << QByteArray("\r\n") << 0;
        // The last byte of a last line without terminator is cut all the same.
        QTest::newRow("last line without terminator") << QByteArray("OPTIMAL   ") << QByteArray() << 0;
    }

    void states()
    {
        QFETCH(QByteArray, state);
        QFETCH(QByteArray, terminator);
        QFETCH(int, code);

        QByteArray last = dataLine("01.02.2021", "10:10", kValues, state);
        last.chop(1);
        const ImportRun run =
            importVis(withData({dataLine("01.02.2021", "10:00", kValues, "FROST     "), last + terminator}));
        QVERIFY(run.result.ok);
        QCOMPARE(run.model->modeCodes()->count, 2);
        QCOMPARE(int(run.model->modeCodes()->code[0]), 2);
        QCOMPARE(int(run.model->modeCodes()->code[1]), code);
        QV_COMPARE_DOUBLE(run.model->data(5)->value[1], 4.5);
    }

    void dataEnd_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<int>("count");

        const QByteArray good = dataLine("01.02.2021", "10:20", kValues, "OPTIMAL   ");
        QTest::newRow("eight fields") << QByteArray("01.02.2021;10:20;1;2;3;4;5;6\n") << 2;
        QTest::newRow("ten fields") << QByteArray(good).insert(good.size() - 1, ';') << 2;
        QTest::newRow("empty line") << QByteArray("\n") << 2;
        QTest::newRow("nine fields") << good << 4;
        // Blanks in a value are dropped; the line is 9 x 256 bytes, then one more.
        const int blanksAt = good.indexOf(';', 11) + 1;
        QTest::newRow("nine fields at the bound") << QByteArray(good).insert(blanksAt, QByteArray(9 * 256 - good.size(), ' '))
                                                  << 4;
        QTest::newRow("nine fields beyond the bound")
            << QByteArray(good).insert(blanksAt, QByteArray(9 * 256 + 1 - good.size(), ' ')) << 2;
    }

    void dataEnd()
    {
        QFETCH(QByteArray, line);
        QFETCH(int, count);

        const ImportRun run = importVis(withData({dataLine("01.02.2021", "10:00", kValues, "OPTIMAL   "),
                                                  dataLine("01.02.2021", "10:10", kValues, "OPTIMAL   "), line,
                                                  dataLine("01.02.2021", "10:30", kValues, "OPTIMAL   ")}));
        QVERIFY(run.result.ok);
        for (int i = 0; i < 6; ++i)
            QCOMPARE(run.model->data(i)->count, count);
        QCOMPARE(run.model->modeCodes()->count, count);
        QCOMPARE(run.model->settings.lastTime, run.model->data(0)->time[count - 1]);
    }

    void interval_data()
    {
        QTest::addColumn<QByteArrayList>("stamps");  // "date;time" of the samples
        QTest::addColumn<qint64>("interval");        // -1: the time of the single sample, negated, in seconds
        QTest::addColumn<int>("inRange");

        QTest::newRow("same minute keeps the header") << QByteArrayList{"01.02.2021;10:00", "01.02.2021;10:00"}
                                                      << qint64(600) << 2;
        QTest::newRow("five minutes") << QByteArrayList{"01.02.2021;10:00", "01.02.2021;10:05"} << qint64(300) << 2;
        QTest::newRow("backwards") << QByteArrayList{"01.02.2021;10:05", "01.02.2021;10:00"} << qint64(-300) << 0;
        QTest::newRow("one sample") << QByteArrayList{"01.02.2021;10:00"} << qint64(-1) << 1;
        QTest::newRow("no sample") << QByteArrayList{} << qint64(600) << 0;
        // Invalid stamps keep the value QDateTime gives them.
        QTest::newRow("invalid date") << QByteArrayList{"31.02.2021;10:00", "01.02.2021;10:00"}
                                      << (localMs(2021, 2, 1, 10, 0) -
                                          QDateTime(QDate(), QTime(10, 0)).toMSecsSinceEpoch()) / 1000
                                      << 2;
        QTest::newRow("invalid time means midnight") << QByteArrayList{"01.02.2021;24:00", "01.02.2021;10:00"}
                                                     << qint64(36000) << 2;
        const qint64 skipped = localMs(2021, 3, 28, 2, 30) - localMs(2021, 3, 28, 0, 30);
        QTest::newRow("skipped local hour") << QByteArrayList{"28.03.2021;00:30", "28.03.2021;02:30"} << skipped / 1000
                                            << 2;
    }

    void interval()
    {
        QFETCH(QByteArrayList, stamps);
        QFETCH(qint64, interval);
        QFETCH(int, inRange);

        QByteArrayList lines;
        for (const QByteArray &stamp : stamps)
            lines << stamp + ';' + kValues.join(';') + ";OPTIMAL   \n";
        const ImportRun run = importVis(withData(lines));
        QVERIFY(run.result.ok);
        const settingsT &s = run.model->settings;
        if (interval == -1)
            interval = -localMs(2021, 2, 1, 10, 0) / 1000;
        QCOMPARE(qint64(s.sampleInterval), interval);
        QCOMPARE(s.firstTime, run.model->data(0)->time[0]);
        QCOMPARE(s.rangeSampleCount, inRange);
    }

    void plausibility_data()
    {
        QTest::addColumn<int>("set");
        QTest::addColumn<QByteArray>("text");
        QTest::addColumn<int>("invalid");  // 0 none, 1 inside group, 2 outside group

        QTest::newRow("abs. inside 50.0") << 2 << QByteArray("50.0") << 0;
        QTest::newRow("abs. inside 50.01") << 2 << QByteArray("50.01") << 1;
        QTest::newRow("abs. inside 0.5") << 2 << QByteArray("0.5") << 0;
        QTest::newRow("abs. inside 0.49") << 2 << QByteArray("0.49") << 1;
        QTest::newRow("abs. inside unreadable") << 2 << QByteArray("x") << 1;
        QTest::newRow("abs. outside 50.01") << 5 << QByteArray("50.01") << 2;
        QTest::newRow("temp. outside -40.0") << 3 << QByteArray("-40.0") << 0;
        QTest::newRow("temp. outside -40.01") << 3 << QByteArray("-40.01") << 2;
        QTest::newRow("temp. inside -10.0") << 0 << QByteArray("-10.0") << 0;
        QTest::newRow("temp. inside -10.01") << 0 << QByteArray("-10.01") << 1;
        QTest::newRow("temp. inside -40.0") << 0 << QByteArray("-40.0") << 1;
        QTest::newRow("rel. inside 4.99") << 1 << QByteArray("4.99") << 1;
        QTest::newRow("rel. outside 100.0") << 4 << QByteArray("100.0") << 0;
        QTest::newRow("rel. outside 100.01") << 4 << QByteArray("100.01") << 2;
    }

    void plausibility()
    {
        QFETCH(int, set);
        QFETCH(QByteArray, text);
        QFETCH(int, invalid);

        QByteArrayList v = kValues;
        v[set] = text;
        const ImportRun run = importVis(withData({dataLine("01.02.2021", "10:00", kValues, "OPTIMAL   "),
                                                  dataLine("01.02.2021", "10:10", v, "OPTIMAL   ")}));
        QVERIFY(run.result.ok);
        for (int i = 0; i < 6; ++i) {
            const bool gone = invalid == (i < 3 ? 1 : 2);
            QV_COMPARE_DOUBLE(run.model->data(i)->value[1], gone ? kMissingValue : i == set ? text.toDouble()
                                                                                              : kValues[i].toDouble());
            QV_COMPARE_DOUBLE(run.model->data(i)->value[0], kValues[i].toDouble());
        }
    }

    void sampleLimit_data()
    {
        QTest::addColumn<int>("lines");
        QTest::addColumn<int>("count");
        QTest::addColumn<bool>("warned");

        QTest::newRow("262143 lines") << 262143 << 262143 << false;
        QTest::newRow("262144 lines: all, with the warning") << 262144 << 262144 << true;
        QTest::newRow("262145 lines") << 262145 << 262144 << true;
    }

    void sampleLimit()
    {
        QFETCH(int, lines);
        QFETCH(int, count);
        QFETCH(bool, warned);

        VisFile f;
        QByteArray bytes = f.bytes();
        bytes.reserve(bytes.size() + lines * 60);
        QDate day(2019, 1, 1);
        char buffer[64];
        for (int k = 0; k < lines; ++k) {
            const int minute = k % 1440;
            if (k > 0 && minute == 0)
                day = day.addDays(1);
            std::snprintf(buffer, sizeof buffer, "%02d.%02d.%04d;%02d:%02d;", day.day(), day.month(), day.year(),
                          minute / 60, minute % 60);
            bytes += buffer;
            bytes += QByteArray::number(k % 1000) + ";65;9.8;5.0;80;4.5;OPTIMAL   \n";
        }
        ScriptedHost host;
        const ImportRun run = importVis(bytes, host);
        QVERIFY(run.result.ok);
        QCOMPARE(host.warnings,
                 warned ? QStringList{QStringLiteral("File is containing too many data. Please contact Merovin.")}
                        : QStringList());
        QCOMPARE(run.model->data(5)->count, count);
        QCOMPARE(run.model->modeCodes()->count, count);
        QCOMPARE(int(run.model->modeCodes()->code[count - 1]), 5);
        const int last = count - 1;
        QV_COMPARE_DOUBLE(run.model->data(0)->value[last], last % 1000 <= 50 ? double(last % 1000) : kMissingValue);
        const QDateTime lastTime(QDate(2019, 1, 1).addDays(last / 1440), QTime(last % 1440 / 60, last % 60));
        QCOMPARE(run.model->settings.lastTime, lastTime.toMSecsSinceEpoch());
        QCOMPARE(host.progressCalls.last(), qMakePair((count * 255) >> 18, 255));
    }

    void unreadableFile()
    {
        ChartModel model;
        ScriptedHost host;
        const FileResult r = g_importVisCsv(QStringLiteral("/nonexistent/vis.csv"), model, host);
        QVERIFY(!r.ok);
        QVERIFY(r.critical());
        QCOMPARE(QByteArray(r.message), QByteArray("Error reading file!"));
    }
};

QTEST_GUILESS_MAIN(TestVisImport)
#include "tst_visimport.moc"

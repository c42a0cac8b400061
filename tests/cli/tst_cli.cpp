// quorvanta-cli as a user and a script see it: exit codes, messages, the
// bytes it writes and what info prints.
#include "support/testsupport.h"

#include "project/chartmodel.h"
#include "project/fixedstring.h"
#include "project/projectfile.h"

#include <QBuffer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

#include <unistd.h>

#include <cstring>
#include <memory>

using namespace qv;

namespace {

struct Run {
    int exitCode = -1;
    QString out;
    QString err;
};

Run cli(const QStringList &arguments)
{
    const qvtest::ProgramRun p = qvtest::runProgram(QStringLiteral(QV_CLI_PATH), arguments);
    return Run{p.exitCode, QString::fromUtf8(p.out), QString::fromUtf8(p.err)};
}

std::unique_ptr<ChartModel> sampleModel()
{
    auto m = std::make_unique<ChartModel>();
    settingsT &s = m->settings;
    s.dataSetCount = 2;
    g_char2Buffer(s.description, "Weinkeller S\xFC" "d", kDescriptionWidth);
    g_char2Buffer(s.name[0], "Temp In", kNameWidth);
    g_char2Buffer(s.unit[0], "\xB0" "C", kUnitWidth);
    g_char2Buffer(s.name[1], "Humidity In", kNameWidth);
    g_char2Buffer(s.unit[1], "%rH", kUnitWidth);
    s.decimals[0] = 1;
    s.decimals[1] = 2;
    for (int i = 0; i < 2; ++i) {
        _chartDataType &d = *m->data(i);
        d.count = 10;
        for (int k = 0; k < 10; ++k) {
            d.time[k] = 1763712000000 + qint64(k) * 60000;
            d.value[k] = i == 0 ? 10.0 + k : (k == 3 ? kMissingValue : 50.0 + k * 0.5);
        }
    }
    s.firstTime = s.rangeBegin = 1763712000000;
    s.lastTime = s.rangeEnd = 1763712000000 + 9 * 60000;
    s.rangeBegin += 60000;  // range holds samples 1..9
    s.sampleInterval = 60;
    m->recountRange();
    return m;
}

QString saveSample(const QString &path, ChartModel &model, quint32 changedTime = 77)
{
    SaveOptions o;
    o.changedTime = changedTime;
    return g_saveProjectFile(model, path, o).ok ? path : QString();
}

}  // namespace

class TestCli : public QObject
{
    Q_OBJECT

private slots:
    void usageErrors_data();
    void usageErrors();
    void readFailures_data();
    void readFailures();
    void infoText();
    void infoJson();
    void convertWritesWhatOpenAndSaveWrite();
    void convertRaisesVersion13Codes();
    void convertReportsWriteError();
    void convertOutputNames_data();
    void convertOutputNames();

private:
    QTemporaryDir m_dir;
};

void TestCli::usageErrors_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("reason");
    QTest::newRow("nothing") << QStringList() << "no command given";
    QTest::newRow("unknown command") << QStringList{QStringLiteral("show"), QStringLiteral("x.qvj")} << "unknown command";
    QTest::newRow("convert without output") << QStringList{QStringLiteral("convert"), QStringLiteral("x.qvj")}
                                            << "convert needs -o OUTPUT";
    QTest::newRow("no input") << QStringList{QStringLiteral("info")} << "no input file given";
    QTest::newRow("two inputs") << QStringList{QStringLiteral("info"), QStringLiteral("a.qvj"), QStringLiteral("b.qvj")}
                                << "more than one input file";
    QTest::newRow("bad type") << QStringList{QStringLiteral("info"), QStringLiteral("--type"), QStringLiteral("xls"),
                                             QStringLiteral("a.qvj")}
                              << "unknown type: xls";
    QTest::newRow("unknown option") << QStringList{QStringLiteral("info"), QStringLiteral("--fast"), QStringLiteral("a.qvj")}
                                    << "unknown option: --fast";
    QTest::newRow("json is for info") << QStringList{QStringLiteral("convert"), QStringLiteral("--json"),
                                                     QStringLiteral("a.qvj"), QStringLiteral("-o"), QStringLiteral("b.qvj")}
                                      << "unknown option: --json";
    QTest::newRow("unknown extension") << QStringList{QStringLiteral("info"), QStringLiteral("data.txt")}
                                       << "cannot tell the kind of data.txt";
    QTest::newRow("bad changed time") << QStringList{QStringLiteral("convert"), QStringLiteral("--changed-time"),
                                                     QStringLiteral("soon"), QStringLiteral("a.qvj"), QStringLiteral("-o"),
                                                     QStringLiteral("b.qvj")}
                                      << "--changed-time needs a number";
}

void TestCli::usageErrors()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, reason);
    const Run r = cli(arguments);
    QCOMPARE(r.exitCode, 2);
    QVERIFY2(r.err.contains(reason), qPrintable(r.err));
    QVERIFY(r.err.contains(QStringLiteral("Usage:")));
    QVERIFY(r.out.isEmpty());
}

void TestCli::readFailures_data()
{
    QTest::addColumn<QByteArray>("contents");  // empty: the file does not exist
    QTest::addColumn<QString>("message");
    QTest::newRow("missing file") << QByteArray() << "Error reading file!";
    QTest::newRow("not a project") << QByteArray("hello, world") << "File is no Quorvanta project!";
    QTest::newRow("damaged project")
        << qvtest::item(QByteArrayLiteral("Quorvanta Project - (C)2016 Merovin GmbH V1.4.000RS")) + QByteArray(10, 'x')
        << "Error in Quorvanta project!";
}

void TestCli::readFailures()
{
    QFETCH(QByteArray, contents);
    QFETCH(QString, message);
    const QString path = m_dir.filePath(QStringLiteral("in-%1.qvj").arg(QString::fromLatin1(QTest::currentDataTag()).replace(QLatin1Char(' '), QLatin1Char('-'))));
    if (!contents.isEmpty())
        QVERIFY(qvtest::writeFile(path, contents));
    const QString out = m_dir.filePath(QStringLiteral("out.qvj"));
    for (const QStringList &args : {QStringList{QStringLiteral("info"), path},
                                    QStringList{QStringLiteral("convert"), path, QStringLiteral("-o"), out}}) {
        const Run r = cli(args);
        QCOMPARE(r.exitCode, 1);
        QCOMPARE(r.err, message + QLatin1Char('\n'));
        QVERIFY(r.out.isEmpty());
    }
    QVERIFY(!QFile::exists(out));  // nothing written after a failed read
}

void TestCli::infoText()
{
    auto model = sampleModel();
    const QString path = saveSample(m_dir.filePath(QStringLiteral("text.qvj")), *model);
    const Run r = cli({QStringLiteral("info"), path});
    QCOMPARE(r.exitCode, 0);
    QVERIFY(r.err.isEmpty());
    QVERIFY2(r.out.contains(QStringLiteral("Title:        \"Weinkeller S\u00FCd\"")), qPrintable(r.out));
    QVERIFY(r.out.contains(QStringLiteral("Data sets:    2\n")));
    QVERIFY(r.out.contains(QStringLiteral("(9 samples)")));
    QVERIFY(r.out.contains(QStringLiteral("Interval:     60 s\n")));
    QVERIFY(r.out.contains(QStringLiteral("Data set 0: \"Temp In\" [\u00B0C]")));
    QVERIFY(r.out.contains(QStringLiteral("shown, axis left, colour #FF0088CC, width 1, decimals 1, value type 0")));
    // Range 1..9: min 11.0, avg 15.0, max 19.0
    QVERIFY(r.out.contains(QStringLiteral("in range: min 11.0 / avg 15.0 / max 19.0 \u00B0C (9 of 9 samples with a value)")));
    // Sample 3 of the humidity is missing and left out.
    QVERIFY(r.out.contains(QStringLiteral("min 50.50 / avg 52.63 / max 54.50 %rH (8 of 9 samples with a value)")));
}

void TestCli::infoJson()
{
    auto model = sampleModel();
    model->settings.hasModeData = 1;
    model->modeCodes()->count = 10;
    model->modeParameters()->interval = 60;
    const QString path = saveSample(m_dir.filePath(QStringLiteral("json.qvj")), *model);
    const Run r = cli({QStringLiteral("info"), QStringLiteral("--json"), path});
    QCOMPARE(r.exitCode, 0);
    QJsonParseError error{};
    const QJsonObject o = QJsonDocument::fromJson(r.out.toUtf8(), &error).object();
    QCOMPARE(error.error, QJsonParseError::NoError);
    QCOMPARE(o.value(QStringLiteral("description")).toString(), QStringLiteral("Weinkeller S\u00FCd"));
    QCOMPARE(o.value(QStringLiteral("changedTime")).toInt(), 77);
    QCOMPARE(o.value(QStringLiteral("dataSetCount")).toInt(), 2);
    QCOMPARE(o.value(QStringLiteral("rangeSampleCount")).toInt(), 9);
    QCOMPARE(o.value(QStringLiteral("viewBegin")).toDouble(), double(model->settings.rangeBegin));
    QCOMPARE(o.value(QStringLiteral("flags")).toInt(), 3);  // loading mode data shows the track
    const QJsonArray sets = o.value(QStringLiteral("dataSets")).toArray();
    QCOMPARE(sets.size(), 2);
    const QJsonObject humidity = sets.at(1).toObject();
    QCOMPARE(humidity.value(QStringLiteral("unit")).toString(), QStringLiteral("%rH"));
    QCOMPARE(humidity.value(QStringLiteral("color")).toDouble(), double(0xFFCC8800u));
    QCOMPARE(humidity.value(QStringLiteral("lineFlags")).toInt(), 3);
    QCOMPARE(humidity.value(QStringLiteral("count")).toInt(), 10);
    const QJsonObject range = humidity.value(QStringLiteral("range")).toObject();
    QCOMPARE(range.value(QStringLiteral("valid")).toInt(), 8);
    QCOMPARE(range.value(QStringLiteral("max")).toDouble(), 54.5);
    QCOMPARE(o.value(QStringLiteral("modeData")).toObject().value(QStringLiteral("interval")).toInt(), 60);
}

void TestCli::convertWritesWhatOpenAndSaveWrite()
{
    auto model = sampleModel();
    const QString in = saveSample(m_dir.filePath(QStringLiteral("in.qvj")), *model, 5);
    const QString out = m_dir.filePath(QStringLiteral("converted.qvj"));
    const Run r = cli({QStringLiteral("convert"), QStringLiteral("--changed-time"), QStringLiteral("1700000000"), in,
                       QStringLiteral("-o"), out});
    QCOMPARE(r.exitCode, 0);
    QVERIFY(r.err.isEmpty());

    // The desktop program's Open then Save, done with the same core calls.
    auto opened = std::make_unique<ChartModel>();
    QVERIFY(g_loadProjectFile(*opened, in, ProgressFn()).ok);
    QBuffer expected;
    expected.open(QIODevice::WriteOnly);
    SaveOptions o;
    o.changedTime = 1700000000;
    QVERIFY(g_writeProject(*opened, expected, o).ok);
    QV_COMPARE_BYTES(qvtest::readFile(out), expected.data());

    // Converting over an existing project keeps the old one as backup.
    const QByteArray first = qvtest::readFile(out);
    QCOMPARE(cli({QStringLiteral("convert"), in, QStringLiteral("-o"), out}).exitCode, 0);
    QCOMPARE(qvtest::readFile(m_dir.filePath(QStringLiteral("converted.bak"))), first);
}

void TestCli::convertRaisesVersion13Codes()
{
    auto model = sampleModel();
    model->settings.hasModeData = 1;
    model->modeCodes()->count = 3;
    model->modeCodes()->code[0] = 9;
    model->modeCodes()->code[1] = 10;
    model->modeCodes()->code[2] = 12;
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    SaveOptions o;
    QVERIFY(g_writeProject(*model, buffer, o).ok);
    QByteArray file = buffer.data();
    file[4 + 44] = '3';  // "V1.4" -> "V1.3"
    QVERIFY(file.startsWith(qvtest::item(g_projectHeader13())));
    const QString in = m_dir.filePath(QStringLiteral("old13.qvj"));
    QVERIFY(qvtest::writeFile(in, file));

    const QString out = m_dir.filePath(QStringLiteral("new14.qvj"));
    QCOMPARE(cli({QStringLiteral("convert"), in, QStringLiteral("-o"), out}).exitCode, 0);
    QVERIFY(qvtest::readFile(out).startsWith(qvtest::item(g_projectHeader14())));
    auto converted = std::make_unique<ChartModel>();
    QVERIFY(g_loadProjectFile(*converted, out, ProgressFn()).ok);
    QCOMPARE(int(converted->modeCodes()->code[0]), 9);
    QCOMPARE(int(converted->modeCodes()->code[1]), 11);
    QCOMPARE(int(converted->modeCodes()->code[2]), 13);
}

void TestCli::convertReportsWriteError()
{
    auto model = sampleModel();
    const QString in = saveSample(m_dir.filePath(QStringLiteral("ok.qvj")), *model);
    const Run r = cli({QStringLiteral("convert"), in, QStringLiteral("-o"),
                       m_dir.filePath(QStringLiteral("no/such/dir/x.qvj"))});
    QCOMPARE(r.exitCode, 1);
    QCOMPARE(r.err, QStringLiteral("Error while writing file!\n"));
}

void TestCli::convertOutputNames_data()
{
    // link: how output is made to lead to the input before the run.
    QTest::addColumn<QString>("input");
    QTest::addColumn<QString>("output");
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("written");  // empty: refused with exit status 1
    QTest::newRow("output is the input") << "in.qvj" << "in.qvj" << "" << "";
    QTest::newRow("through a symbolic link") << "in.qvj" << "link.qvj" << "symbolic" << "";
    QTest::newRow("through a hard link") << "in.qvj" << "hard.qvj" << "hard" << "";
    QTest::newRow("backup would be the input") << "in.bak" << "in.qvj" << "" << "";
    QTest::newRow("sampling file as output") << "in.qvj" << "data.csv" << "" << "data.csv.qvj";
    QTest::newRow("no extension") << "in.qvj" << "out" << "" << "out.qvj";
    QTest::newRow("upper case extension") << "in.qvj" << "OUT.QVJ" << "" << "OUT.QVJ";
}

void TestCli::convertOutputNames()
{
    QFETCH(QString, input);
    QFETCH(QString, output);
    QFETCH(QString, link);
    QFETCH(QString, written);
    QTemporaryDir dir;
    auto model = sampleModel();
    const QString in = saveSample(dir.filePath(input), *model);
    QVERIFY(!in.isEmpty());
    const QByteArray inBytes = qvtest::readFile(in);
    const QString out = dir.filePath(output);
    if (link == QLatin1String("symbolic"))
        QVERIFY(QFile::link(in, out));
    else if (link == QLatin1String("hard"))
        QCOMPARE(::link(QFile::encodeName(in).constData(), QFile::encodeName(out).constData()), 0);
    else if (output == QLatin1String("data.csv"))
        QVERIFY(qvtest::writeFile(out, "Datum;Zeit\n"));

    const Run r = cli({QStringLiteral("convert"), QStringLiteral("--type"), QStringLiteral("qvj"), in,
                       QStringLiteral("-o"), out});
    QV_COMPARE_BYTES(qvtest::readFile(in), inBytes);  // the input is never touched
    if (written.isEmpty()) {
        QCOMPARE(r.exitCode, 1);
        QVERIFY2(r.err.contains(QStringLiteral("would overwrite the input file")), qPrintable(r.err));
        return;
    }
    QCOMPARE(r.exitCode, 0);
    auto loaded = std::make_unique<ChartModel>();
    QVERIFY(g_loadProjectFile(*loaded, dir.filePath(written), ProgressFn()).ok);
    if (output == QLatin1String("data.csv"))
        QCOMPARE(qvtest::readFile(out), QByteArray("Datum;Zeit\n"));
}

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"

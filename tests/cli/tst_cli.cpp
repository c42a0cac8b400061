// quorvanta-cli as a script sees it: exit codes and messages, which output
// names it refuses or changes, the bytes it writes (a project exactly as the
// desktop program saves the same input) and what info prints.
#include "support/testsupport.h"

#include "core/chart/pagelayout.h"
#include "core/import/importhost.h"
#include "core/import/inputkind.h"
#include "core/model/chartmodel.h"
#include "core/model/fixedstring.h"
#include "core/project/inputreader.h"
#include "core/project/projectfile.h"

#include <QBuffer>
#include <QDir>
#include <QtTest>

#include <sys/stat.h>
#include <unistd.h>

#include <initializer_list>
#include <memory>

using namespace qv;

namespace {

const QString kData =
    QDir(qEnvironmentVariable("QV_TEST_DATA")).absolutePath() + QLatin1Char('/');  // the runs change folder
const QString kSampleProject = QStringLiteral(QV_SAMPLES_DIR "/vaporix-keller.qvj");

QStringList args(std::initializer_list<const char *> words)
{
    QStringList list;
    for (const char *word : words)
        list << QString::fromUtf8(word);
    return list;
}

enum Made { AsFifo, AsFolder, AlreadyThere };

struct Set {
    const char *name, *unit;
    quint8 decimals;
    QVector<double> values;
};

// A project of these data sets, sampled `step` ms apart from `first`, with
// device states if codes are given; the range leaves out the first sample.
bool saveProject(const QString &path, const char *description, qint64 first, qint64 step, const QVector<Set> &sets,
                 const QVector<qint8> &codes = {})
{
    auto m = std::make_unique<ChartModel>();
    settingsT &s = m->settings;
    g_char2Buffer(s.description, description, kDescriptionWidth);
    s.dataSetCount = sets.size();
    int samples = 0;
    for (int i = 0; i < sets.size(); ++i) {
        g_char2Buffer(s.name[i], sets[i].name, kNameWidth);
        g_char2Buffer(s.unit[i], sets[i].unit, kUnitWidth);
        s.decimals[i] = sets[i].decimals;
        samples = qMax(samples, m->data(i)->count = qint32(sets[i].values.size()));
        for (int k = 0; k < sets[i].values.size(); ++k) {
            m->data(i)->time[k] = first + k * step;
            m->data(i)->value[k] = sets[i].values[k];
        }
    }
    m->modeCodes()->count = codes.size();
    std::copy(codes.begin(), codes.end(), m->modeCodes()->code);
    s.hasModeData = !codes.isEmpty();
    s.firstTime = first;
    s.rangeBegin = first + step;
    s.lastTime = s.rangeEnd = first + (samples - 1) * step;
    s.sampleInterval = qint32(step / 1000);
    return g_saveProjectFile(*m, path, SaveOptions{77, 6, 2000, {}}).ok;
}

}  // namespace

class TestCli : public QObject
{
    Q_OBJECT

    QString startFolder;                       // the folder the test program started in
    std::unique_ptr<QTemporaryDir> runFolder;  // the current folder while a test function runs
    qvtest::ProgramRun lastRun;
    QString errorText;       // stderr without the program name and the usage
    QStringList addedFiles;  // files the run added to the folder

    // Runs quorvanta-cli in a fresh current folder holding in.qvj and in.bak
    // (projects), link.qvj (a symbolic link to in.qvj), hard.qvj (a hard link
    // to it), data.csv, bad.csv (an import that fails), night.qvj and pipe.pdf
    // (a FIFO). No file
    // that was there may change, and the usage follows exactly the usage
    // errors (exit code 2).
    void run(const QStringList &arguments)
    {
        runFolder = std::make_unique<QTemporaryDir>();
        QVERIFY(QDir::setCurrent(runFolder->path()));
        // Ten samples a minute apart, sample 3 of the humidity missing.
        QVERIFY(saveProject(QStringLiteral("in.qvj"), "Weinkeller S\374d", 1763712000000, 60000,
                            {{"Temp In", "\260C", 1, {10, 11, 12, 13, 14, 15, 16, 17, 18, 19}},
                             {"Humidity In", "%rH", 2, {50, 50.5, 51, kMissingValue, 52, 52.5, 53, 53.5, 54, 54.5}}}));
        // The night the clocks go back in Berlin: eight samples half an hour apart
        // from 00:00 summer time, so 02:00 and 02:30 come twice. Values that round
        // on a half, to minus zero or only the slow way, a missing value, a data set
        // shorter than data set 0, a name to be quoted, a set without a unit, and
        // device states for all but the last sample.
        QVERIFY(saveProject(QStringLiteral("night.qvj"), "", 1792879200000, 1800000,
                            {{"Temp In", "\260C", 1, {10.25, -0.04, -1.25, 3.14159, 1e10, 21.449999, 0, 7}},
                             {"Humidity \"rel\"; In", "%", 0, {80, kMissingValue, 81.5, 80.4, 79.5, 78}},
                             {"Dew Point", "", 2, {5.005, 12.3456, -2, kMissingValue, 0.001, -0.004, 3, 4}}},
                            {5, 5, 11, 12, 0, 7, 99}));
        QVERIFY(QFile::copy(QStringLiteral("in.qvj"), QStringLiteral("in.bak")));
        QVERIFY(QFile::link(QStringLiteral("in.qvj"), QStringLiteral("link.qvj")));
        QCOMPARE(::link("in.qvj", "hard.qvj"), 0);
        QVERIFY(qvtest::writeFile(QStringLiteral("data.csv"), "Datum;Zeit\n"));
        QVERIFY(qvtest::writeFile(QStringLiteral("spring.csv"),
                                  "K\nZeit;A\n31.03.2024 01:30:00;1\n31.03.2024 02:30:00;2\n"));
        QVERIFY(qvtest::writeFile(QStringLiteral("bad.csv"), "K\nZeit;1;2;3;4;5;6;7;8;9;10;11;12;13;14;15;16;17\n"));
        QCOMPARE(::mkfifo("pipe.pdf", 0600), 0);  // no reader: opening it for writing would block
        const QStringList names = QDir().entryList(QDir::Files);
        QMap<QString, QByteArray> before;
        for (const QString &name : names)
            before[name] = qvtest::readFile(name);
        lastRun = qvtest::runProgram(QStringLiteral(QV_CLI_PATH), arguments);
        for (auto it = before.cbegin(); it != before.cend(); ++it)
            QV_COMPARE_BYTES(qvtest::readFile(it.key()), it.value());
        addedFiles = QDir().entryList(QDir::Files, QDir::Name);
        for (const QString &name : names)
            addedFiles.removeOne(name);
        const QString err = QString::fromUtf8(lastRun.err).remove(QStringLiteral("quorvanta-cli: "));
        const int usage = err.indexOf(QLatin1String("\n\nUsage:"));
        QCOMPARE(usage >= 0, lastRun.exitCode == 2);
        errorText = err.left(usage).trimmed();
    }

private slots:
    void initTestCase()
    {
        qputenv("TZ", "Europe/Berlin");  // the local times of the tables
        startFolder = QDir::currentPath();
    }

    void cleanup()
    {
        QDir::setCurrent(startFolder);
        runFolder.reset();
    }

    void refusals_data()
    {
        // clang-format off
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<int>("exitCode");  // 2 usage error, 1 a file could not be read or written
        QTest::addColumn<QString>("message");
        QTest::newRow("nothing") << QStringList() << 2 << "no command given";
        QTest::newRow("unknown command") << args({"show", "in.qvj"}) << 2 << "unknown command: show";
        QTest::newRow("convert without output") << args({"convert", "in.qvj"}) << 2 << "convert needs -o OUTPUT";
        QTest::newRow("no input") << args({"info"}) << 2 << "no input file given";
        QTest::newRow("two inputs") << args({"info", "in.qvj", "in.bak"}) << 2 << "more than one input file given";
        QTest::newRow("bad type") << args({"info", "--type", "xls", "in.qvj"}) << 2 << "unknown type: xls";
        QTest::newRow("json is for info") << args({"convert", "--json", "in.qvj", "-o", "b.qvj"}) << 2 << "unknown option: --json";
        QTest::newRow("width is for png") << args({"pdf", "--width", "800", "in.qvj", "-o", "x.pdf"}) << 2 << "unknown option: --width";
        QTest::newRow("range is for csv") << args({"info", "--range", "all", "in.qvj"}) << 2 << "unknown option: --range";
        QTest::newRow("unknown extension") << args({"info", "data.txt"}) << 2 << "cannot tell the kind of data.txt; name it with --type";
        QTest::newRow("bad changed time") << args({"convert", "--changed-time", "soon", "in.qvj", "-o", "b.qvj"}) << 2 << "--changed-time needs a number of seconds";
        QTest::newRow("picture too narrow") << args({"png", "--width", "15", "in.qvj", "-o", "x.png"}) << 2 << "--width needs a number of pixels from 16 to 16384";
        QTest::newRow("csv of a data set not there") << args({"csv", "--sets", "0,3", "night.qvj", "-o", "x.csv"}) << 2 << "night.qvj has no data set 3 (it has 3)";
        QTest::newRow("csv sets badly written") << args({"csv", "--sets", "0,,1", "night.qvj", "-o", "x.csv"}) << 2 << "--sets needs data set numbers from 0 to 15, such as 0,2,5";
        QTest::newRow("csv range unknown") << args({"csv", "--range", "today", "night.qvj", "-o", "x.csv"}) << 2 << "--range needs selected, view or all";
        QTest::newRow("a failed import writes nothing") << args({"convert", "bad.csv", "-o", "x.qvj"}) << 1 << "Error in CSV line 2 !\nToo many columns.";
        QTest::newRow("write error") << args({"convert", "in.qvj", "-o", "no/such/x.qvj"}) << 1 << "Error while writing file!";
        QTest::newRow("pdf write error") << args({"pdf", "in.qvj", "-o", "no/such/x.pdf"}) << 1 << "Error while writing file!";
        QTest::newRow("pdf to a FIFO") << args({"pdf", "in.qvj", "-o", "pipe.pdf"}) << 1 << "Error while writing file!";
        QTest::newRow("a picture that cannot be made keeps the old file") << args({"png", "in.qvj", "-o", "data.csv"}) << 1 << "Error while writing file!";
        QTest::newRow("csv to a device") << args({"csv", "night.qvj", "-o", "/dev/null"}) << 1 << "Error while writing file!";
        QTest::newRow("through a hard link") << args({"convert", "in.qvj", "-o", "hard.qvj"}) << 1 << "writing hard.qvj would overwrite the input file in.qvj";
        QTest::newRow("backup would be the input") << args({"convert", "--type", "qvj", "in.bak", "-o", "in.qvj"}) << 1 << "writing in.qvj would overwrite the input file in.bak";
        QTest::newRow("picture over the input") << args({"png", "in.qvj", "-o", "link.qvj"}) << 1 << "writing link.qvj would overwrite the input file in.qvj";
        QTest::newRow("csv over the input") << args({"csv", "in.qvj", "-o", "link.qvj"}) << 1 << "writing link.qvj would overwrite the input file in.qvj";
        // clang-format on
    }

    // A refused run prints nothing on stdout and writes nothing.
    void refusals()
    {
        QFETCH(QStringList, arguments);
        QFETCH(int, exitCode);
        QFETCH(QString, message);
        run(arguments);
        QCOMPARE(lastRun.exitCode, exitCode);
        QCOMPARE(errorText, message);
        QCOMPARE(lastRun.out, QByteArray());
        QCOMPARE(addedFiles, QStringList());
    }

    void convert_data()
    {
        // clang-format off
        QTest::addColumn<QStringList>("options");
        QTest::addColumn<QString>("input");
        QTest::addColumn<QString>("output");         // given to -o
        QTest::addColumn<QString>("written");        // the one file that appears
        QTest::addColumn<qint64>("changedTime");     // in its record; -1: the time of the run
        QTest::newRow("sampling file as output: .qvj appended") << QStringList() << "in.qvj" << "data.csv" << "data.csv.qvj" << qint64(-1);
        QTest::newRow("upper case extension kept") << QStringList() << "in.qvj" << "OUT.QVJ" << "OUT.QVJ" << qint64(-1);
        QTest::newRow("changed time given") << args({"--changed-time", "1700000000"}) << "in.qvj" << "b.qvj" << "b.qvj" << qint64(1700000000);
        QTest::newRow("csv with siblings") << args({"--yes"}) << kData + QStringLiteral("controllercsv/sensor-set/S_TS01.CSV") << "cli.qvj" << "cli.qvj" << qint64(-1);
        QTest::newRow("binary log with siblings, overflow repaired") << args({"--yes"}) << QStringLiteral(QV_SAMPLES_DIR "/ventimar-log-overflow/SV_SA_01.LOG") << "cli.qvj" << "cli.qvj" << qint64(-1);
        QTest::newRow("vaporix-VIS") << QStringList() << kData + QStringLiteral("viscsv/four-states.csv") << "cli.qvj" << "cli.qvj" << qint64(-1);
        // clang-format on
    }

    // The project written holds exactly the bytes the desktop program saves
    // after opening or importing the same input; stderr carries only the
    // questions of the import with their answers.
    void convert()
    {
        QFETCH(QStringList, options);
        QFETCH(QString, input);
        QFETCH(QString, output);
        QFETCH(QString, written);
        QFETCH(qint64, changedTime);
        run(args({"convert"}) + options + QStringList{input, QStringLiteral("-o"), output});
        QCOMPARE(lastRun.exitCode, 0);
        for (const QString &line : errorText.split(QLatin1Char('\n'), Qt::SkipEmptyParts))
            QVERIFY2(line.endsWith(QLatin1String(" -> Yes")), qPrintable(line));
        QCOMPARE(addedFiles, QStringList{written});
        auto saved = std::make_unique<ChartModel>(), desktop = std::make_unique<ChartModel>();
        QVERIFY(g_loadProjectFile(*saved, written, ProgressFn()).ok);
        const quint32 changed = saved->settings.changedTime;
        if (changedTime < 0)
            QVERIFY(changed + 3600 >= g_currentSeconds());
        else
            QCOMPARE(qint64(changed), changedTime);
        FixedAnswerHost yes(true);
        QVERIFY(g_readInput(g_detectInputKind(input), input, *desktop, yes).ok);
        QVERIFY(desktop->data(0)->count > 0);
        QBuffer bytes;
        bytes.open(QIODevice::WriteOnly);
        QVERIFY(g_writeProject(*desktop, bytes, SaveOptions{changed, 6, 2000, {}}).ok);
        QV_COMPARE_BYTES(qvtest::readFile(written), bytes.data());
    }

    void tables_data()
    {
        // clang-format off
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("written");   // the file written, "" for standard output
        QTest::addColumn<QString>("expected");  // the test file it equals byte for byte
        QTest::newRow("info") << args({"info", "in.qvj"}) << "" << "info-two-sets-one-value-missing.txt";
        QTest::newRow("csv of the selected range, every data set") << args({"csv", "night.qvj", "-o", "night-clocks-go-back.csv"}) << "night-clocks-go-back.csv" << "night-clocks-go-back.csv";
        QTest::newRow("csv of all samples, two sets in the order given, decimal comma")
            << args({"csv", "--range", "all", "--sets", "2,0", "--excel-de", "night.qvj", "-o", "night-all-sets-2-0-excel-de.csv"}) << "night-all-sets-2-0-excel-de.csv" << "night-all-sets-2-0-excel-de.csv";
        // clang-format on
    }

    void tables()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, written);
        QFETCH(QString, expected);
        run(arguments);
        QCOMPARE(lastRun.exitCode, 0);
        QCOMPARE(lastRun.err, QByteArray());
        QCOMPARE(addedFiles, written.isEmpty() ? QStringList() : QStringList{written});
        QCOMPARE(lastRun.out.isEmpty(), !written.isEmpty());
        QV_COMPARE_BYTES(written.isEmpty() ? lastRun.out : qvtest::readFile(written),
                         qvtest::readFile(kData + QStringLiteral("project/") + expected));
    }

    // A time the local clock skips asks once; info says how the times were read.
    void clock_data()
    {
        // clang-format off
        QTest::addColumn<QStringList>("arguments");
        QTest::addColumn<QString>("expected");  // the clock line of the text, or the field of the JSON
        QTest::newRow("Yes: standard time") << args({"info", "--yes", "spring.csv"}) << "Clock:        standard time all year (UTC+01:00)";
        QTest::newRow("No: local time") << args({"info", "--no", "spring.csv"}) << "Clock:        local time";
        QTest::newRow("json") << args({"info", "--json", "--yes", "spring.csv"}) << "\"clock\": \"standard time all year (UTC+01:00)\",";
        // clang-format on
    }

    void clock()
    {
        QFETCH(QStringList, arguments);
        QFETCH(QString, expected);
        run(arguments);
        QCOMPARE(lastRun.exitCode, 0);
        QCOMPARE(lastRun.err.count("does not switch to summer time"), 1);
        const QString out = QString::fromUtf8(lastRun.out);
        const int at = out.indexOf(expected.left(7));
        QCOMPARE(out.mid(at, out.indexOf(QLatin1Char('\n'), at) - at).trimmed(), expected);
    }

    void notRegular_data()
    {
        // clang-format off
        QTest::addColumn<QString>("input");
        QTest::addColumn<int>("made");      // in a fresh folder, unless AlreadyThere
        QTest::addColumn<QString>("type");  // empty: detected from the input
        QTest::newRow("a FIFO named .csv") << "f.csv" << int(AsFifo) << QString();
        QTest::newRow("a FIFO named .qvj") << "p.qvj" << int(AsFifo) << QString();
        QTest::newRow("a folder named .LOG") << "d.LOG" << int(AsFolder) << QString();
        QTest::newRow("/dev/null as vaporix-VIS") << "/dev/null" << int(AlreadyThere) << "vis";
        // clang-format on
    }

    // What is not a regular file is refused before anything blocks on it: by
    // the type detection, which reads the first line of a .csv file, by each
    // importer and by the project loader.
    void notRegular()
    {
        QFETCH(QString, input);
        QFETCH(int, made);
        QFETCH(QString, type);
        QTemporaryDir dir;
        const QString path = QDir(dir.path()).filePath(input);
        if (made == AsFifo)
            QCOMPARE(::mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        else if (made == AsFolder)
            QVERIFY(QDir().mkpath(path));
        ChartModel model;
        FixedAnswerHost host(true);
        const FileResult r =
            g_readInput(type.isEmpty() ? g_detectInputKind(path) : g_inputKindFromName(type), path, model, host);
        QCOMPARE(QByteArray(r.message), QByteArray("Error reading file!"));
        QVERIFY(!r.ok && r.critical());
    }

    // The page of the bundled vaporix sample as a service company would make it:
    // one A4 landscape sheet titled like the chart, every band label and value
    // searchable as text.
    void pdfOfTheSample()
    {
        if (QStandardPaths::findExecutable(QStringLiteral("pdftotext")).isEmpty())
            QSKIP("poppler-utils (pdftotext, pdfinfo) not installed");
        QTemporaryDir dir;
        const QString pdf = dir.filePath(QStringLiteral("page.pdf"));
        const qvtest::ProgramRun r = qvtest::runProgram(
            QStringLiteral(QV_CLI_PATH), {QStringLiteral("pdf"), kSampleProject, QStringLiteral("-o"), pdf});
        QCOMPARE(r.exitCode, 0);
        QCOMPARE(r.err, QByteArray());
        const QString info = QString::fromUtf8(qvtest::runProgram(QStringLiteral("pdfinfo"), {pdf}).out);
        QVERIFY2(info.contains(QStringLiteral("Pages:           1\n")), qPrintable(info));
        QVERIFY2(info.contains(QStringLiteral("Page size:       842 x 595 pts (A4)")), qPrintable(info));
        auto model = std::make_unique<ChartModel>();
        QVERIFY(g_loadProjectFile(*model, kSampleProject, ProgressFn()).ok);
        const QString title = g_buffer2QString(model->settings.description, kDescriptionWidth).trimmed();
        QVERIFY2(info.contains(QStringLiteral("Title:           ") + title + QLatin1Char('\n')), qPrintable(info));
        const QString text =
            QString::fromUtf8(qvtest::runProgram(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")}).out);
        const QVector<PageBandEntry> band = g_pageBand(model->settings, *model->modeParameters(), 4960);
        for (const PageBandEntry &entry : band) {
            QVERIFY2(text.contains(QLatin1String(entry.label)), entry.label);
            QVERIFY2(text.contains(entry.value.trimmed()), qPrintable(entry.value));
        }
    }
};

QTEST_GUILESS_MAIN(TestCli)
#include "tst_cli.moc"

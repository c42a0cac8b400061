// Inputs no controller writes: truncated files, lines of megabytes, zero
// bytes, more rows than a store holds, binary garbage. The import must end
// with one of its own results and keep every store within its bounds.
#include "csvtesthelpers.h"
#include "support/testsupport.h"

#include "import/controllersteps.h"
#include "import/csvimport.h"

#include <QDateTime>
#include <QRandomGenerator>
#include <QtTest>

using namespace qv;
using namespace qvtest;

namespace {

const QStringList kNames{QStringLiteral("R_TS01.CSV"), QStringLiteral("R_TS02.CSV"), QStringLiteral("R_TS03.CSV"),
                         QStringLiteral("R_TS04.CSV")};

// Local wall-clock text of `seconds` after midnight of day 0, counted by hand
// (much faster than QDateTime for a quarter of a million rows).
QByteArray clockText(const QDate &day0, qint64 seconds)
{
    static QDate day;
    static QByteArray dayText;
    if (day != day0.addDays(seconds / 86400)) {
        day = day0.addDays(seconds / 86400);
        dayText = day.toString(QStringLiteral("dd.MM.yyyy ")).toLatin1();
    }
    const int s = int(seconds % 86400);
    char clock[9] = {char('0' + s / 36000),     char('0' + s / 3600 % 10), ':', char('0' + s / 600 % 6),
                     char('0' + s / 60 % 10),   ':', char('0' + s % 60 / 10), char('0' + s % 10), 0};
    return dayText + clock;
}

QByteArray sensorFile(int rows)
{
    QByteArray f = "SENSORWERTE\nZeit;1;2;3;4;5;6;7;8;9;10;11;12\n";
    const QDateTime start(QDate(2021, 10, 30), QTime(23, 0));
    for (int k = 0; k < rows; ++k)
        f += start.addSecs(60 * k).toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")).toLatin1() +
             ";8.5;10.5;60;9.0;21.0;55;9.5;20.0;50;9.1;19.5;48\n";
    return f;
}

QByteArray stateFile(int rows)
{
    QByteArray f = "STATUS LOG\nZeit;Nr;a;b;c;d\n";
    f.reserve(rows * 48);  // appending a builder reserves exactly, so grow once up front
    for (int k = 0; k < rows; ++k)
        f += clockText(QDate(2021, 10, 30), 23 * 3600 + 60 * k) + ";" + QByteArray::number(k) + ";1;100;9;0\n";
    return f;
}

const QByteArray kParameters = "PARAMETER\nKopf\nx;1;45;65;5;25;3;15;2.5;1.5;0.1;-0.2;0.3;-0.4;7;8;9\n";
const QByteArray kCard = "PARAMETER SDKARTE\nKopf\nx;600;0;0;0;0;0;0;0\n";

// Every import ends with success or one of the importer's texts, and leaves
// the counts within the stores.
bool sane(const ChartModel &m, const FileResult &r, QString *why)
{
    static const QByteArrayList messages{kMsgCsvTitle, kMsgCsvColumns, kMsgSiblingFiles};
    if (!r.ok && !messages.contains(QByteArray(r.message))) {
        *why = QStringLiteral("unexpected message: %1").arg(QLatin1String(r.message ? r.message : "(none)"));
        return false;
    }
    if (r.ok && (m.settings.dataSetCount < 1 || m.settings.dataSetCount > kMaxDataSets)) {
        *why = QStringLiteral("data-set count %1").arg(m.settings.dataSetCount);
        return false;
    }
    for (int i = 0; i < kMaxDataSets; ++i) {
        if (m.data(i)->count < 0 || m.data(i)->count > kMaxSamples) {
            *why = QStringLiteral("count %1 in store %2").arg(m.data(i)->count).arg(i);
            return false;
        }
    }
    if (m.modeCodes()->count < 0 || m.modeCodes()->count > kMaxSamples) {
        *why = QStringLiteral("state count %1").arg(m.modeCodes()->count);
        return false;
    }
    return true;
}

}  // namespace

class TestCsvRobust : public QObject
{
    Q_OBJECT

private slots:
    void truncated()
    {
        CsvFolder folder;
        const QByteArray files[4] = {sensorFile(40), stateFile(40), kParameters, kCard};
        for (int which = 0; which < 4; ++which) {
            for (int i = 0; i < 4; ++i)
                folder.write(kNames[i], files[i]);
            const QByteArray &whole = files[which];
            for (int cut = 0; cut < whole.size(); cut += (cut < (which == 0 ? 150 : 60) ? 1 : 53)) {
                folder.write(kNames[which], whole.left(cut));
                import(folder.path(kNames[0]));
                if (QTest::currentTestFailed())
                    QFAIL(qPrintable(QStringLiteral("file %1 cut at %2").arg(which).arg(cut)));
            }
        }
        // A whole file imports with its state track.
        folder.write(kNames[1], files[1]);
        import(folder.path(kNames[0]));
        QVERIFY(m_result.ok);
        QCOMPARE(m_model->modeCodes()->count, 40);
    }

    void hugeLines_data()
    {
        QTest::addColumn<QByteArray>("file");
        QTest::addColumn<QByteArray>("message");
        QTest::addColumn<int>("samples");

        // Lines other than line 1 may be 17 x 256 bytes long, '\n' included.
        const int bound = 17 * 256;
        const QByteArray mb(3 << 20, 'x');
        const QByteArray row = "01.01.2021 00:00:00;1;2\n";
        const QByteArray stamp = "01.01.2021 00:01:00;";
        QTest::newRow("line 1") << mb + "\nZeit;a;b\n" + row << QByteArray(kMsgCsvTitle) << 0;
        QTest::newRow("line 2 ends in separators up to the bound")
            << "K\nZeit;a;b" + QByteArray(bound - 9, ';') + "\n" + row << QByteArray() << 1;
        QTest::newRow("line 2 ends in separators beyond the bound")
            << "K\nZeit;a;b" + QByteArray(bound - 8, ';') + "\n" + row << QByteArray(kMsgCsvColumns) << 0;
        QTest::newRow("line 2 with too many fields") << "K\n" + QByteArray(1 << 20, 'a').replace("aa", "a;") + "\n"
                                                     << QByteArray(kMsgCsvColumns) << 0;
        QTest::newRow("a row at the bound") << "K\nZeit;a;b\n" + row + stamp + QByteArray(bound - 24, ' ') + "7;2\n" + row
                                            << QByteArray() << 3;
        QTest::newRow("a row beyond the bound ends the data")
            << "K\nZeit;a;b\n" + row + stamp + QByteArray(bound - 23, ' ') + "7;2\n" + row << QByteArray() << 1;
        QTest::newRow("a value of megabytes ends the data")
            << "K\nZeit;a;b\n" + row + stamp + QByteArray(2 << 20, '7') + ";2\n" + row << QByteArray() << 1;
        QTest::newRow("no line end at all") << "K;" + QByteArray(4 << 20, 'k') << QByteArray(kMsgCsvTitle) << 0;
        QTest::newRow("zero bytes without a line end") << QByteArray(4 << 20, '\0') << QByteArray(kMsgCsvTitle) << 0;
    }

    void hugeLines()
    {
        QFETCH(QByteArray, file);
        QFETCH(QByteArray, message);
        QFETCH(int, samples);
        CsvFolder folder;
        import(folder.write(QStringLiteral("h.csv"), file));
        QCOMPARE(QByteArray(m_result.message), message);
        if (message.isEmpty())
            QCOMPARE(m_model->data(0)->count, samples);
    }

    void zeroBytes()
    {
        // Zero bytes sprinkled into every file of a sensor set.
        CsvFolder folder;
        QRandomGenerator random(77);
        const QByteArray files[4] = {sensorFile(30), stateFile(30), kParameters, kCard};
        for (int round = 0; round < 60; ++round) {
            for (int i = 0; i < 4; ++i) {
                QByteArray f = files[i];
                for (int n = int(random.bounded(4)); n > 0; --n)
                    f[int(random.bounded(f.size()))] = '\0';
                folder.write(kNames[i], f);
            }
            import(folder.path(kNames[0]));
            if (QTest::currentTestFailed())
                return;
        }
    }

    // A full store, and one row more: the rows stop at the store's end, and
    // only the row that does not fit is reported.
    void moreRowsThanAStoreHolds_data()
    {
        QTest::addColumn<int>("rows");
        QTest::addColumn<QStringList>("warnings");
        QTest::newRow("262144 rows") << kMaxSamples << QStringList();
        QTest::newRow("262145 rows") << kMaxSamples + 1
                                     << QStringList{QStringLiteral("File is containing too many data. Please contact Merovin.")};
    }

    void moreRowsThanAStoreHolds()
    {
        QFETCH(int, rows);
        QFETCH(QStringList, warnings);
        // A fresh model: the state track flag of an earlier import would make the
        // plausibility pass reject these values.
        m_model = std::make_unique<ChartModel>();
        QByteArray f = "K\nZeit;a;b\n";
        f.reserve(rows * 40);
        for (int k = 0; k < rows; ++k)
            f += clockText(QDate(2021, 1, 1), k) + ";" + QByteArray::number(k) + ";1\n";
        CsvFolder folder;
        import(folder.write(QStringLiteral("big.csv"), f));
        QVERIFY(m_result.ok);
        QCOMPARE(m_warnings, warnings);
        QCOMPARE(m_model->data(0)->count, kMaxSamples);
        QCOMPARE(m_model->data(1)->count, kMaxSamples);
        QV_COMPARE_DOUBLE(m_model->data(0)->value[kMaxSamples - 1], double(kMaxSamples - 1));
        QCOMPARE(m_model->settings.lastTime,
                 QDateTime(QDate(2021, 1, 1), QTime(0, 0)).addSecs(kMaxSamples - 1).toMSecsSinceEpoch());
        QCOMPARE(m_model->settings.rangeSampleCount, kMaxSamples);
        QCOMPARE(m_model->settings.sampleInterval, 1);
    }

    void longStateLog()
    {
        CsvFolder folder;
        folder.write(kNames[1], stateFile(kMaxSamples + 1));
        folder.write(kNames[2], kParameters);
        folder.write(kNames[3], kCard);
        import(folder.write(kNames[0], sensorFile(3)));
        QVERIFY(m_result.ok);
        QCOMPARE(m_model->modeCodes()->count, kMaxSamples);
        QCOMPARE(int(m_model->modeCodes()->code[kMaxSamples - 1]), 5);
    }

    void garbage()
    {
        CsvFolder folder;
        QRandomGenerator random(2024);
        auto bytes = [&random](int size) {
            QByteArray b(size, Qt::Uninitialized);
            for (char &c : b)
                c = char(random.bounded(256));
            return b;
        };
        // Pure garbage, garbage after a sensor title (reaching the siblings), and
        // garbage siblings behind a good sensor file.
        for (int round = 0; round < 40; ++round) {
            const int size = int(random.bounded(1 << (4 + round % 13)));
            folder.write(kNames[0], bytes(size));
            import(folder.path(kNames[0]));
            folder.write(kNames[0], "SENSORWERTE\n" + bytes(size));
            for (int i = 1; i < 4; ++i)
                folder.write(kNames[i], bytes(int(random.bounded(4096))));
            import(folder.path(kNames[0]));
            folder.write(kNames[0], sensorFile(5));
            folder.write(kNames[1], "STATUS LOG\n\n" + bytes(size));
            import(folder.path(kNames[0]));
            folder.write(kNames[1], stateFile(5));
            folder.write(kNames[2], "PARAMETER\n\n" + bytes(size));
            folder.write(kNames[3], "PARAMETER SDKARTE\n\n" + bytes(size));
            import(folder.path(kNames[0]), round % 2);
            if (QTest::currentTestFailed())
                return;
        }
    }

private:
    void import(const QString &path, bool answer = true);
    std::unique_ptr<ChartModel> m_model = std::make_unique<ChartModel>();
    FileResult m_result;
    QStringList m_warnings;
};

void TestCsvRobust::import(const QString &path, bool answer)
{
    ScriptedHost host(answer);
    m_result = g_importControllerCsv(path, *m_model, host);
    m_warnings = host.warnings;
    QString why;
    QVERIFY2(sane(*m_model, m_result, &why), qPrintable(why));
}

QTEST_GUILESS_MAIN(TestCsvRobust)
#include "tst_csvrobust.moc"

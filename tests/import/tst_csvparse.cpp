// The fast readers against Qt's own conversions, value for value: time stamps
// against QDateTime::fromString (run with TZ=Europe/Berlin, a zone with
// daylight saving time), numbers against QByteArray::toDouble bit for bit,
// integers against toUInt/toInt. Plus the line reader and the field split
// against QIODevice::readLine and QByteArray::split.
#include "support/testsupport.h"

#include "import/csvlines.h"
#include "import/csvnumber.h"
#include "import/localtime.h"
#include "project/chartmodel.h"

#include <QBuffer>
#include <QDateTime>
#include <QRandomGenerator>
#include <QtTest>

#include <cstring>

using namespace qv;

namespace {

ByteView view(const QByteArray &b)
{
    return ByteView{b.constData(), b.size()};
}

QString timeFormat(LocalTimeReader::Format f)
{
    return f == LocalTimeReader::WithSeconds ? QStringLiteral("dd.MM.yyyy hh:mm:ss") : QStringLiteral("dd.MM.yyyy hh:mm");
}

// Reads every text with one reader (so its cache sees them in this order)
// and compares each with QDateTime.
bool sameTimes(const QByteArrayList &texts, LocalTimeReader::Format format, QString *failure)
{
    LocalTimeReader reader(format);
    for (const QByteArray &t : texts) {
        const qint64 fast = reader.read(t.constData(), t.size());
        const qint64 slow = QDateTime::fromString(QString::fromLatin1(t), timeFormat(format)).toMSecsSinceEpoch();
        if (fast != slow) {
            *failure = QStringLiteral("\"%1\": %2, QDateTime says %3")
                           .arg(QString::fromLatin1(t.toPercentEncoding(" .:")))
                           .arg(fast)
                           .arg(slow);
            return false;
        }
    }
    return true;
}

QByteArrayList stamps(const QDateTime &from, const QDateTime &to, int stepSeconds, LocalTimeReader::Format f)
{
    QByteArrayList texts;
    // Walk in UTC so that every local wall-clock time occurs, repeated ones twice.
    for (qint64 ms = from.toMSecsSinceEpoch(); ms <= to.toMSecsSinceEpoch(); ms += stepSeconds * 1000LL)
        texts << QDateTime::fromMSecsSinceEpoch(ms).toString(timeFormat(f)).toLatin1();
    return texts;
}

}  // namespace

class TestCsvParse : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase()
    {
        // The time tests are only meaningful in a zone with daylight saving time.
        const QDateTime winter(QDate(2021, 1, 15), QTime(12, 0));
        const QDateTime summer(QDate(2021, 7, 15), QTime(12, 0));
        QVERIFY2(winter.offsetFromUtc() != summer.offsetFromUtc(), "run with TZ=Europe/Berlin (set by CTest)");
    }

    void timesOverYears()
    {
        QString failure;
        // Every 7 min 13 s over three years: ordinary days, leap day, both kinds of transition.
        const QDateTime from(QDate(2019, 12, 30), QTime(0, 0));
        const QDateTime to(QDate(2022, 1, 2), QTime(0, 0));
        QVERIFY2(sameTimes(stamps(from, to, 433, LocalTimeReader::WithSeconds), LocalTimeReader::WithSeconds, &failure),
                 qPrintable(failure));
        QVERIFY2(sameTimes(stamps(from, to, 3607, LocalTimeReader::WithoutSeconds), LocalTimeReader::WithoutSeconds,
                           &failure),
                 qPrintable(failure));
        // The ends of the fast range and just beyond.
        QVERIFY2(sameTimes(stamps(QDateTime(QDate(1969, 12, 31), QTime(0, 0)), QDateTime(QDate(1970, 1, 2), QTime(0, 0)),
                                  599, LocalTimeReader::WithSeconds),
                           LocalTimeReader::WithSeconds, &failure),
                 qPrintable(failure));
        QVERIFY2(sameTimes(stamps(QDateTime(QDate(2037, 12, 30), QTime(0, 0)), QDateTime(QDate(2038, 1, 20), QTime(0, 0)),
                                  3599, LocalTimeReader::WithSeconds),
                           LocalTimeReader::WithSeconds, &failure),
                 qPrintable(failure));
    }

    void timesOnTransitionDays_data()
    {
        QTest::addColumn<QDate>("day");
        QTest::newRow("spring 2021") << QDate(2021, 3, 28);
        QTest::newRow("autumn 2021") << QDate(2021, 10, 31);
        QTest::newRow("autumn 1996 (first last-Sunday-of-October)") << QDate(1996, 10, 27);
    }

    void timesOnTransitionDays()
    {
        QFETCH(QDate, day);
        QString failure;
        const QDateTime from(day.addDays(-1), QTime(22, 0));
        const QDateTime to(day.addDays(1), QTime(2, 0));
        // Every 7 seconds from the evening before to the night after.
        QVERIFY2(sameTimes(stamps(from, to, 7, LocalTimeReader::WithSeconds), LocalTimeReader::WithSeconds, &failure),
                 qPrintable(failure));
        // Every second of the hours around the change, and local texts that do
        // not exist (the skipped hour) or exist twice.
        QByteArrayList texts;
        for (int h = 0; h < 5; ++h) {
            for (int s = 0; s < 3600; ++s)
                texts << QDateTime(day, QTime(h, s / 60, s % 60)).toString(timeFormat(LocalTimeReader::WithSeconds)).toLatin1();
            for (int m = 0; m < 60; m += 7)
                texts << day.toString(QStringLiteral("dd.MM.yyyy ")).toLatin1() + QByteArray::number(100 + h).mid(1) + ':' +
                             QByteArray::number(100 + m).mid(1) + ":30";
        }
        QVERIFY2(sameTimes(texts, LocalTimeReader::WithSeconds, &failure), qPrintable(failure));
        QByteArrayList minutes;
        for (int m = 0; m < 5 * 60; ++m)
            minutes << day.toString(QStringLiteral("dd.MM.yyyy ")).toLatin1() + QByteArray::number(100 + m / 60).mid(1) +
                           ':' + QByteArray::number(100 + m % 60).mid(1);
        QVERIFY2(sameTimes(minutes, LocalTimeReader::WithoutSeconds, &failure), qPrintable(failure));
    }

    void oddTimes_data()
    {
        QTest::addColumn<QByteArray>("text");
        const char *texts[] = {
            "31.02.2021 10:00:00", "29.02.2021 10:00:00", "29.02.2020 10:00:00", "29.02.2100 10:00:00",
            "00.01.2021 10:00:00", "01.13.2021 10:00:00", "32.01.2021 10:00:00", "01.01.2021 24:00:00",
            "01.01.2021 23:60:00", "01.01.2021 23:59:60", "01.01.0000 10:00:00", "01.01.9999 23:59:59",
            "1.01.2021 10:00:00",  "01.01.21 10:00:00",   "01.01.2021 10:00:0",  "01.01.2021",
            "01.01.2021 10:00:00 ", " 01.01.2021 10:00:00", "01-01-2021 10:00:00", "01.01.+021 10:00:00",
            "+1.01.2021 10:00:00", "01.01.2021 10:00:00\r", "",   "garbage", "\xff\xfe\xfd", "01.01.2021 -1:00:00",
        };
        for (const char *t : texts)
            QTest::newRow(t[0] ? t : "(empty)") << QByteArray(t);
        QTest::newRow("zero byte") << QByteArray("01.01.2021 10:00:\0" "0", 19);
    }

    void oddTimes()
    {
        QFETCH(QByteArray, text);
        QString failure;
        QVERIFY2(sameTimes({text}, LocalTimeReader::WithSeconds, &failure), qPrintable(failure));
        QVERIFY2(sameTimes({text.left(16), text}, LocalTimeReader::WithoutSeconds, &failure), qPrintable(failure));
    }

    // The cache must not carry one hour's offset into another.
    void timesInAnyOrder()
    {
        QByteArrayList texts = stamps(QDateTime(QDate(2020, 3, 27), QTime(0, 0)), QDateTime(QDate(2020, 11, 1), QTime(0, 0)),
                                      1801, LocalTimeReader::WithSeconds);
        QRandomGenerator random(5);
        for (int i = texts.size() - 1; i > 0; --i)
            texts.swapItemsAt(i, int(random.bounded(i + 1)));
        QString failure;
        QVERIFY2(sameTimes(texts, LocalTimeReader::WithSeconds, &failure), qPrintable(failure));
    }

    void doubles_data()
    {
        QTest::addColumn<QByteArray>("text");
        const char *texts[] = {
            "-0", "0.1", "0.3", "2.675", "1.5E-3", "9007199254740993", "9007199254740991.5", "12345678901234567890",
            "0.1234567890123456789", "0.00000000000000000000001", "1234567890123456789012.5", "2.2250738585072014e-308",
            "1e-400", "1e400", ".5", "-.5", "5.", ".", "-", "+1.5", "1..5", "1,5", " 1.5", "1.5 ", "\t1.5", "1.5\r",
            "1 5", "", " ", "abc", "inf", "nan", "0x10", "1e", "1e+", "00012.50", "3131961357", "\xb2", "12\xa0",
        };
        for (const char *t : texts)
            QTest::newRow(t[0] ? t : "(empty)") << QByteArray(t);
        QTest::newRow("zero byte inside") << QByteArray("1\0" "5", 3);
        QTest::newRow("zero byte at the end") << QByteArray("15\0", 3);
    }

    void doubles()
    {
        QFETCH(QByteArray, text);
        bool ok = false, qtOk = false;
        const double fast = g_toDouble(view(text), &ok);
        const double qt = text.toDouble(&qtOk);
        QCOMPARE(ok, qtOk);
        QV_COMPARE_DOUBLE(fast, qt);
    }

    // Plain decimals of every length and position of the point.
    void randomDoubles()
    {
        QRandomGenerator random(1234);
        for (int n = 0; n < 50000; ++n) {
            QByteArray t;
            if (random.bounded(4) == 0)
                t += '-';
            const int digits = 1 + int(random.bounded(20));
            const int point = int(random.bounded(digits + 2)) - 1;  // -1: none
            for (int d = 0; d < digits; ++d) {
                if (d == point)
                    t += '.';
                t += char('0' + random.bounded(10));
            }
            if (point == digits)
                t += '.';
            bool ok = false, qtOk = false;
            const double fast = g_toDouble(view(t), &ok);
            const double qt = t.toDouble(&qtOk);
            if (ok != qtOk || std::memcmp(&fast, &qt, sizeof fast) != 0)
                QFAIL(qPrintable(QStringLiteral("%1: %2, Qt %3").arg(QLatin1String(t)).arg(fast, 0, 'g', 17).arg(qt, 0, 'g', 17)));
        }
    }

    void integers_data()
    {
        QTest::addColumn<QByteArray>("text");
        const char *texts[] = {"0",  "007", "-1", "-0", "4294967295", "4294967296", "-2147483648", "-2147483649",
                               "2147483647", "2147483648", "+5", " 5", "5 ", "", "-", "x", "1.0", "0x1A"};
        for (const char *t : texts)
            QTest::newRow(t[0] ? t : "(empty)") << QByteArray(t);
    }

    void integers()
    {
        QFETCH(QByteArray, text);
        QCOMPARE(g_toUInt(view(text)), text.toUInt());
        QCOMPARE(g_toInt(view(text)), text.toInt());
    }

    void lines_data()
    {
        QTest::addColumn<QByteArray>("data");
        QTest::addColumn<int>("limit");  // longest line read, its '\n' included
        const int any = 8 << 20;
        QTest::newRow("empty") << QByteArray() << any;
        QTest::newRow("one line") << QByteArray("abc\n") << any;
        QTest::newRow("no last line end") << QByteArray("abc\ndef") << any;
        QTest::newRow("empty lines") << QByteArray("\n\n\nx\n\n") << any;
        QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n") << any;
        QTest::newRow("zero bytes") << QByteArray("a\0b\n\0\n", 6) << any;
        QTest::newRow("a line longer than a block") << QByteArray(3 << 20, 'x') + "\nshort\n" + QByteArray(5000000, 'y')
                                                    << any;
        QByteArray many;
        for (int i = 0; i < 300000; ++i)  // append grows geometrically; a builder += would copy every time
            many.append(QByteArray::number(i)).append(i % 3 ? "\n" : ";;\n");
        QTest::newRow("many lines across blocks") << many << any;
        QTest::newRow("lines at the bound") << QByteArray("abc\nd\nefgh") << 4;
        QTest::newRow("a line one byte over the bound") << QByteArray("ab\nabcd\nx\n") << 4;
        QTest::newRow("the last line over the bound") << QByteArray("ab\nabcde") << 4;
        QTest::newRow("no line end in megabytes") << QByteArray(3 << 20, 'x') + "\nshort\n" << 1000;
        QTest::newRow("an over-long line after many") << many + QByteArray(5000, ';') + "\nx\n" << 4096;
    }

    // Lines as readLine() gives them up to the first one over the bound, which
    // reads as the empty end; only a block beyond the bound has been read then.
    void lines()
    {
        QFETCH(QByteArray, data);
        QFETCH(int, limit);
        QBuffer reference(&data);
        QBuffer device(&data);
        QVERIFY(reference.open(QIODevice::ReadOnly));
        QVERIFY(device.open(QIODevice::ReadOnly));
        LineReader reader(device, limit);
        bool overLong = false;
        for (int n = 0;; ++n) {
            const QByteArray expected = reference.readLine();
            const ByteView got = reader.next();
            if (expected.size() > limit) {
                QCOMPARE(got.size, qsizetype(0));
                QVERIFY(reader.tooLong());
                QVERIFY(device.pos() - reference.pos() + expected.size() <= limit + 1 + (1 << 20));
                overLong = true;
                break;
            }
            if (QByteArray(got.data, int(got.size)) != expected)
                QFAIL(qPrintable(QStringLiteral("line %1 differs").arg(n)));
            if (expected.isEmpty())
                break;
        }
        QCOMPARE(reader.tooLong(), overLong);
        // The end stays the end; and a cut never underflows.
        QCOMPARE(reader.next().size, qsizetype(0));
        QCOMPARE(reader.next(2).size, qsizetype(0));
    }

    void fields_data()
    {
        QTest::addColumn<QByteArray>("line");
        QTest::addColumn<char>("separator");
        QTest::addColumn<int>("withoutTrailing");
        QTest::newRow("empty") << QByteArray() << ';' << 0;
        QTest::newRow("one field") << QByteArray("abc") << ';' << 1;
        QTest::newRow("three") << QByteArray("a;b;c") << ';' << 3;
        QTest::newRow("empty fields") << QByteArray(";a;;b;") << ';' << 4;
        QTest::newRow("separators only") << QByteArray(";;;") << ';' << 0;
        QTest::newRow("zero byte separator") << QByteArray("a\0b\0\0", 5) << '\0' << 2;
        QTest::newRow("twenty fields") << QByteArray("0,1,2,3,4,5,6,7,8,9,a,b,c,d,e,f,g,h,i,j") << ',' << 20;
    }

    void fields()
    {
        QFETCH(QByteArray, line);
        QFETCH(char, separator);
        QFETCH(int, withoutTrailing);
        const QList<QByteArray> expected = line.split(separator);
        ByteView got[17];
        QCOMPARE(int(g_splitFields(view(line), separator, got, 17)), expected.size());
        for (int i = 0; i < qMin(17, expected.size()); ++i)
            QCOMPARE(QByteArray(got[i].data, int(got[i].size)), expected[i]);
        QCOMPARE(int(g_countFieldsWithoutTrailingEmpty(view(line), separator)), withoutTrailing);
    }
};

QTEST_GUILESS_MAIN(TestCsvParse)
#include "tst_csvparse.moc"

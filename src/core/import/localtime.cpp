#include "core/import/localtime.h"

#include <QDateTime>
#include <QString>

#include <climits>

namespace qv {

namespace {

constexpr qint64 kHourMs = 3600000;
constexpr qint64 kDayMs = 24 * kHourMs;
constexpr int kFirstFastYear = 1970;  // the range where QDateTime asks the C library
constexpr int kLastFastYear = 2037;   // for the offset directly

inline bool digit(char c)
{
    return c >= '0' && c <= '9';
}
inline int twoDigits(const char *p)
{
    return (p[0] - '0') * 10 + (p[1] - '0');
}

bool leapYear(int y)
{
    return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
}

int daysInMonth(int y, int m)
{
    static const int days[12] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return m == 2 && leapYear(y) ? 29 : days[m - 1];
}

// Days since 1970-01-01 of a Gregorian date (used only as a cache key).
qint64 dayNumber(int y, int m, int d)
{
    y -= m <= 2;
    const qint64 era = y / 400;
    const qint64 yoe = y - era * 400;
    const qint64 doy = (153 * (m + (m > 2 ? -3 : 9)) + 2) / 5 + d - 1;
    const qint64 doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + doe - 719468;
}

qint64 localMSecs(const QDate &date, int hour, int minute, int second, bool *valid)
{
    const QDateTime t(date, QTime(hour, minute, second), Qt::LocalTime);
    *valid = t.isValid();
    return t.toMSecsSinceEpoch();
}

int offsetAt(qint64 utcMSecs)
{
    return QDateTime::fromMSecsSinceEpoch(utcMSecs, Qt::LocalTime).offsetFromUtc();
}

// True when the local times from..to (given as epoch milliseconds of the first
// and the last second of a span of span milliseconds) follow one UTC offset,
// and so does the hour before and after them: no skipped and no repeated
// local time can be inside or next to the span.
bool steadySpan(qint64 from, bool fromValid, qint64 to, bool toValid, qint64 span)
{
    if (!fromValid || !toValid || to - from != span - 1000)
        return false;
    const int offset = offsetAt(from);
    return offsetAt(to) == offset && offsetAt(from - kHourMs) == offset && offsetAt(to + kHourMs) == offset;
}

}  // namespace

bool g_parseStrictDate(const char *p, qsizetype size, LocalDateTime *out)
{
    if (size != 10 || !digit(p[0]) || !digit(p[1]) || p[2] != '.' || !digit(p[3]) || !digit(p[4]) || p[5] != '.' ||
        !digit(p[6]) || !digit(p[7]) || !digit(p[8]) || !digit(p[9]))
        return false;
    const int d = twoDigits(p);
    const int m = twoDigits(p + 3);
    const int y = twoDigits(p + 6) * 100 + twoDigits(p + 8);
    if (y < kFirstFastYear || y > kLastFastYear || m < 1 || m > 12 || d < 1 || d > daysInMonth(y, m))
        return false;
    out->year = y;
    out->month = m;
    out->day = d;
    return true;
}

bool g_parseStrictTime(const char *p, qsizetype size, bool withSeconds, LocalDateTime *out)
{
    if (size != (withSeconds ? 8 : 5) || !digit(p[0]) || !digit(p[1]) || p[2] != ':' || !digit(p[3]) || !digit(p[4]))
        return false;
    int s = 0;
    if (withSeconds) {
        if (p[5] != ':' || !digit(p[6]) || !digit(p[7]))
            return false;
        s = twoDigits(p + 6);
    }
    const int h = twoDigits(p);
    const int m = twoDigits(p + 3);
    if (h > 23 || m > 59 || s > 59)
        return false;
    out->hour = h;
    out->minute = m;
    out->second = s;
    return true;
}

void LocalTimeCache::lookUpHour(const LocalDateTime &t, qint64 hourKey)
{
    const QDate date(t.year, t.month, t.day);
    const qint64 dayKey = hourKey / 24;
    if (dayKey != currentDay) {
        bool firstValid = false, lastValid = false;
        dayStart = localMSecs(date, 0, 0, 0, &firstValid);
        const qint64 last = localMSecs(date, 23, 59, 59, &lastValid);
        steadyDay = steadySpan(dayStart, firstValid, last, lastValid, kDayMs);
        currentDay = dayKey;
    }
    currentHour = hourKey;
    if (steadyDay) {
        fastHour = true;
        hourStart = dayStart + t.hour * kHourMs;
        return;
    }
    // A day with an offset change: judge each hour on its own.
    bool firstValid = false, lastValid = false;
    hourStart = localMSecs(date, t.hour, 0, 0, &firstValid);
    const qint64 last = localMSecs(date, t.hour, 59, 59, &lastValid);
    fastHour = steadySpan(hourStart, firstValid, last, lastValid, kHourMs);
}

bool LocalTimeCache::toMSecs(const LocalDateTime &t, qint64 *msecs)
{
    if (t.year < kFirstFastYear || t.year > kLastFastYear)
        return false;
    if (fixed) {
        *msecs = (dayNumber(t.year, t.month, t.day) * 24 + t.hour) * kHourMs + t.minute * 60000 + t.second * 1000 -
                 fixedOffsetMs;
        return true;
    }
    const qint64 hourKey = dayNumber(t.year, t.month, t.day) * 24 + t.hour;
    if (hourKey != currentHour)
        lookUpHour(t, hourKey);
    if (!fastHour)
        return false;
    *msecs = hourStart + t.minute * 60000 + t.second * 1000;
    return true;
}

qint64 LocalTimeCache::settle(const QDate &date, const QTime &time, qint64 localMSecs)
{
    // A text that does not read keeps the value QDateTime gives it, moved as
    // every local time moves to the fixed offset.
    if (!date.isValid() || !time.isValid())
        return fixed ? localMSecs + offsetAt(localMSecs) * 1000 - fixedOffsetMs : localMSecs;
    if (fixed)
        return QDateTime(date, time, Qt::OffsetFromUTC, int(fixedOffsetMs / 1000)).toMSecsSinceEpoch();
    if (!skippedSeen && !QDateTime(date, time, Qt::LocalTime).isValid()) {
        skippedSeen = true;
        // A day before the skipped time (taken as UTC) lies before the change
        // whatever the zone's offset, and months after the change before it.
        offsetBeforeSkip = offsetAt(QDateTime(date, time, Qt::UTC).toMSecsSinceEpoch() - kDayMs);
    }
    return localMSecs;
}

void LocalTimeCache::useFixedOffset(int seconds)
{
    fixed = true;
    fixedOffsetMs = qint64(seconds) * 1000;
}

void g_localToFixedOffset(qint64 *times, int count, int seconds)
{
    qint64 spanStart = 0;
    qint64 spanEnd = -1;
    qint64 shift = 0;
    for (int k = 0; k < count; ++k) {
        const qint64 t = times[k];
        if (t < spanStart || t > spanEnd) {
            // An offset that is the same a day later holds for that day: zones
            // change theirs months apart.
            const int offset = offsetAt(t);
            spanStart = t;
            spanEnd = offsetAt(t + kDayMs) == offset ? t + kDayMs : t;
            shift = (qint64(offset) - seconds) * 1000;
        }
        times[k] = t + shift;
    }
}

qint64 LocalTimeReader::readSlowly(const char *text, qsizetype size) const
{
    const QString format =
        timeFormat == WithSeconds ? QStringLiteral("dd.MM.yyyy hh:mm:ss") : QStringLiteral("dd.MM.yyyy hh:mm");
    return QDateTime::fromString(QString::fromLatin1(text, int(qMin<qsizetype>(size, INT_MAX))), format)
        .toMSecsSinceEpoch();
}

qint64 LocalTimeReader::read(const char *text, qsizetype size)
{
    const qsizetype timeSize = timeFormat == WithSeconds ? 8 : 5;
    LocalDateTime t;
    qint64 msecs = 0;
    const bool strict = size == 11 + timeSize && text[10] == ' ' && g_parseStrictDate(text, 10, &t) &&
                        g_parseStrictTime(text + 11, timeSize, timeFormat == WithSeconds, &t);
    if (strict && cache.toMSecs(t, &msecs))
        return msecs;
    if (strict)
        return cache.settle(QDate(t.year, t.month, t.day), QTime(t.hour, t.minute, t.second), readSlowly(text, size));
    // Another form QDateTime may still read (a year outside the fast range);
    // a skipped time in it reads as invalid, as before.
    const QString format =
        timeFormat == WithSeconds ? QStringLiteral("dd.MM.yyyy hh:mm:ss") : QStringLiteral("dd.MM.yyyy hh:mm");
    const QDateTime local =
        QDateTime::fromString(QString::fromLatin1(text, int(qMin<qsizetype>(size, INT_MAX))), format);
    return cache.settle(local.date(), local.time(), local.toMSecsSinceEpoch());
}

}  // namespace qv

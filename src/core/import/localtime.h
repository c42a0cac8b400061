// Local date and time texts ("dd.MM.yyyy hh:mm:ss", "dd.MM.yyyy hh:mm") to
// milliseconds since the epoch, with exactly the result of QDateTime but many
// times faster for the long, ordered runs of time stamps in a sampling file.
//
// The fast path reads the digits by hand and adds them to the epoch time of
// the local hour, which is looked up once per day (or, on a day where the UTC
// offset changes, once per hour) with QDateTime. Anything it is not sure of
// (other forms, invalid dates, years outside 1970..2037, the hours around an
// offset change) is handed to QDateTime itself.
#pragma once

#include <QtGlobal>

namespace qv {

struct LocalDateTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
};

// Strict "dd.MM.yyyy": exactly ten bytes, a real Gregorian date in 1970..2037.
bool g_parseStrictDate(const char *text, qsizetype size, LocalDateTime *out);
// Strict "hh:mm" (withSeconds false) or "hh:mm:ss", 00:00 to 23:59:59.
bool g_parseStrictTime(const char *text, qsizetype size, bool withSeconds, LocalDateTime *out);

// Epoch milliseconds of local date-times, with the offset of the current day
// or hour remembered. One object per import: it assumes the time zone does not
// change while it is used.
class LocalTimeCache
{
public:
    // The value QDateTime(QDate(y, M, d), QTime(h, m, s)).toMSecsSinceEpoch()
    // has for a valid date-time; false when the hour is one QDateTime has to
    // judge itself (near a change of the UTC offset, or outside 1970..2037).
    bool toMSecs(const LocalDateTime &t, qint64 *msecs);

private:
    void lookUpHour(const LocalDateTime &t, qint64 hourKey);

    qint64 currentDay = -1;
    bool steadyDay = false;  // one UTC offset for the whole day and the hours around it
    qint64 dayStart = 0;
    qint64 currentHour = -1;
    bool fastHour = false;
    qint64 hourStart = 0;
};

// Reads one fixed format: "dd.MM.yyyy hh:mm:ss" or "dd.MM.yyyy hh:mm".
class LocalTimeReader
{
public:
    enum Format { WithSeconds, WithoutSeconds };
    explicit LocalTimeReader(Format format = WithSeconds) : timeFormat(format) {}

    // QDateTime::fromString(text, format).toMSecsSinceEpoch() for the Latin-1
    // text, including the value of the invalid date-time for a text that does
    // not parse.
    qint64 read(const char *text, qsizetype size);

    // The same through QDateTime alone; the reference the fast path follows.
    qint64 readSlowly(const char *text, qsizetype size) const;

private:
    Format timeFormat;
    LocalTimeCache cache;
};

}  // namespace qv

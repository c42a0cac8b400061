// Local date and time texts ("dd.MM.yyyy hh:mm:ss", "dd.MM.yyyy hh:mm") to
// milliseconds since the epoch, with exactly the result of QDateTime but many
// times faster for the long, ordered runs of time stamps in a sampling file.
//
// The fast path reads the digits by hand and adds them to the epoch time of
// the local hour, which is looked up once per day (or, on a day where the UTC
// offset changes, once per hour) with QDateTime. Anything it is not sure of
// (other forms, invalid dates, years outside 1970..2037, the hours around an
// offset change) is handed to QDateTime itself.
//
// A controller clock that stays on standard time all year writes the hour the
// local clock skips in spring. Such a time is noted, and from then on a
// reader can take every time with the zone's standard offset instead: one
// fixed offset, no gaps, no repeated hour; the times read before move to it.
#pragma once

#include <QtGlobal>

class QDate;
class QTime;

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
    // With a fixed offset every date of the fast range is read at once.
    bool toMSecs(const LocalDateTime &t, qint64 *msecs);
    // A date and time the fast path left to QDateTime, whose local reading
    // gave localMSecs: that value, or with a fixed offset the date and time at
    // that offset. A date and time the local clock skips is noted. Without a
    // valid date and time (a text that does not parse) localMSecs stays, with
    // a fixed offset moved as g_localToFixedOffset moves it.
    qint64 settle(const QDate &date, const QTime &time, qint64 localMSecs);

    // True once a local time was read that the clock skips (the change to
    // summer time); skippedOffset() is the UTC offset in seconds the zone had
    // before that change, its standard offset.
    bool metSkippedTime() const { return skippedSeen; }
    int skippedOffset() const { return offsetBeforeSkip; }
    // Every time from now on is read with this UTC offset in seconds.
    void useFixedOffset(int seconds);

private:
    void lookUpHour(const LocalDateTime &t, qint64 hourKey);

    bool fixed = false;
    qint64 fixedOffsetMs = 0;
    bool skippedSeen = false;
    int offsetBeforeSkip = 0;

    qint64 currentDay = -1;
    bool steadyDay = false;  // one UTC offset for the whole day and the hours around it
    qint64 dayStart = 0;
    qint64 currentHour = -1;
    bool fastHour = false;
    qint64 hourStart = 0;
};

// Times read as local time moved to the reading with a fixed UTC offset in
// seconds: each by the difference between its own local offset and that one,
// so that they equal the times read with the fixed offset in the first place.
void g_localToFixedOffset(qint64 *times, int count, int seconds);

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

    bool metSkippedTime() const { return cache.metSkippedTime(); }
    int skippedOffset() const { return cache.skippedOffset(); }
    void useFixedOffset(int seconds) { cache.useFixedOffset(seconds); }

private:
    Format timeFormat;
    LocalTimeCache cache;
};

}  // namespace qv

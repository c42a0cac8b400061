#include "core/project/csvexport.h"

#include "core/base/safewrite.h"
#include "core/model/devicestate.h"
#include "core/model/fixedstring.h"

#include <QDateTime>
#include <QIODevice>

#include <algorithm>
#include <cmath>
#include <limits>

namespace qv {

namespace {

const char *const kTimeHeader = QT_TRANSLATE_NOOP("QuorvantaCore", "Date/Time");
const char *const kStateHeader = QT_TRANSLATE_NOOP("QuorvantaCore", "State");

constexpr qint64 kDayMs = 86400000;
constexpr qint64 kBlockMs = 6 * 3600 * 1000;
// Years 1 to 9999 are written here; other times (only a damaged project has
// them) go through QDateTime.
constexpr qint64 kFirstMs = -62135596800000LL;
constexpr qint64 kLastMs = 253402300799999LL;
constexpr int kFlushBytes = 1 << 16;

qint64 floorDiv(qint64 a, qint64 b)
{
    return a / b - (a % b < 0 ? 1 : 0);
}

// The local UTC offset in seconds. Asking the time zone is slow, so it is
// asked at both ends of each six hours of UTC; where they differ, the moment
// of the change is found by halving, and the answer holds for all rows of
// those hours (zones change their offset at most once in six hours).
class LocalOffsets
{
public:
    int at(qint64 t)
    {
        const qint64 block = floorDiv(t, kBlockMs);
        if (block != currentBlock) {
            currentBlock = block;
            qint64 low = block * kBlockMs, high = low + kBlockMs - 1;
            before = ask(low);
            after = ask(high);
            // The first millisecond with the later offset.
            while (before != after && high - low > 1) {
                const qint64 middle = low + (high - low) / 2;
                (ask(middle) == before ? low : high) = middle;
            }
            change = high;
        }
        return t < change ? before : after;
    }

private:
    static int ask(qint64 t) { return QDateTime::fromMSecsSinceEpoch(t).offsetFromUtc(); }
    qint64 currentBlock = std::numeric_limits<qint64>::min();
    qint64 change = 0;
    int before = 0;
    int after = 0;
};

char *twoDigits(char *p, int v)
{
    *p++ = char('0' + v / 10);
    *p++ = char('0' + v % 10);
    return p;
}

// "2026-10-25T02:30:00+01:00"; milliseconds only when the sample has them.
void appendTime(QByteArray &out, qint64 t, LocalOffsets &offsets)
{
    if (t < kFirstMs + kDayMs || t > kLastMs - kDayMs) {
        out += QDateTime::fromMSecsSinceEpoch(t).toOffsetFromUtc(0).toString(Qt::ISODateWithMs).toLatin1();
        return;
    }
    const int offset = offsets.at(t);
    const qint64 local = t + qint64(offset) * 1000;
    // Days since 1970-01-01 to a civil date (proleptic Gregorian calendar).
    const qint64 days = floorDiv(local, kDayMs) + 719468;
    const int msOfDay = int(local - floorDiv(local, kDayMs) * kDayMs);
    const qint64 era = floorDiv(days, 146097);
    const int dayOfEra = int(days - era * 146097);
    const int yearOfEra = (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / 146096) / 365;
    const int dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const int mp = (5 * dayOfYear + 2) / 153;
    const int day = dayOfYear - (153 * mp + 2) / 5 + 1;
    const int month = mp < 10 ? mp + 3 : mp - 9;
    const int year = int(yearOfEra + era * 400) + (month <= 2 ? 1 : 0);

    char buffer[40];
    char *p = twoDigits(twoDigits(buffer, year / 100), year % 100);
    *p++ = '-';
    p = twoDigits(p, month);
    *p++ = '-';
    p = twoDigits(p, day);
    *p++ = 'T';
    const int seconds = msOfDay / 1000;
    p = twoDigits(p, seconds / 3600);
    *p++ = ':';
    p = twoDigits(p, seconds / 60 % 60);
    *p++ = ':';
    p = twoDigits(p, seconds % 60);
    if (msOfDay % 1000 != 0) {
        *p++ = '.';
        p = twoDigits(p, msOfDay % 1000 / 10);
        *p++ = char('0' + msOfDay % 10);
    }
    *p++ = offset < 0 ? '-' : '+';
    const int a = offset < 0 ? -offset : offset;
    p = twoDigits(p, a / 3600);
    *p++ = ':';
    p = twoDigits(p, a / 60 % 60);
    if (a % 60 != 0) {
        *p++ = ':';
        p = twoDigits(p, a % 60);
    }
    out.append(buffer, int(p - buffer));
}

// The value rounded to decimals places; no minus sign on a value that
// rounds to zero.
void appendValue(QByteArray &out, double value, int decimals, bool decimalComma)
{
    // Most values: scaled to an integer of at most nine digits, whose
    // rounding is certain while the scaled value lies clearly off a half
    // (its error is below 1.2e-7 there). The rest, exact halves among them
    // (rounded away from zero, as everywhere else in the program), go the
    // slow way.
    static const double kScale[] = {1e0, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};
    if (decimals <= 9) {
        const double scaled = value * kScale[decimals];
        const double magnitude = std::fabs(scaled);
        if (magnitude < 1e9 && std::fabs(magnitude - std::floor(magnitude) - 0.5) > 1e-6) {
            quint32 n = quint32(std::lround(magnitude));
            char digits[24];
            char *p = digits + sizeof(digits);
            for (int i = 0; i < decimals; ++i, n /= 10)
                *--p = char('0' + n % 10);
            if (decimals > 0)
                *--p = decimalComma ? ',' : '.';
            do {
                *--p = char('0' + n % 10);
                n /= 10;
            } while (n != 0);
            if (scaled < 0 && std::lround(magnitude) != 0)
                *--p = '-';
            out.append(p, int(digits + sizeof(digits) - p));
            return;
        }
    }
    QByteArray text = QByteArray::number(value, 'f', decimals);
    if (text.startsWith('-') &&
        std::all_of(text.cbegin() + 1, text.cend(), [](char c) { return c == '0' || c == '.'; }))
        text.remove(0, 1);
    if (decimalComma)
        text.replace('.', ',');
    out += text;
}

void appendField(QByteArray &out, const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    if (bytes.contains(';') || bytes.contains('"') || bytes.contains('\n') || bytes.contains('\r')) {
        out += '"';
        out += QByteArray(bytes).replace('"', "\"\"");
        out += '"';
    } else {
        out += bytes;
    }
}

}  // namespace

void g_csvWindow(const ChartModel &model, CsvRange range, CsvOptions &options)
{
    const settingsT &s = model.settings;
    switch (range) {
    case CsvRange::Selected:
        options.begin = s.rangeBegin;
        options.end = s.rangeEnd;
        break;
    case CsvRange::View:
        options.begin = s.viewBegin;
        options.end = s.viewEnd;
        break;
    case CsvRange::All:
        options.begin = std::numeric_limits<qint64>::min();
        options.end = std::numeric_limits<qint64>::max();
        break;
    }
}

QVector<int> g_shownDataSets(const ChartModel &model)
{
    QVector<int> sets;
    for (int i = 0; i < model.usedDataSets(); ++i) {
        if (model.settings.lineFlags[i] & kLineShown)
            sets << i;
    }
    return sets;
}

FileResult g_writeCsv(const ChartModel &model, QIODevice &device, const CsvOptions &options)
{
    const settingsT &s = model.settings;
    const auto text = [&options](const char *source) {
        return options.translate ? options.translate(source) : QString::fromLatin1(source);
    };
    QVector<int> sets;
    for (int set : options.sets) {
        if (set >= 0 && set < kMaxDataSets)
            sets << set;
    }
    const modeCodesT &modes = *model.modeCodes();
    const int stateCount = s.hasModeData ? g_sampleCount(modes.count) : 0;

    QByteArray out;
    out.reserve(kFlushBytes + 16 * 1024);
    if (options.byteOrderMark)
        out += "\xEF\xBB\xBF";
    appendField(out, text(kTimeHeader));
    for (int set : sets) {
        const QString name = g_buffer2QString(s.name[set], kNameWidth);
        const QString unit = g_buffer2QString(s.unit[set], kUnitWidth);
        out += ';';
        appendField(out, unit.isEmpty() ? name : name + QStringLiteral(" [") + unit + QLatin1Char(']'));
    }
    if (stateCount > 0) {
        out += ';';
        appendField(out, text(kStateHeader));
    }
    out += "\r\n";

    // The state texts, translated once.
    QByteArray states[256];
    if (stateCount > 0) {
        for (int code = -128; code < 128; ++code) {
            QByteArray &state = states[code + 128];
            appendField(state, text(g_stateName(code)));
        }
    }

    const _chartDataType &base = *model.data(0);
    const int rows = g_sampleCount(base.count);
    LocalOffsets offsets;
    int flushes = 0;
    for (int k = 0; k < rows; ++k) {
        const qint64 t = base.time[k];
        if (t < options.begin || t > options.end)
            continue;
        appendTime(out, t, offsets);
        for (int set : sets) {
            out += ';';
            const _chartDataType &store = *model.data(set);
            if (k < g_sampleCount(store.count) && !g_isMissing(store.value[k]))
                appendValue(out, store.value[k], s.decimals[set], options.decimalComma);
        }
        if (stateCount > 0) {
            out += ';';
            if (k < stateCount)
                out += states[modes.code[k] + 128];
        }
        out += "\r\n";
        if (out.size() >= kFlushBytes) {
            if (device.write(out) != out.size())
                return FileResult::failure(kMsgWriteError, FileError::CannotWrite);
            out.resize(0);
            // Every megabyte: a table that is written at once shows no progress.
            if (++flushes % 16 == 0)
                g_report(options.progress, int(qint64(k) * 255 / rows), 255);
        }
    }
    if (device.write(out) != out.size())
        return FileResult::failure(kMsgWriteError, FileError::CannotWrite);
    return FileResult();
}

FileResult g_saveCsvFile(const ChartModel &model, const QString &path, const CsvOptions &options)
{
    return g_writeFileWhole(path, [&](QIODevice &device) { return g_writeCsv(model, device, options); });
}

}  // namespace qv

#include "core/import/csvnumber.h"

#include "core/model/chartmodel.h"

#include <QString>

namespace qv {

namespace {

// Powers of ten that a double holds exactly.
constexpr double kExactPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kMaxExactPower = 22;
constexpr int kMaxDigits = 19;                    // fit into 64 bits without overflow
constexpr quint64 kMaxExactInteger = 1ull << 53;  // every integer up to here is a double

inline bool digit(char c)
{
    return c >= '0' && c <= '9';
}

// The hand conversion; false when the text is not a plain decimal it can do exactly.
bool plainDecimal(ByteView field, double *value)
{
    const char *p = field.data;
    const char *const end = p + field.size;
    const bool negative = p < end && *p == '-';
    if (negative)
        ++p;
    quint64 mantissa = 0;
    int digits = 0;
    int fraction = 0;
    bool point = false;
    for (; p < end; ++p) {
        if (digit(*p)) {
            if (++digits > kMaxDigits)
                return false;
            mantissa = mantissa * 10 + quint64(*p - '0');
            fraction += point;
        } else if (*p == '.' && !point) {
            point = true;
        } else {
            return false;
        }
    }
    if (digits == 0 || mantissa > kMaxExactInteger || fraction > kMaxExactPower)
        return false;
    const double magnitude = double(mantissa) / kExactPowers[fraction];
    *value = negative ? -magnitude : magnitude;
    return true;
}

QByteArray bytes(ByteView field)
{
    return QByteArray::fromRawData(field.data, int(qMin<qsizetype>(field.size, INT_MAX)));
}

bool plainInteger(ByteView field, bool allowSign, qint64 *value)
{
    const char *p = field.data;
    const char *const end = p + field.size;
    const bool negative = allowSign && p < end && *p == '-';
    if (negative)
        ++p;
    if (p == end || end - p > 9)
        return false;
    qint64 v = 0;
    for (; p < end; ++p) {
        if (!digit(*p))
            return false;
        v = v * 10 + (*p - '0');
    }
    *value = negative ? -v : v;
    return true;
}

}  // namespace

double g_toDouble(ByteView field, bool *ok)
{
    double value = 0;
    if (plainDecimal(field, &value)) {
        *ok = true;
        return value;
    }
    return bytes(field).toDouble(ok);
}

double g_readSampleValue(ByteView field)
{
    bool ok = false;
    const double value = g_toDouble(field, &ok);
    if (ok)
        return value;
    QString text = QString::fromLatin1(field.data, int(qMin<qsizetype>(field.size, INT_MAX)));
    text.remove(QChar(0));
    text.remove(QLatin1Char(' '));
    const double second = text.toDouble(&ok);
    return ok ? second : kMissingValue;
}

quint32 g_toUInt(ByteView field)
{
    qint64 value = 0;
    if (plainInteger(field, false, &value))
        return quint32(value);
    return bytes(field).toUInt();
}

qint32 g_toInt(ByteView field)
{
    qint64 value = 0;
    if (plainInteger(field, true, &value))
        return qint32(value);
    return bytes(field).toInt();
}

}  // namespace qv

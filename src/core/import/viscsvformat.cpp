#include "core/import/viscsvformat.h"

#include "core/import/csvnumber.h"
#include "core/model/devicestate.h"
#include "core/model/fixedstring.h"

#include <QString>
#include <QTime>

#include <cstring>

namespace qv {

namespace {

struct StateText {
    const char *text;  // exactly ten bytes
    DeviceState state;
};

// The device reports no Scheduler Off, Sensor Alarm, No Data or Manual On.
const StateText kStates[] = {
    {"FROST     ", DeviceState::FrostProtection},
    {"ZU KALT   ", DeviceState::TooColdOutside},
    {"ZU WARM   ", DeviceState::TooHotOutside},
    {"OPTIMAL   ", DeviceState::ConditionsOk},
    {"L\xDC"
     "FTEN AUS",
     DeviceState::WeatherAdverse},
    {"ERR INNEN ", DeviceState::SensorInAlarm},
    {"ERR AUSSEN", DeviceState::SensorOutAlarm},
    {"L\xDC"
     "FTEN EIN",
     DeviceState::SystemRunning},
};
constexpr int kStateBytes = 10;

struct VisSet {
    const char *name;
    bool celsius;
    const char *unit;  // when not celsius
    quint8 decimals;
    double axisMin;
    double axisMax;
};

const VisSet kSets[kVisDataSets] = {
    {"Temperatur Innen", true, nullptr, 1, -15.0, 35.0}, {"rel. Feuchte Innen", false, "%", 0, 0.0, 100.0},
    {"abs. Feuchte Innen", false, "g/kg", 1, 0.0, 20.0}, {"Temperatur Aussen", true, nullptr, 1, -15.0, 35.0},
    {"rel. Feuchte Aussen", false, "%", 0, 0.0, 100.0},  {"abs. Feuchte Aussen", false, "g/kg", 1, 0.0, 20.0},
};

struct Check {
    int set;
    double low;  // limits inclusive
    double high;
};

// In this order; sets 0 to 2 form the inside group, 3 to 5 the outside group.
// The inside and outside temperature limits differ on purpose.
const Check kChecks[] = {
    {2, 0.5, 50.0}, {5, 0.5, 50.0}, {3, -40.0, 50.0}, {0, -10.0, 50.0}, {1, 5.0, 100.0}, {4, 5.0, 100.0},
};

// Turns the trailing blanks of the title into zeros, walking back from its
// last byte; position 0 is never looked at. Returns the position of the last
// byte kept, 0 when only blanks and zeros followed it.
int trimTitle(char *title)
{
    int p = kDescriptionWidth - 1;
    while (p > 0 && (title[p] == ' ' || title[p] == '\0')) {
        title[p] = '\0';
        --p;
    }
    return p;
}

QString latin1(ByteView field)
{
    const ByteView text = field.upToZero();
    return QString::fromLatin1(text.data, int(text.size));
}

double numberOrZero(ByteView field)
{
    bool ok = false;
    const double v = g_toDouble(field, &ok);
    return ok ? v : 0.0;
}

}  // namespace

qint8 g_visStateCode(ByteView field)
{
    if (field.size != kStateBytes)
        return qint8(DeviceState::ManualOff);
    for (const StateText &s : kStates) {
        if (std::memcmp(field.data, s.text, kStateBytes) == 0)
            return qint8(s.state);
    }
    return qint8(DeviceState::ManualOff);
}

int g_writeVisTitle(settingsT &settings, ByteView deviceTitle)
{
    g_qString2Buffer(settings.description, latin1(deviceTitle), kDescriptionWidth);
    const int last = trimTitle(settings.description);
    std::memcpy(settings.description + last + 1, " - ", 3);
    return last + 4;
}

void g_appendVisName(settingsT &settings, int at, ByteView deviceName)
{
    // A title of at most 48 bytes leaves room for the name; the bounds are
    // checked all the same.
    const int room = qBound(0, kDescriptionWidth - at, kDescriptionWidth);
    const int bytes = qMin(int(qMin<qsizetype>(deviceName.size, kVisNameBytes)), room);
    if (bytes > 0)
        std::memcpy(settings.description + at, deviceName.data, size_t(bytes));
    trimTitle(settings.description);
}

void g_storeVisParameters(ChartModel &model, const ByteView *fields)
{
    // Field order of the line: min./max. temperature in, frost protection,
    // min./max. humidity in, hysteresis on and off.
    static const int kSlot[7] = {2, 3, 4, 0, 1, 5, 6};
    modeParametersT &p = *model.modeParameters();
    for (int f = 0; f < 7; ++f)
        p.parameter[kSlot[f]] = numberOrZero(fields[f]);
    const QTime interval = QTime::fromString(latin1(fields[9]), QStringLiteral("h:mm:ss"));
    const qint32 seconds = interval.msecsSinceStartOfDay() / 1000;  // 0 for an invalid time
    p.intParameter[0] = 1;                                          // control time, minutes
    p.intParameter[3] = 2;
    p.interval = seconds;
    model.settings.sampleInterval = seconds;
}

double g_readVisValue(ByteView field)
{
    if (!field.contains(' '))
        return numberOrZero(field);
    // Value fields are a few bytes long; an unusually long one is copied.
    char buffer[64];
    qsizetype n = 0;
    for (qsizetype i = 0; i < field.size; ++i) {
        if (field.data[i] == ' ')
            continue;
        if (n == qsizetype(sizeof buffer)) {
            QByteArray text = field.toByteArray();
            text.replace(' ', QByteArray());
            return numberOrZero(ByteView{text.constData(), text.size()});
        }
        buffer[n++] = field.data[i];
    }
    return numberOrZero(ByteView{buffer, n});
}

void g_applyVisLayout(settingsT &s)
{
    s.dataSetCount = kVisDataSets;
    for (int i = 0; i < kVisDataSets; ++i) {
        const VisSet &v = kSets[i];
        g_qString2Buffer(s.name[i], QLatin1String(v.name), kNameWidth);
        // "°C" is stored as the Latin-1 bytes 0xB0 0x43.
        g_qString2Buffer(s.unit[i], v.celsius ? QStringLiteral("\u00B0C") : QString(QLatin1String(v.unit)), kUnitWidth);
        s.decimals[i] = v.decimals;
        s.valueType[i] = 8;
        s.axisMin[i] = v.axisMin;
        s.axisMax[i] = v.axisMax;
    }
    // The inside series carry the axes, the temperature's on the right; the
    // outside series share them.
    s.lineFlags[0] |= kLineAxisRight;
    for (int i = 3; i < kVisDataSets; ++i)
        s.lineFlags[i] = kLineShown;
}

void g_checkVisPlausibility(ChartModel &model)
{
    double *values[kVisDataSets];
    for (int i = 0; i < kVisDataSets; ++i)
        values[i] = model.data(i)->value;
    const int n = g_sampleCount(model.data(0)->count);
    for (int k = 0; k < n; ++k) {
        for (const Check &c : kChecks) {
            const double v = values[c.set][k];
            if (v < c.low || v > c.high) {
                const int first = c.set < 3 ? 0 : 3;
                for (int i = first; i < first + 3; ++i)
                    values[i][k] = kMissingValue;
            }
        }
    }
}

}  // namespace qv

#include "core/import/controllerstate.h"

#include "core/import/csvnumber.h"
#include "core/model/devicestate.h"

namespace qv {

namespace {

// Field of each record member, in record order.
constexpr int kDoubleFields[11] = {2, 3, 4, 5, 6, 8, 9, 10, 11, 12, 13};
constexpr int kIntegerFields[4] = {7, 14, 15, 16};

}  // namespace

qint8 g_controllerState(quint32 a, quint32 b, qint32 c, quint32 d)
{
    DeviceState state = DeviceState::ManualOff;
    if (b == 100) {
        switch (c) {
        case -1:
            state = DeviceState::SensorAlarm;
            break;
        case 9:
            state = DeviceState::ConditionsOk;
            break;
        case 11:
            state = DeviceState::FrostProtection;
            break;
        case 12:
            state = DeviceState::TooHotOutside;
            break;
        case 18:
            state = DeviceState::TooColdOutside;
            break;
        case 20:
            state = DeviceState::WeatherAdverse;
            break;
        default:
            state = DeviceState::SystemRunning;
            break;
        }
    } else if (b == 200) {
        state = DeviceState::ManualOn;
    }
    if (a == 0)
        state = DeviceState::SchedulerOff;
    if (d != 0)
        state = DeviceState::SensorAlarm;
    return qint8(state);
}

qint8 g_stateFromFields(const ByteView *fields)
{
    return g_controllerState(g_toUInt(fields[2]), g_toUInt(fields[3]), g_toInt(fields[4]), g_toUInt(fields[5]));
}

void g_storeParameterFields(modeParametersT &record, const ByteView *fields)
{
    bool ok = false;
    for (int i = 0; i < 11; ++i)
        record.parameter[i] = g_toDouble(fields[kDoubleFields[i]], &ok);
    for (int i = 0; i < 4; ++i)
        record.intParameter[i] = g_toUInt(fields[kIntegerFields[i]]);
}

void g_storeCardParameterFields(modeParametersT &record, const ByteView *fields)
{
    record.interval = g_toInt(fields[1]);
}

}  // namespace qv

// The device states of the mode track: one signed code per sample, as the
// controller's state log and the vaporix-VIS device report them, and their
// names. The codes are stored in project files, so their numbers never change.
#pragma once

#include <QtGlobal>

namespace qv {

enum class DeviceState : qint8 {
    ManualOff = 0,
    SchedulerOff = 1,
    FrostProtection = 2,
    TooColdOutside = 3,
    TooHotOutside = 4,
    ConditionsOk = 5,
    WeatherAdverse = 6,
    SensorAlarm = 7,
    SensorInAlarm = 8,
    SensorOutAlarm = 9,
    NoData = 10,
    ManualOn = 11,
    SystemRunning = 12,
};

// The untranslated name of a state code (context "QuorvantaCore"); a code
// outside 0..12 has the name of code 0.
const char *g_stateName(int code);

}  // namespace qv

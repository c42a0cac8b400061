#include "core/model/devicestate.h"

namespace qv {

const char *g_stateName(int code)
{
    static const char *const kNames[] = {
        QT_TRANSLATE_NOOP("QuorvantaCore", "Manual Off"),       QT_TRANSLATE_NOOP("QuorvantaCore", "Scheduler Off"),
        QT_TRANSLATE_NOOP("QuorvantaCore", "Frost Protection"), QT_TRANSLATE_NOOP("QuorvantaCore", "Too Cold Outside"),
        QT_TRANSLATE_NOOP("QuorvantaCore", "Too Hot Outside"),  QT_TRANSLATE_NOOP("QuorvantaCore", "Conditions OK"),
        QT_TRANSLATE_NOOP("QuorvantaCore", "Weather adverse"),  QT_TRANSLATE_NOOP("QuorvantaCore", "Sensor Alarm"),
        QT_TRANSLATE_NOOP("QuorvantaCore", "Sensor In Alarm"),  QT_TRANSLATE_NOOP("QuorvantaCore", "Sensor Out Alarm"),
        QT_TRANSLATE_NOOP("QuorvantaCore", "No Data"),          QT_TRANSLATE_NOOP("QuorvantaCore", "Manual On"),
        QT_TRANSLATE_NOOP("QuorvantaCore", "System running")};
    return code >= 0 && code < int(sizeof(kNames) / sizeof(kNames[0])) ? kNames[code] : kNames[0];
}

}  // namespace qv

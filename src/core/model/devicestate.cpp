#include "core/model/devicestate.h"

namespace qv {

const char *g_stateName(int code)
{
    static const char *const kNames[] = {
        QT_TRANSLATE_NOOP("QVChartClass", "Manual Off"),       QT_TRANSLATE_NOOP("QVChartClass", "Scheduler Off"),
        QT_TRANSLATE_NOOP("QVChartClass", "Frost Protection"), QT_TRANSLATE_NOOP("QVChartClass", "Too Cold Outside"),
        QT_TRANSLATE_NOOP("QVChartClass", "Too Hot Outside"),  QT_TRANSLATE_NOOP("QVChartClass", "Conditions OK"),
        QT_TRANSLATE_NOOP("QVChartClass", "Weather adverse"),  QT_TRANSLATE_NOOP("QVChartClass", "Sensor Alarm"),
        QT_TRANSLATE_NOOP("QVChartClass", "Sensor In Alarm"),  QT_TRANSLATE_NOOP("QVChartClass", "Sensor Out Alarm"),
        QT_TRANSLATE_NOOP("QVChartClass", "No Data"),          QT_TRANSLATE_NOOP("QVChartClass", "Manual On"),
        QT_TRANSLATE_NOOP("QVChartClass", "System running")};
    return code >= 0 && code < int(sizeof(kNames) / sizeof(kNames[0])) ? kNames[code] : kNames[0];
}

}  // namespace qv

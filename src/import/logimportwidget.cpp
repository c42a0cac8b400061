#include "project/qvchartclass.h"

#include "import/importkind.h"
#include "import/logimport.h"

bool QVChartClass::m_importDAT()
{
    static const qv::ImportKind kind{
        QT_TR_NOOP("Open Ventimar Sampling File"),
        QT_TR_NOOP("Ventimar Sampling (*.log *.LOG)"),
        QT_TR_NOOP("Binary Ventimar Data"),
        &qv::g_importControllerLog,
    };
    return m_runImport(kind);
}

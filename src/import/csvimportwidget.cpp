#include "project/qvchartclass.h"

#include "import/csvimport.h"
#include "import/importkind.h"

bool QVChartClass::m_importCSV()
{
    static const qv::ImportKind kind{
        QT_TR_NOOP("Open Ventimar Sampling File"),
        QT_TR_NOOP("Ventimar Sampling (*.csv *.CSV)"),
        QT_TR_NOOP("CSV Ventimar Data"),
        &qv::g_importControllerCsv,
    };
    return m_runImport(kind);
}

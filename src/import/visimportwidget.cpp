#include "project/qvchartclass.h"

#include "import/importkind.h"
#include "import/visimport.h"

bool QVChartClass::m_importVap()
{
    static const qv::ImportKind kind{
        QT_TR_NOOP("Open vaporix-Vis Sampling File"),
        QT_TR_NOOP("vaporix-Vis Sampling (*.csv *.CSV)"),
        QT_TR_NOOP("CSV vaporix-Vis Data"),
        &qv::g_importVisCsv,
    };
    return m_runImport(kind);
}

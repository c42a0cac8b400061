#include "gui/ui/charttexts.h"

#include <QCoreApplication>

namespace qv {

const char *const kTextErrorTitle = QT_TRANSLATE_NOOP("QVChartClass", "Quorvanta Error");
const char *const kTextExtError = QT_TRANSLATE_NOOP("QVChartClass", "Error while loading additional vaporix files!");
const char *const kTextImporting = QT_TRANSLATE_NOOP("QVChartClass", "Importing Sampling Data...");

QString g_chartText(const char *source)
{
    return QCoreApplication::translate("QVChartClass", source ? source : "");
}

}  // namespace qv

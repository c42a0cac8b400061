// Texts of the chart document shared by several widgets (English source
// texts, translated in the context "QVChartClass"). Texts that the core gives
// are translated in the core's own context, with g_coreText().
#pragma once

#include <QString>

namespace qv {

extern const char *const kTextErrorTitle;  // "Quorvanta Error"
extern const char *const kTextExtError;    // "Error while loading additional vaporix files!"
extern const char *const kTextImporting;   // "Importing Sampling Data..."

// One of these texts, translated in the chart's context.
QString g_chartText(const char *source);

}  // namespace qv

// Texts of the chart document shared by several widgets (English source
// texts, translated in the context "QVChartClass"), and the translation of a
// text that the core gave in English.
#pragma once

#include <QString>

namespace qv {

extern const char *const kTextErrorTitle;  // "Quorvanta Error"
extern const char *const kTextExtError;    // "Error while loading additional vaporix files!"
extern const char *const kTextImporting;   // "Importing Sampling Data..."

// Translates a text that the core gave in English, in the chart's context.
QString g_chartText(const char *source);
QString g_chartText(const QString &source);

}  // namespace qv

// Texts of the chart widget shared by several of its source files (English
// source texts, translated in the context "QVChartClass").
#pragma once

namespace qv {

extern const char *const kTextErrorTitle;       // "Quorvanta Error"
extern const char *const kTextExtError;         // "Error while loading additional vaporix files!"
extern const char *const kTextImporting;        // "Importing Sampling Data..."

}  // namespace qv

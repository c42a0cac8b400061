// Import of a controller CSV sampling (with its sibling state and parameter files) into a fresh model.
#pragma once

#include "core/base/fileresult.h"
#include "core/import/importhost.h"
#include "core/model/chartmodel.h"

namespace qv {

// Message texts (English source texts, context "QuorvantaCore").
extern const char *const kMsgCsvTitle;    // "Error in CSV title line 1 !"
extern const char *const kMsgCsvColumns;  // "Error in CSV line 2 !\nToo many columns."

// Fills the model from the file at path; questions and progress go through
// host. On failure the result carries the message, and the model holds what
// was read before the fault.
FileResult g_importControllerCsv(const QString &path, ChartModel &model, ImportHost &host);

}  // namespace qv

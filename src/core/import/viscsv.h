// Import of a vaporix-VIS CSV sampling into a fresh model.
#pragma once

#include "core/base/fileresult.h"
#include "core/import/importhost.h"
#include "core/model/chartmodel.h"

namespace qv {

// Fills the model from the file at path; questions and progress go through
// host. On failure the result carries the message, and the model holds what
// was read before the fault.
FileResult g_importVisCsv(const QString &path, ChartModel &model, ImportHost &host);

}  // namespace qv

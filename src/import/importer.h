// One entry point for every kind of input: a project file is loaded, a
// sampling file is imported into a fresh model.
#pragma once

#include "import/importhost.h"
#include "import/inputtype.h"
#include "project/projectfile.h"

namespace qv {

FileResult g_readInput(InputType type, const QString &path, ChartModel &model, ImportHost &host);

extern const char *const kMsgTypeNotSupported;

}  // namespace qv

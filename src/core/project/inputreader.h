// One entry point for every kind of input: a project file is loaded, a
// sampling file is imported into a fresh model.
#pragma once

#include "core/base/fileresult.h"
#include "core/import/importhost.h"
#include "core/import/inputkind.h"
#include "core/model/chartmodel.h"

namespace qv {

FileResult g_readInput(InputKind kind, const QString &path, ChartModel &model, ImportHost &host);

extern const char *const kMsgTypeNotSupported;

}  // namespace qv

// Import of a controller binary sampling log (with its sibling logs) into a fresh model.
#pragma once

#include "core/base/fileresult.h"
#include "core/import/importhost.h"
#include "core/model/chartmodel.h"

namespace qv {

// Message and question texts (English source texts, context "QuorvantaCore").
extern const char *const kMsgNoLog;           // "File is no Ventimar sampling!"
extern const char *const kMsgLogHeader;       // "Ventimar sampling seems to be broken (header)!"
extern const char *const kMsgLogSize;         // "Ventimar sampling seems to be broken (filesize)!"
extern const char *const kAskFixMissingData;  // "Try to fix missing data?"
extern const char *const kAskFixOverflow;     // "Try to fix Solvanor firmware overflow bug?"

// Fills the model from the file at path (and, for a sensor log named
// ...SV_SA_01.LOG, from its three sibling logs); questions and progress go
// through host. On failure the result carries the message, and the model holds what
// was read before the fault.
FileResult g_importControllerLog(const QString &path, ChartModel &model, ImportHost &host);

}  // namespace qv

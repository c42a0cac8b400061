// What differs between the three kinds of sampling import on the widget side:
// the file dialog, the progress text and the core function that reads the file.
#pragma once

#include "core/base/fileresult.h"
#include "core/import/importhost.h"
#include "core/model/chartmodel.h"

namespace qv {

using ImportFunction = FileResult (*)(const QString &path, ChartModel &model, ImportHost &host);

struct ImportKind {
    const char *caption;  // file dialog caption, translated in the chart's context
    const char *filter;   // file dialog filter, translated likewise
    const char *detail;   // progress dialog detail text, translated likewise
    ImportFunction read;
};

}  // namespace qv

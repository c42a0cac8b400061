// The kinds of input file and, in one table, what imports each kind of
// sampling file. The kind of a file is judged from its name and, for .csv
// files, its first line (a vaporix-VIS export starts with an empty line).
#pragma once

#include "core/base/fileresult.h"
#include "core/import/importhost.h"
#include "core/model/chartmodel.h"

#include <QString>

namespace qv {

enum class InputKind { Unknown, Project, ControllerCsv, ControllerLog, VisCsv };

InputKind g_inputKindFromName(const QString &kindName);  // "qvj", "csv", "log", "vis"
InputKind g_detectInputKind(const QString &path);

using ImportFunction = FileResult (*)(const QString &path, ChartModel &model, ImportHost &host);

// What differs between the sampling imports on the widget side: the file
// dialog, the progress text and the core function that reads the file.
struct SamplingFormat {
    const char *caption;  // file dialog caption (a core text)
    const char *filter;   // file dialog filter, translated likewise
    const char *detail;   // progress dialog detail text, translated likewise
    ImportFunction read;
};

// The format of a sampling kind; nullptr for a project and for Unknown.
const SamplingFormat *g_samplingFormat(InputKind kind);

}  // namespace qv

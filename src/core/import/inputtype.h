// Which reader a file is for, judged from its name and, for .csv files, its
// first line (a vaporix-VIS export starts with an empty line).
#pragma once

#include <QString>

namespace qv {

enum class InputType { Unknown, Project, ControllerCsv, ControllerLog, VisCsv };

InputType g_inputTypeFromName(const QString &typeName);  // "qvj", "csv", "log", "vis"
InputType g_detectInputType(const QString &path);
const char *g_inputTypeName(InputType type);

}  // namespace qv

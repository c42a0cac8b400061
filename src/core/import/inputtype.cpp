#include "core/import/inputtype.h"

#include "core/base/regularfile.h"

#include <QFile>

namespace qv {

InputType g_inputTypeFromName(const QString &typeName)
{
    if (typeName == QLatin1String("qvj"))
        return InputType::Project;
    if (typeName == QLatin1String("csv"))
        return InputType::ControllerCsv;
    if (typeName == QLatin1String("log"))
        return InputType::ControllerLog;
    if (typeName == QLatin1String("vis"))
        return InputType::VisCsv;
    return InputType::Unknown;
}

const char *g_inputTypeName(InputType type)
{
    switch (type) {
    case InputType::Project:
        return "qvj";
    case InputType::ControllerCsv:
        return "csv";
    case InputType::ControllerLog:
        return "log";
    case InputType::VisCsv:
        return "vis";
    case InputType::Unknown:
        break;
    }
    return "unknown";
}

InputType g_detectInputType(const QString &path)
{
    if (path.endsWith(QLatin1String(".qvj"), Qt::CaseInsensitive))
        return InputType::Project;
    if (path.endsWith(QLatin1String(".log"), Qt::CaseInsensitive))
        return InputType::ControllerLog;
    if (path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive)) {
        // Only the first line of a regular file is looked at: a FIFO or a
        // device is left to the importer, which refuses it.
        QFile file(path);
        if (g_openRegularFile(file) && file.readLine(4096).size() == 1)
            return InputType::VisCsv;
        return InputType::ControllerCsv;
    }
    return InputType::Unknown;
}

}  // namespace qv

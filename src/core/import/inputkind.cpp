#include "core/import/inputkind.h"

#include "core/base/regularfile.h"
#include "core/import/controllercsv.h"
#include "core/import/controllerlog.h"
#include "core/import/viscsv.h"

#include <QFile>

namespace qv {

InputKind g_inputKindFromName(const QString &kindName)
{
    if (kindName == QLatin1String("qvj"))
        return InputKind::Project;
    if (kindName == QLatin1String("csv"))
        return InputKind::ControllerCsv;
    if (kindName == QLatin1String("log"))
        return InputKind::ControllerLog;
    if (kindName == QLatin1String("vis"))
        return InputKind::VisCsv;
    return InputKind::Unknown;
}

InputKind g_detectInputKind(const QString &path)
{
    if (path.endsWith(QLatin1String(".qvj"), Qt::CaseInsensitive))
        return InputKind::Project;
    if (path.endsWith(QLatin1String(".log"), Qt::CaseInsensitive))
        return InputKind::ControllerLog;
    if (path.endsWith(QLatin1String(".csv"), Qt::CaseInsensitive)) {
        // Only the first line of a regular file is looked at: a FIFO or a
        // device is left to the importer, which refuses it.
        QFile file(path);
        if (g_openRegularFile(file) && file.readLine(4096).size() == 1)
            return InputKind::VisCsv;
        return InputKind::ControllerCsv;
    }
    return InputKind::Unknown;
}

const SamplingFormat *g_samplingFormat(InputKind kind)
{
    static const SamplingFormat kControllerCsv{
        QT_TRANSLATE_NOOP("QuorvantaCore", "Open Ventimar Sampling File"),
        QT_TRANSLATE_NOOP("QuorvantaCore", "Ventimar Sampling (*.csv *.CSV)"),
        QT_TRANSLATE_NOOP("QuorvantaCore", "CSV Ventimar Data"),
        &g_importControllerCsv,
    };
    static const SamplingFormat kControllerLog{
        QT_TRANSLATE_NOOP("QuorvantaCore", "Open Ventimar Sampling File"),
        QT_TRANSLATE_NOOP("QuorvantaCore", "Ventimar Sampling (*.log *.LOG)"),
        QT_TRANSLATE_NOOP("QuorvantaCore", "Binary Ventimar Data"),
        &g_importControllerLog,
    };
    static const SamplingFormat kVisCsv{
        QT_TRANSLATE_NOOP("QuorvantaCore", "Open vaporix-Vis Sampling File"),
        QT_TRANSLATE_NOOP("QuorvantaCore", "vaporix-Vis Sampling (*.csv *.CSV)"),
        QT_TRANSLATE_NOOP("QuorvantaCore", "CSV vaporix-Vis Data"),
        &g_importVisCsv,
    };
    switch (kind) {
    case InputKind::ControllerCsv:
        return &kControllerCsv;
    case InputKind::ControllerLog:
        return &kControllerLog;
    case InputKind::VisCsv:
        return &kVisCsv;
    case InputKind::Project:
    case InputKind::Unknown:
        break;
    }
    return nullptr;
}

}  // namespace qv

#include "core/project/inputreader.h"

#include "core/import/csvimport.h"
#include "core/import/logimport.h"
#include "core/import/visimport.h"
#include "core/project/projectfile.h"

namespace qv {

const char *const kMsgTypeNotSupported =
    QT_TRANSLATE_NOOP("QVChartClass", "This kind of sampling file cannot be read yet.");

FileResult g_readInput(InputType type, const QString &path, ChartModel &model, ImportHost &host)
{
    switch (type) {
    case InputType::Project:
        return g_loadProjectFile(model, path, [&host](int m, int d) { host.progress(m, d); });
    case InputType::ControllerCsv:
        return g_importControllerCsv(path, model, host);
    case InputType::ControllerLog:
        return g_importControllerLog(path, model, host);
    case InputType::VisCsv:
        return g_importVisCsv(path, model, host);
    case InputType::Unknown:
        break;
    }
    return FileResult::failure(kMsgTypeNotSupported, FileError::BadContents);
}

}  // namespace qv

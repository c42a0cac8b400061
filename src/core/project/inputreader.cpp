#include "core/project/inputreader.h"

#include "core/project/projectfile.h"

namespace qv {

const char *const kMsgTypeNotSupported =
    QT_TRANSLATE_NOOP("QuorvantaCore", "This kind of sampling file cannot be read yet.");

FileResult g_readInput(InputKind kind, const QString &path, ChartModel &model, ImportHost &host)
{
    if (kind == InputKind::Project)
        return g_loadProjectFile(model, path, [&host](int m, int d) { host.progress(m, d); });
    if (const SamplingFormat *format = g_samplingFormat(kind))
        return format->read(path, model, host);
    return FileResult::failure(kMsgTypeNotSupported, FileError::BadContents);
}

}  // namespace qv

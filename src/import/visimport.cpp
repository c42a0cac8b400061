#include "visimport.h"

#include "import/importer.h"

namespace qv {

FileResult g_importVisCsv(const QString &, ChartModel &, ImportHost &)
{
    return FileResult::failure(kMsgTypeNotSupported, false);
}

}  // namespace qv

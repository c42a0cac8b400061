#include "logimport.h"

#include "import/importer.h"

namespace qv {

FileResult g_importControllerLog(const QString &, ChartModel &, ImportHost &)
{
    return FileResult::failure(kMsgTypeNotSupported, false);
}

}  // namespace qv

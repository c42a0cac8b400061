#include "csvimport.h"

#include "import/importer.h"

namespace qv {

FileResult g_importControllerCsv(const QString &, ChartModel &, ImportHost &)
{
    return FileResult::failure(kMsgTypeNotSupported, false);
}

}  // namespace qv

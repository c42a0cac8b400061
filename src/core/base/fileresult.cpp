#include "core/base/fileresult.h"

#include <QtGlobal>

namespace qv {

const char *const kMsgReadError = QT_TRANSLATE_NOOP("QuorvantaCore", "Error reading file!");
const char *const kMsgWriteError = QT_TRANSLATE_NOOP("QuorvantaCore", "Error while writing file!");

}  // namespace qv

// The language of the user interface, as the settings store keeps it under
// "Language" and as the help window picks its folder of pages.
#pragma once

#include <QtGlobal>

namespace qv {

enum class Language : quint32 {
    English = 0,
    German = 1,
    French = 2,   // help pages only
    Italian = 3,  // help pages only
    // While the settings are read: no catalogue is installed yet, so that the
    // switch to the stored language is never skipped as a switch to itself.
    Unset = 255,
};

}  // namespace qv

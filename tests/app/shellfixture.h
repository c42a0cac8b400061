// The desktop program's main window for the shell tests, on the widget test
// set-up.
#pragma once

#include "app/quorvantaclass.h"
#include "support/widgetsupport.h"

#include <memory>

namespace qvtest {

// A main window without the start screen; language as stored (German on a
// first start).
inline std::unique_ptr<QuorvantaClass> makeWindow()
{
    return std::make_unique<QuorvantaClass>(QStringLiteral("/nonexistent-app-dir"), nullptr, false);
}

}  // namespace qvtest

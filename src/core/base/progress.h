// Progress reporting from long core operations. The desktop program feeds a
// progress dialog (values 0..255 on a main and a detail bar); the command-line
// tool and the tests ignore it or record it.
#pragma once

#include <functional>

namespace qv {

using ProgressFn = std::function<void(int mainValue, int detailValue)>;

inline void g_report(const ProgressFn &progress, int mainValue, int detailValue)
{
    if (progress)
        progress(mainValue, detailValue);
}

}  // namespace qv

#include "gui/ui/resources.h"

#include <QtCore/qglobal.h>

// Q_INIT_RESOURCE must be used outside of any namespace.
static void initQuorvantaResources()
{
    Q_INIT_RESOURCE(quorvanta);
}

namespace qv {

void g_initResources()
{
    static const bool done = [] {
        initQuorvantaResources();
        return true;
    }();
    Q_UNUSED(done)
}

}  // namespace qv

// The program's embedded resources (icons, pictures, catalogues, pages).
#pragma once

namespace qv {

// Registers the resources of the static widget library; safe to call often.
void g_initResources();

}  // namespace qv

// Chart commands whose dialogs and output arrive with their own subsystems
// (hover callouts). Until then they leave the project as it is.
#include "project/qvchartclass.h"

// The controller's state log entries and its parameter record.
#pragma once

#include "core/import/csvlines.h"
#include "core/model/chartmodel.h"

namespace qv {

// State code of one state log entry from its running flag a, mode b, mode
// detail c (signed) and fault d:
//   mode 100 gives 12, or by detail -1: 7, 9: 5, 11: 2, 12: 4, 18: 3, 20: 6;
//   mode 200 gives 11; any other mode 0;
//   then a = 0 makes it 1, and a fault (d != 0) makes it 7 whatever came before.
qint8 g_controllerState(quint32 a, quint32 b, qint32 c, quint32 d);

// Field counts of the entry lines of the three sibling sections.
constexpr int kStateLogFields = 6;
constexpr int kParameterFields = 17;
constexpr int kCardParameterFields = 9;

// One state log line of kStateLogFields fields: fields 2, 3 and 5 unsigned,
// field 4 signed (a field that does not parse counts as 0; field 1 is unused).
qint8 g_stateFromFields(const ByteView *fields);

// One PARAMETER line of kParameterFields fields into the parameter record:
// the eleven doubles from fields 2-6 and 8-13, the four integers from fields
// 7, 14, 15 and 16. Every further line overwrites the record.
void g_storeParameterFields(modeParametersT &record, const ByteView *fields);

// One PARAMETER SDKARTE line of kCardParameterFields fields: field 1, a signed
// integer, is the record's card value (stored after the four integers).
void g_storeCardParameterFields(modeParametersT &record, const ByteView *fields);

}  // namespace qv

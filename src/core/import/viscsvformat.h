// The fixed parts of a vaporix-VIS sampling file: the header line widths, the
// chart title made of device title and name, the parameter line, the device
// state texts, the six data sets and their plausibility limits.
#pragma once

#include "core/import/csvlines.h"
#include "core/model/chartmodel.h"

namespace qv {

// Header line lengths; 2 and 3 without their terminator, the others with it.
constexpr int kVisLine1Bytes = 1;
constexpr int kVisTitleBytes = 48;
constexpr int kVisNameBytes = 16;
constexpr int kVisLine4Bytes = 84;
constexpr int kVisParameterLineBytes = 40;
constexpr int kVisParameterFields = 10;
constexpr int kVisColumnLineBytes = 192;
constexpr int kVisDataFields = 9;  // date, time, six values, state
constexpr int kVisDataSets = 6;

// The mode code of a state field (ten Latin-1 bytes compared as a whole);
// 0 for anything else.
qint8 g_visStateCode(ByteView field);

// The chart title from line 2: the device title, trailing blanks removed,
// followed by " - ". Returns the position where the device name goes.
int g_writeVisTitle(settingsT &settings, ByteView deviceTitle);
// Copies the 16 bytes of the device name from line 3 to position `at` of the
// title as they are, then removes trailing blanks again.
void g_appendVisName(settingsT &settings, int at, ByteView deviceName);

// Stores the ten fields of the parameter line in the parameter block and the
// sampling interval (field 9, "h:mm:ss") in both places.
void g_storeVisParameters(ChartModel &model, const ByteView *fields);

// A value field: blanks removed anywhere, 0.0 for what does not convert.
double g_readVisValue(ByteView field);

// Names, units, decimals, value types, axis ranges and line flags of the six
// data sets; dataSetCount := 6.
void g_applyVisLayout(settingsT &settings);

// Writes the missing-value marker over a whole group (inside or outside) of
// every sample that fails one of its limits, the checks in their fixed order.
void g_checkVisPlausibility(ChartModel &model);

}  // namespace qv

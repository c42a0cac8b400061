// Numbers in CSV fields, read bit for bit as Qt reads them, with a fast path
// for the plain decimals that make up nearly every sampling file.
#pragma once

#include "core/import/csvlines.h"

namespace qv {

// QByteArray::toDouble(&ok) of the field (C locale). A plain decimal
// ("-12.345", ".5", "7.") of at most 15 significant digits is converted by
// hand, exactly: the digits as an integer divided by an exact power of ten is
// one correctly rounded division. Everything else goes to Qt.
double g_toDouble(ByteView field, bool *ok);

// A sample value: the field as a double; failing that, the field as text
// without its NUL characters and blanks; failing that too, the missing-value
// marker.
double g_readSampleValue(ByteView field);

// QByteArray::toUInt(&ok) and toInt(&ok) in base 10; 0 when they fail.
quint32 g_toUInt(ByteView field);
qint32 g_toInt(ByteView field);

}  // namespace qv

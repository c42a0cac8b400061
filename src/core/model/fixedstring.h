// Fixed-width, zero-filled Latin-1 text fields of the settings record.
#pragma once

#include <QString>

namespace qv {

// Zero-fills width bytes and copies the Latin-1 form of text, at most
// width - 1 bytes, so the field is always terminated. Does nothing for a null
// destination or a width outside 1..65536.
void g_qString2Buffer(char *destination, const QString &text, int width);
// As g_qString2Buffer, but copies up to width bytes: a text of width
// characters or more leaves the field without a terminator.
void g_qString2BufferWO0(char *destination, const QString &text, int width);
// For a zero-terminated character string; same rules as g_qString2Buffer.
void g_char2Buffer(char *destination, const char *text, int width);

// Reads a field back: Latin-1 up to the first zero byte, never past width.
QString g_buffer2QString(const char *field, int width);

}  // namespace qv

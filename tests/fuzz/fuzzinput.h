// Shared by the importer fuzzers: one fuzz input becomes a main file and up to
// three sibling files, cut at the bytes 00 FF 00 FF.
#pragma once

#include <QByteArray>
#include <QList>

namespace qvfuzz {

inline QList<QByteArray> splitIntoFiles(const QByteArray &input)
{
    const QByteArray cut("\x00\xff\x00\xff", 4);
    QList<QByteArray> parts;
    for (int from = 0; parts.size() < 4;) {
        const int at = parts.size() < 3 ? input.indexOf(cut, from) : -1;
        parts << input.mid(from, at < 0 ? -1 : at - from);
        if (at < 0)
            break;
        from = at + cut.size();
    }
    return parts;
}

}  // namespace qvfuzz

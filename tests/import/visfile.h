// A well-formed vaporix-VIS sampling file whose lines a test can change one by
// one before writing it.
#pragma once

#include <QByteArray>
#include <QByteArrayList>

namespace qvtest {

struct VisFile {
    QByteArray line1 = "\n";
    QByteArray line2;  // device title, 48 bytes + '\n'
    QByteArray line3;  // device name, 16 bytes + '\n'
    QByteArray line4;  // 84 bytes with '\n'
    QByteArray line5;  // parameters, 40 bytes with '\n'
    QByteArray line6 = "Intervall Start Ende\n";
    QByteArray line7;  // column titles, 192 bytes with '\n'
    QByteArrayList data;  // whole lines with their terminators

    VisFile();
    QByteArray bytes() const;
};

// text padded with blanks (or cut) to width bytes.
QByteArray padded(const QByteArray &text, int width);
// A parameter line of exactly 40 bytes: the ten fields, field 7 padded.
QByteArray parameterLine(const QByteArrayList &fields);
// "date;time;v0;...;v5;state\n".
QByteArray dataLine(const QByteArray &date, const QByteArray &time, const QByteArrayList &values,
                    const QByteArray &state);

}  // namespace qvtest

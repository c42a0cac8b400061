// Helpers shared by the test programs.
#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <cstring>

namespace qvtest {

// Reads a whole file; empty when it cannot be read.
QByteArray readFile(const QString &path);
bool writeFile(const QString &path, const QByteArray &bytes);

// Big-endian 32-bit length + bytes: one byte-array item of a Qt data stream.
QByteArray item(const QByteArray &bytes);
QByteArray bigEndian32(quint32 value);

// Runs a program to its end (two minutes at most). exitCode is -1 when it
// did not start, did not finish or crashed.
struct ProgramRun {
    int exitCode = -1;
    QByteArray out;
    QByteArray err;
};
ProgramRun runProgram(const QString &program, const QStringList &arguments);

// Describes the first difference of two byte arrays ("" when equal), so a
// failed comparison says where the bytes part.
QString firstDifference(const QByteArray &actual, const QByteArray &expected);

}  // namespace qvtest

#define QV_COMPARE_BYTES(actual, expected)                                                                             \
    do {                                                                                                               \
        const QString qvDiff_ = qvtest::firstDifference((actual), (expected));                                         \
        if (!qvDiff_.isEmpty())                                                                                        \
            QFAIL(qPrintable(qvDiff_));                                                                                \
    } while (false)

// Compares doubles bit for bit and prints both on failure.
#define QV_COMPARE_DOUBLE(actual, expected)                                                                            \
    do {                                                                                                               \
        const double qvA_ = (actual), qvE_ = (expected);                                                               \
        if (std::memcmp(&qvA_, &qvE_, sizeof qvA_) != 0)                                                               \
            QFAIL(qPrintable(QStringLiteral("%1 is %2, expected %3")                                                   \
                                 .arg(QStringLiteral(#actual))                                                         \
                                 .arg(qvA_, 0, 'g', 17)                                                                \
                                 .arg(qvE_, 0, 'g', 17)));                                                             \
    } while (false)

#include "testsupport.h"

#include <QFile>
#include <QProcess>

#include <algorithm>

namespace qvtest {

QByteArray readFile(const QString &path)
{
    QFile f(path);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

bool writeFile(const QString &path, const QByteArray &bytes)
{
    QFile f(path);
    return f.open(QIODevice::WriteOnly) && f.write(bytes) == bytes.size();
}

QByteArray bigEndian32(quint32 v)
{
    const char b[4] = {char(v >> 24), char(v >> 16), char(v >> 8), char(v)};
    return QByteArray(b, 4);
}

QByteArray item(const QByteArray &bytes)
{
    return bigEndian32(quint32(bytes.size())) + bytes;
}

ProgramRun runProgram(const QString &program, const QStringList &arguments)
{
    QProcess p;
    p.start(program, arguments);
    ProgramRun r;
    if (!p.waitForFinished(120000))
        return r;
    if (p.exitStatus() == QProcess::NormalExit)
        r.exitCode = p.exitCode();
    r.out = p.readAllStandardOutput();
    r.err = p.readAllStandardError();
    return r;
}

QString firstDifference(const QByteArray &actual, const QByteArray &expected)
{
    const int n = qMin(actual.size(), expected.size());
    const int i = int(std::mismatch(actual.begin(), actual.begin() + n, expected.begin()).first - actual.begin());
    if (i < n)
        return QStringLiteral("bytes differ at offset %1 (0x%2): got 0x%3, expected 0x%4")
            .arg(i)
            .arg(i, 0, 16)
            .arg(uchar(actual.at(i)), 2, 16, QLatin1Char('0'))
            .arg(uchar(expected.at(i)), 2, 16, QLatin1Char('0'));
    if (actual.size() != expected.size())
        return QStringLiteral("sizes differ: got %1 bytes, expected %2").arg(actual.size()).arg(expected.size());
    return QString();
}

}  // namespace qvtest

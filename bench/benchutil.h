// Small timing and memory helpers for the benchmark programs.
#pragma once

#include <QElapsedTimer>
#include <QFile>

#include <cstdio>
#include <cstring>

namespace qvbench {

// Peak resident memory of this process in MiB (VmHWM).
inline double peakMiB()
{
    QFile f(QStringLiteral("/proc/self/status"));
    if (!f.open(QIODevice::ReadOnly))
        return -1;
    for (const QByteArray &line : f.readAll().split('\n')) {
        if (line.startsWith("VmHWM:"))
            return line.mid(6).trimmed().split(' ').first().toDouble() / 1024.0;
    }
    return -1;
}

// Resets the peak to the current resident size, so phases can be measured apart.
inline void resetPeak()
{
    QFile f(QStringLiteral("/proc/self/clear_refs"));
    if (f.open(QIODevice::WriteOnly))
        f.write("5");
}

// Widget benchmarks run offscreen unless QT_QPA_PLATFORM says otherwise;
// called before the QApplication is made.
inline void preferOffscreen()
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
}

template <typename F> double seconds(F &&work)
{
    QElapsedTimer timer;
    timer.start();
    work();
    return double(timer.nsecsElapsed()) / 1e9;
}

}  // namespace qvbench

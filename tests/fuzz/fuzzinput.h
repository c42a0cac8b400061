// Shared by the fuzz targets: the one model of the process and the splitting
// of one fuzz input into a main file and up to three sibling files.
#pragma once

#include "core/model/chartmodel.h"

#include <QByteArray>
#include <QDir>
#include <QList>
#include <QTemporaryDir>

#ifdef QV_FUZZ_REPLAY
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#endif

namespace qvfuzz {

// Where the input files are written: in memory where the system offers it,
// since a disk file system writes every replaced file back on its close.
inline QString scratchPath(const QString &name)
{
    static QTemporaryDir dir(QDir(QStringLiteral("/dev/shm")).exists()
                                 ? QStringLiteral("/dev/shm/qvfuzz-XXXXXX")
                                 : QDir::tempPath() + QStringLiteral("/qvfuzz-XXXXXX"));
    return dir.filePath(name);
}

// Cut at the bytes 00 FF 00 FF.
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

#ifdef QV_FUZZ_REPLAY
// The replay checks that a reset model is byte for byte a new one, so that no
// input's result can depend on the input before it.
inline bool allZero(const void *p, std::size_t size)
{
    static const char zeros[4096] = {};
    const char *b = static_cast<const char *>(p);
    for (std::size_t at = 0; at < size; at += sizeof zeros) {
        const std::size_t n = std::min(sizeof zeros, size - at);
        if (std::memcmp(b + at, zeros, n) != 0)
            return false;
    }
    return true;
}

inline void checkFresh(qv::ChartModel &model)
{
    settingsT fresh;
    qv::g_initSettings(fresh, model.settings.changedTime);
    bool same = std::memcmp(&fresh, &model.settings, sizeof fresh) == 0 &&
                allZero(model.displayData(), sizeof(_chartDataType)) &&
                allZero(model.modeCodes(), sizeof(modeCodesT)) &&
                allZero(model.displayModeCodes(), sizeof(modeCodesT)) &&
                allZero(model.modeParameters(), sizeof(modeParametersT)) && !model.modeBoxVisible &&
                !model.modeBoxChecked && model.clockReading == qv::ClockReading::NotRead && model.standardOffset == 0;
    for (int i = 0; i < qv::kMaxDataSets; ++i)
        same = same && allZero(model.data(i), sizeof(_chartDataType)) && !model.row[i].enabled && !model.row[i].checked;
    if (!same) {
        std::fprintf(stderr, "the reset model differs from a new one\n");
        std::abort();
    }
}
#endif

// The model every run imports into: made once (it is large), reset before
// each input.
inline qv::ChartModel &freshModel()
{
    static qv::ChartModel model;
    model.reset();
#ifdef QV_FUZZ_REPLAY
    checkFresh(model);
#endif
    return model;
}

}  // namespace qvfuzz

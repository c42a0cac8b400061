// Project file (.qvj): a data stream of two byte-array items, the magic and
// the compressed payload. The payload holds the settings record, the stores
// of the data sets in use and, for recordings with device modes, the mode
// codes and the parameter block, each as one byte-array item of raw bytes.
#pragma once

#include "chartmodel.h"
#include "progress.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

class QIODevice;

namespace qv {

QByteArray g_projectHeader13();
QByteArray g_projectHeader14();

// Message texts (English source texts; the desktop program translates them in
// the context "QVChartClass").
extern const char *const kMsgNoProject;      // "File is no Quorvanta project!"
extern const char *const kMsgDamagedProject; // "Error in Quorvanta project!"
extern const char *const kMsgReadError;      // "Error reading file!"
extern const char *const kMsgWriteError;     // "Error while writing file!"

struct FileResult {
    bool ok = true;
    const char *message = nullptr;  // one of the texts above when !ok
    bool critical = false;          // critical box rather than a warning
    static FileResult failure(const char *text, bool isCritical)
    {
        return FileResult{false, text, isCritical};
    }
};

// Uncompressed payload size for a record with this many data sets.
qint64 g_payloadSize(int dataSets, bool withModeData);

struct SaveOptions {
    quint32 changedTime = 0;  // written into the record before it is saved
    int level = 6;            // zlib level: 6 is ten times faster than 9 for 1.4 % more bytes
    ProgressFn progress;
};

// Writes the whole file to an open device and sets changedTime in the model.
FileResult g_writeProject(ChartModel &model, QIODevice &device, const SaveOptions &options);
// Saves to a path: copies an existing file to its backup first, then writes
// through a temporary file that replaces the old one only when everything was
// written, so a failed save leaves the old file and the backup untouched.
FileResult g_saveProjectFile(ChartModel &model, const QString &path, const SaveOptions &options);

// Reads a project from an open device into the model (stores zeroed first,
// rows activated, range recounted). On failure the model is partly written
// and must be discarded.
FileResult g_readProject(ChartModel &model, QIODevice &device, const ProgressFn &progress);
FileResult g_loadProjectFile(ChartModel &model, const QString &path, const ProgressFn &progress);

}  // namespace qv

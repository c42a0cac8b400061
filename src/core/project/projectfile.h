// Project file (.qvj): a data stream of two byte-array items, the magic and
// the compressed payload. The payload holds the settings record, the stores
// of the data sets in use and, for recordings with device modes, the mode
// codes and the parameter block, each as one byte-array item of raw bytes.
#pragma once

#include "core/base/fileresult.h"
#include "core/base/progress.h"
#include "core/model/chartmodel.h"

#include <QByteArray>
#include <QString>
#include <QtGlobal>

class QIODevice;

namespace qv {

QByteArray g_projectHeader13();
QByteArray g_projectHeader14();

// Message texts of project files (English source texts).
extern const char *const kMsgNoProject;       // "File is no Quorvanta project!"
extern const char *const kMsgDamagedProject;  // "Error in Quorvanta project!"
extern const char *const kMsgProjectInUse;    // "The project is in use by another program!"

// Uncompressed payload size for a record with this many data sets.
qint64 g_payloadSize(int dataSets, bool withModeData);

struct SaveOptions {
    quint32 changedTime = 0;  // written into the record before it is saved
    int level = 6;            // deflate level (1..12): 6 is many times faster than 9 for 1.4 % more bytes
    int lockWaitMs = 2000;    // how long a save waits for another program's save of the same file
    ProgressFn progress;
};

// Writes the whole file to an open device and sets changedTime in the model.
// The payload is built once and compressed on a worker thread while this
// thread keeps reporting progress.
FileResult g_writeProject(ChartModel &model, QIODevice &device, const SaveOptions &options);
// Saves to a path, never writing into the old file:
// - only a regular file (or nothing) at path is replaced; a device, FIFO,
//   socket or folder is refused with nothing touched;
// - "<path>.lock" is held while saving; a second saver gets kMsgProjectInUse;
// - the new file is written beside the old one under a temporary name and
//   renamed over it only when complete; where no temporary file can be made
//   (a read-only folder) the save fails;
// - an existing file is first copied whole to its backup name (also through
//   a temporary name), so the old backup goes only once the new one is
//   complete. If the backup cannot be made, the save fails.
// A failed save leaves the old file byte-identical.
FileResult g_saveProjectFile(ChartModel &model, const QString &path, const SaveOptions &options);

// A file-size limit (ulimit -f) must end in a write error, not in SIGXFSZ
// killing the process. Called first thing in main.
void g_ignoreFileSizeSignal();

// Reads a project from an open device into the model (stores zeroed first,
// rows activated, range recounted). On failure the model is partly written
// and must be discarded.
FileResult g_readProject(ChartModel &model, QIODevice &device, const ProgressFn &progress);
// Only a regular file is read; anything else gives kMsgReadError.
FileResult g_loadProjectFile(ChartModel &model, const QString &path, const ProgressFn &progress);

}  // namespace qv

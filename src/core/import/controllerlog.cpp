#include "core/import/controllerlog.h"

#include "core/base/regularfile.h"
#include "core/import/controllerlogformat.h"
#include "core/import/controllerstate.h"
#include "core/import/controllersteps.h"
#include "core/model/devicestate.h"
#include "core/model/fixedstring.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <array>
#include <cfloat>
#include <cstring>

namespace qv {

const char *const kMsgNoLog = QT_TRANSLATE_NOOP("QuorvantaCore", "File is no Ventimar sampling!");
const char *const kMsgLogHeader = QT_TRANSLATE_NOOP("QuorvantaCore", "Ventimar sampling seems to be broken (header)!");
const char *const kMsgLogSize = QT_TRANSLATE_NOOP("QuorvantaCore", "Ventimar sampling seems to be broken (filesize)!");
const char *const kAskFixMissingData = QT_TRANSLATE_NOOP("QuorvantaCore", "Try to fix missing data?");
const char *const kAskFixOverflow = QT_TRANSLATE_NOOP("QuorvantaCore", "Try to fix Solvanor firmware overflow bug?");

namespace {

constexpr quint32 kNoDataRow = 0xBAADF00Du;

// A sibling log after its checks: the header, its rows and its window (with
// the repair of the sensor log applied).
struct SiblingLog {
    LogHeader header;
    QByteArray data;
    LogWindow window;
};

// The file in the folder of path whose name equals path's ignoring case, when
// path itself does not exist (a memory card copied by hand onto a
// case-sensitive file system keeps the lower-case names); path otherwise.
QString existingSpelling(const QString &path)
{
    const QFileInfo info(path);
    if (info.exists() || info.isSymLink())
        return path;
    const QDir folder = info.dir();
    const QString name = info.fileName();
    for (const QString &entry :
         folder.entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot)) {
        if (entry.compare(name, Qt::CaseInsensitive) == 0)
            return folder.filePath(entry);
    }
    return path;
}

// "01.LOG" replaced by "02.LOG" ignoring case, then "02.LOG" by "03.LOG" in
// that path and "03.LOG" by "04.LOG"; each name that does not exist as such
// is looked up ignoring case.
std::array<QString, 3> siblingPaths(const QString &path)
{
    std::array<QString, 3> paths = g_siblingPaths(path, {"01.LOG", "02.LOG", "03.LOG", "04.LOG"});
    for (QString &p : paths)
        p = existingSpelling(p);
    return paths;
}

class ControllerLogImport
{
public:
    ControllerLogImport(ChartModel &model, ImportHost &host)
        : chartModel(model), settings(model.settings), importHost(host)
    {
    }

    FileResult run(QIODevice &file, const QString &path);

private:
    FileResult readSensorLog(QIODevice &file);
    void readDataSet(const LogRing &ring, int index);
    FileResult readSiblings(const QString &path);
    bool readSibling(QIODevice &file, const char *title, SiblingLog *log) const;
    bool readStateLog(const SiblingLog &log);
    void readParameters(const SiblingLog &log);
    void readCardParameters(const SiblingLog &log);

    ChartModel &chartModel;
    settingsT &settings;
    ImportHost &importHost;
    LogHeader header;
    LogWindow window;
    bool repaired = false;
};

FileResult ControllerLogImport::run(QIODevice &file, const QString &path)
{
    const FileResult sensor = readSensorLog(file);
    if (!sensor.ok)
        return sensor;
    if (header.title == kSensorTitle &&
        path.right(12).compare(QLatin1String("SV_SA_01.LOG"), Qt::CaseInsensitive) == 0) {
        const FileResult siblings = readSiblings(path);
        if (!siblings.ok)
            return siblings;
    }
    g_finishControllerImport(chartModel);
    return FileResult();
}

FileResult ControllerLogImport::readSensorLog(QIODevice &file)
{
    importHost.progress(1, 255);
    if (!g_readLogMagic(file))
        return FileResult::failure(kMsgNoLog, FileError::BadContents);
    importHost.progress(10, 255);
    if (!g_readLogHeader(file, &header) || !g_isUsableLogHeader(header))
        return FileResult::failure(kMsgLogHeader, FileError::BadContents);
    importHost.progress(20, 255);
    bool complete = false;
    const QByteArray data = g_readLogData(file, header.dataSize, &complete);
    if (!complete && !importHost.askYesNo(QLatin1String(kTitleQuestion), QLatin1String(kAskFixMissingData)))
        return FileResult::failure(kMsgLogSize, FileError::BadContents);
    importHost.progress(192, 255);

    g_qString2Buffer(settings.description, QString::fromLatin1(header.title), kDescriptionWidth);
    chartModel.clearStores();
    settings.dataSetCount = header.count;
    settings.sampleInterval = header.interval;

    window = g_logWindow(header);
    if (g_offersOverflowRepair(window, header.capacity) &&
        importHost.askYesNo(QLatin1String(kTitleQuestion), QLatin1String(kAskFixOverflow))) {
        g_repairOverflow(window, header.interval);
        repaired = true;
    }

    // More rows than a store holds: the first ones are kept, as the text
    // importers keep theirs.
    if (window.rows > quint32(kMaxSamples))
        importHost.warn(QLatin1String(kMsgTooManyData));
    const LogRing ring(data, header.count, header.capacity);
    for (int i = 0; i < header.count; ++i) {
        g_qString2Buffer(settings.name[i], QString::fromLatin1(header.names[i]), kNameWidth);
        g_activateImportedRow(chartModel, i);
        readDataSet(ring, i);
        importHost.progress(g_axisProgress(i, header.count), 255);
    }
    g_setTimeRange(chartModel);
    return FileResult();
}

// The samples of data set index: one per row from S, the time advancing by
// one interval per row also over rows without data, which keep the missing
// value and stay out of the axis range.
void ControllerLogImport::readDataSet(const LogRing &ring, int index)
{
    const LogDescriptor &descriptor = header.sets[index];
    settings.valueType[index] = descriptor.type;
    settings.decimals[index] = g_logTypeForcesIntegers(descriptor.type) ? 0 : descriptor.decimals;

    _chartDataType &store = *chartModel.data(index);
    const int count = int(qMin<quint32>(window.rows, kMaxSamples));
    qint64 time = (qint64(header.timeCorrection) + qint64(window.startTime)) * 1000;
    const qint64 step = qint64(header.interval) * 1000;
    double low = DBL_MAX;
    double high = -DBL_MAX;
    qint64 row = window.start;
    for (int k = 0; k < count; ++k) {
        store.time[k] = time;
        if (ring.word(row, 0) == kNoDataRow) {
            store.value[k] = kMissingValue;
        } else {
            const double v = g_decodeLogValue(descriptor, ring.word(row, index));
            store.value[k] = v;
            if (v < low)
                low = v;
            if (v > high)
                high = v;
        }
        time += step;
        row = ring.next(row);
    }
    store.count = count;
    g_setAxisLimits(chartModel, index, low, high);
}

// The state log, parameters and card parameters of a sensor log
// "...SV_SA_01.LOG" are "...SV_SA_02.LOG" to "...04.LOG" beside it. Missing
// siblings or a No to the question import the sensor data alone.
FileResult ControllerLogImport::readSiblings(const QString &path)
{
    SiblingFiles files;
    if (const std::optional<FileResult> done = g_offerSiblings(files, siblingPaths(path), importHost))
        return *done;

    const FileResult failed = FileResult::failure(kMsgSiblingFiles, FileError::SiblingFiles);
    importHost.progress(1, 255);
    for (int i = 0; i < 3; ++i) {
        if (!g_readLogMagic(files[i]))
            return failed;
    }
    importHost.progress(10, 255);

    SiblingLog log;
    if (!readSibling(files[0], "STATUS LOG", &log) || !readStateLog(log))
        return failed;
    importHost.progress(180, 255);
    if (!readSibling(files[1], "PARAMETER", &log))
        return failed;
    readParameters(log);
    importHost.progress(250, 255);
    if (!readSibling(files[2], "PARAMETER SDKARTE", &log))
        return failed;
    readCardParameters(log);

    importHost.progress(255, 255);
    g_applySensorLayout(chartModel);
    return FileResult();
}

bool ControllerLogImport::readSibling(QIODevice &file, const char *title, SiblingLog *log) const
{
    if (!g_readLogHeader(file, &log->header) || !g_isUsableLogHeader(log->header) || log->header.title != title)
        return false;
    bool complete = false;
    log->data = g_readLogData(file, log->header.dataSize, &complete);
    if (!complete)
        return false;
    log->window = g_logWindow(log->header);
    if (repaired)
        g_repairOverflow(log->window, log->header.interval);
    return true;
}

// The state log runs in step with the sensor rows, k rows apart: k rows late
// (k > 0) fills the first k states with "no data", k rows early skips them.
bool ControllerLogImport::readStateLog(const SiblingLog &log)
{
    const qint64 start = qint64(log.window.startTime) + qint64(log.header.timeCorrection);
    const qint64 distance = start - settings.firstTime / 1000;
    const qint32 interval = settings.sampleInterval;
    if (interval == 0 && distance != 0)
        return false;
    const qint64 k = interval == 0 ? 0 : distance / interval;
    const qint64 lag = k < 0 ? -k : k;
    if (k != 0 && lag > settings.rangeSampleCount / 4)
        return false;

    modeCodesT &codes = *chartModel.modeCodes();
    std::memset(&codes, 0, sizeof codes);
    const qint64 count = qMin<qint64>(qint64(log.window.rows) - lag, kMaxSamples);
    const LogRing ring(log.data, log.header.count, log.header.capacity);
    qint64 row = log.window.start - k;
    for (qint64 n = 0; n < count; ++n) {
        qint8 state = qint8(DeviceState::NoData);
        if (row >= 0 && ring.word(row, 0) != kNoDataRow)
            state =
                g_controllerState(ring.word(row, 1), ring.word(row, 2), qint32(ring.word(row, 3)), ring.word(row, 4));
        codes.code[n] = state;
        row = ring.next(row);
    }
    codes.count = qint32(qMax<qint64>(count, 0));
    return true;
}

// Every row overwrites the whole record, so the last row of the window wins.
void ControllerLogImport::readParameters(const SiblingLog &log)
{
    if (log.window.rows == 0)
        return;
    const LogRing ring(log.data, log.header.count, log.header.capacity);
    const qint64 row = ring.advance(log.window.start, log.window.rows - 1);
    const auto s = [&](int i) { return double(qint32(ring.word(row, i))); };
    const auto u = [&](int i) { return double(ring.word(row, i)); };
    modeParametersT &p = *chartModel.modeParameters();
    p.parameter[0] = u(1) / 200;
    p.parameter[1] = u(2) / 200;
    for (int i = 2; i < 5; ++i)
        p.parameter[i] = s(i + 1) / 100;
    for (int i = 5; i < 9; ++i)
        p.parameter[i] = s(i + 2) / 100;
    p.parameter[9] = s(11) / 200;
    p.parameter[10] = s(12) / 200;
    p.intParameter[0] = ring.word(row, 6);
    for (int i = 1; i < 4; ++i)
        p.intParameter[i] = ring.word(row, 12 + i);
}

// The card's sampling interval is kept in minutes.
void ControllerLogImport::readCardParameters(const SiblingLog &log)
{
    if (log.window.rows == 0)
        return;
    const LogRing ring(log.data, log.header.count, log.header.capacity);
    const qint64 row = ring.advance(log.window.start, log.window.rows - 1);
    chartModel.modeParameters()->interval = qint32(ring.word(row, 0) * 60u);
}

}  // namespace

FileResult g_importControllerLog(const QString &path, ChartModel &model, ImportHost &host)
{
    QFile file(path);
    if (!g_openRegularFile(file))
        return FileResult::failure(kMsgReadError, FileError::CannotOpen);
    return ControllerLogImport(model, host).run(file, path);
}

}  // namespace qv

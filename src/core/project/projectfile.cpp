#include "core/project/projectfile.h"

#include "core/base/regularfile.h"
#include "core/base/safewrite.h"
#include "core/model/devicestate.h"
#include "core/project/compression.h"
#include "core/project/projectpaths.h"

#include <QFile>
#include <QFileInfo>
#include <QLockFile>

#include <cmath>
#include <csignal>
#include <cstring>
#include <memory>

namespace qv {

const char *const kMsgNoProject = QT_TRANSLATE_NOOP("QuorvantaCore", "File is no Quorvanta project!");
const char *const kMsgDamagedProject = QT_TRANSLATE_NOOP("QuorvantaCore", "Error in Quorvanta project!");
const char *const kMsgProjectInUse = QT_TRANSLATE_NOOP("QuorvantaCore", "The project is in use by another program!");

namespace {

constexpr quint32 kSettingsItem = sizeof(settingsT);
constexpr quint32 kStoreItem = sizeof(_chartDataType);
constexpr quint32 kModeCodesItem = sizeof(modeCodesT);
constexpr quint32 kModeParametersItem = sizeof(modeParametersT);
constexpr int kMagicLength = 51;

// A compressed item larger than this cannot come from a real project.
constexpr qint64 kMaxCompressedItem = qint64(256) << 20;

QByteArray bigEndian32(quint32 v)
{
    const char b[4] = {char(v >> 24), char(v >> 16), char(v >> 8), char(v)};
    return QByteArray(b, 4);
}

quint32 fromBigEndian32(const char *p)
{
    const auto *b = reinterpret_cast<const uchar *>(p);
    return (quint32(b[0]) << 24) | (quint32(b[1]) << 16) | (quint32(b[2]) << 8) | b[3];
}

bool writeAll(QIODevice &device, const QByteArray &bytes)
{
    return device.write(bytes) == bytes.size();
}

bool readExactly(QIODevice &device, char *destination, qint64 size)
{
    while (size > 0) {
        const qint64 got = device.read(destination, size);
        if (got <= 0)
            return false;
        destination += got;
        size -= got;
    }
    return true;
}

bool readLength(QIODevice &device, quint32 *length)
{
    char b[4];
    if (!readExactly(device, b, 4))
        return false;
    *length = fromBigEndian32(b);
    return true;
}

// Reads a byte-array item whose length is checked against what the device can
// still deliver before any memory is taken for it.
std::unique_ptr<PayloadBuffer> readBoundedItem(QIODevice &device, qint64 maxLength)
{
    quint32 length = 0;
    if (!readLength(device, &length) || length == 0xFFFFFFFFu || qint64(length) > maxLength)
        return nullptr;
    if (!device.isSequential() && qint64(length) > device.size() - device.pos())
        return nullptr;
    auto item = std::make_unique<PayloadBuffer>(length);
    if ((length > 0 && item->isNull()) || !readExactly(device, item->data(), length))
        return nullptr;
    return item;
}

// Whole stores are copied in and out of the model: their pages are mapped in
// one call first.
constexpr quint32 kPopulateFrom = 1 << 20;

// Appends byte-array items to a buffer that was sized for all of them.
class PayloadWriter
{
public:
    explicit PayloadWriter(char *buffer) : p(buffer) {}
    void item(const void *data, quint32 size)
    {
        if (size >= kPopulateFrom)
            g_populate(data, size, false);
        const QByteArray length = bigEndian32(size);
        std::memcpy(p, length.constData(), 4);
        std::memcpy(p + 4, data, size);
        p += 4 + size;
    }
    const char *end() const { return p; }

private:
    char *p;
};

// Takes byte-array items of an exact length out of the inflated payload.
class PayloadReader
{
public:
    PayloadReader(const char *data, qint64 size) : p(data), end(data + size) {}
    bool item(void *destination, quint32 expectedLength)
    {
        if (end - p < 4 || fromBigEndian32(p) != expectedLength)
            return false;
        if (end - p - 4 < qint64(expectedLength))
            return false;
        if (expectedLength >= kPopulateFrom)
            g_populate(destination, expectedLength, true);
        std::memcpy(destination, p + 4, expectedLength);
        p += 4 + expectedLength;
        return true;
    }

private:
    const char *p;
    const char *end;
};

int versionOf(const QByteArray &magic)
{
    if (magic == g_projectHeader14())
        return 14;
    if (magic == g_projectHeader13())
        return 13;
    return 0;
}

// Files of version 1.3 numbered the mode codes one lower from No Data (10) upward.
void raiseVersion13Codes(modeCodesT &codes)
{
    const int n = g_sampleCount(codes.count);
    for (int k = 0; k < n; ++k) {
        if (codes.code[k] >= qint8(DeviceState::NoData))
            codes.code[k] = qint8(quint8(codes.code[k]) + 1);
    }
}

// Copies source whole to backup through a temporary file that replaces the
// old backup only once the copy is complete. A backup that is a symbolic link
// is replaced by the copy, never written through: the link goes first.
bool makeBackup(const QString &source, const QString &backup)
{
    if (backup.isEmpty())
        return false;
    QFile in(source);
    if (!g_openRegularFile(in))
        return false;
    if (QFileInfo(backup).isSymLink() && !QFile::remove(backup))
        return false;
    const auto copy = [&in](QIODevice &out) {
        const FileResult failed = FileResult::failure(kMsgWriteError, FileError::CannotWrite);
        QByteArray chunk(1 << 20, Qt::Uninitialized);
        for (;;) {
            const qint64 got = in.read(chunk.data(), chunk.size());
            if (got < 0)
                return failed;
            if (got == 0)
                return FileResult();
            if (out.write(chunk.constData(), got) != got)
                return failed;
        }
    };
    return g_writeFileWhole(backup, copy).ok;
}

}  // namespace

QByteArray g_projectHeader13()
{
    return QByteArrayLiteral("Quorvanta Project - (C)2016 Merovin GmbH V1.3.000RS");
}

QByteArray g_projectHeader14()
{
    return QByteArrayLiteral("Quorvanta Project - (C)2016 Merovin GmbH V1.4.000RS");
}

qint64 g_payloadSize(int dataSets, bool withModeData)
{
    qint64 size = 4 + kSettingsItem + qint64(dataSets) * (4 + kStoreItem);
    if (withModeData)
        size += 4 + kModeCodesItem + 4 + kModeParametersItem;
    return size;
}

FileResult g_writeProject(ChartModel &model, QIODevice &device, const SaveOptions &options)
{
    const FileResult writeError = FileResult::failure(kMsgWriteError, FileError::CannotWrite);
    g_report(options.progress, 1, 255);
    model.settings.changedTime = options.changedTime;

    const QByteArray magic = g_projectHeader14();
    if (!writeAll(device, bigEndian32(quint32(magic.size())) + magic))
        return writeError;
    g_report(options.progress, 31, 255);

    // The payload, built once in a buffer of its exact size (main bar 31..63).
    const int n = model.usedDataSets();
    const bool withModes = model.settings.hasModeData != 0;
    const qint64 size = g_payloadSize(n, withModes);
    const qint64 bound = g_zlibBound(size, options.level);
    const PayloadBuffer payload(size);
    const PayloadBuffer stream(bound);
    if (payload.isNull() || stream.isNull())
        return writeError;
    PayloadWriter items(payload.data());
    items.item(&model.settings, kSettingsItem);
    for (int i = 0; i < n; ++i) {
        items.item(model.data(i), kStoreItem);
        g_report(options.progress, 31 + 32 * (i + 1) / qMax(n, 1), 255);
    }
    if (withModes) {
        items.item(model.modeCodes(), kModeCodesItem);
        items.item(model.modeParameters(), kModeParametersItem);
    }
    Q_ASSERT(items.end() == payload.data() + size);
    g_report(options.progress, 63, 255);

    // No progress comes out of one deflate call, so the bar creeps towards
    // its end on a time estimate (about 100 MB a second) and never passes it.
    const double expectedSeconds = qMax(0.05, double(size) / 100e6);
    int shown = 63;
    const qint64 streamSize =
        g_zlibCompress(payload.data(), size, options.level, stream.data(), bound, [&](double elapsed) {
            const int value = 63 + int(191 * (1.0 - std::exp(-elapsed / expectedSeconds)));
            if (value > shown)
                shown = value;
            g_report(options.progress, shown, 255);
        });
    if (streamSize <= 0 || streamSize > 0x7FFFFFF0)
        return writeError;
    // The block as qCompress frames it: uncompressed length, then the stream.
    if (!writeAll(device, bigEndian32(quint32(streamSize + 4)) + bigEndian32(quint32(size))) ||
        device.write(stream.data(), streamSize) != streamSize)
        return writeError;
    g_report(options.progress, 255, 255);
    return FileResult();
}

FileResult g_saveProjectFile(ChartModel &model, const QString &path, const SaveOptions &options)
{
    const FileResult writeError = FileResult::failure(kMsgWriteError, FileError::CannotWrite);
    const QString lockPath = path + QLatin1String(".lock");
    if (path.isEmpty() || !g_mayReplace(path) || !g_mayReplace(lockPath))
        return writeError;

    QLockFile lock(lockPath);
    if (!lock.tryLock(qMax(0, options.lockWaitMs))) {
        if (lock.error() == QLockFile::LockFailedError)
            return FileResult::failure(kMsgProjectInUse, FileError::CannotWrite);
        return writeError;  // no lock can be made here: nor a temporary file
    }

    // The backup is made once the new file's temporary file exists, so a
    // folder where nothing can be written keeps the old backup too.
    return g_writeFileWhole(path, [&](QIODevice &file) {
        if (QFileInfo::exists(path) && !makeBackup(path, g_backupPath(path)))
            return writeError;
        return g_writeProject(model, file, options);
    });
}

void g_ignoreFileSizeSignal()
{
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN);
#endif
}

FileResult g_readProject(ChartModel &model, QIODevice &device, const ProgressFn &progress)
{
    const FileResult damaged = FileResult::failure(kMsgDamagedProject, FileError::BadContents);

    QByteArray magic;
    quint32 magicLength = 0;
    if (!readLength(device, &magicLength) || magicLength != kMagicLength)
        return FileResult::failure(kMsgNoProject, FileError::BadContents);
    magic.resize(kMagicLength);
    if (!readExactly(device, magic.data(), kMagicLength))
        return FileResult::failure(kMsgNoProject, FileError::BadContents);
    const int version = versionOf(magic);
    if (version == 0)
        return FileResult::failure(kMsgNoProject, FileError::BadContents);

    g_report(progress, 1, 255);
    model.clearStores();
    g_report(progress, 31, 255);

    const std::unique_ptr<PayloadBuffer> block = readBoundedItem(device, kMaxCompressedItem);
    if (!block)
        return damaged;

    // The largest payload any project can have bounds what a stream may
    // inflate to; the length in front of the stream is only a hint.
    if (block->size() < 4)
        return damaged;
    const qint64 maxPayload = g_payloadSize(kMaxDataSets, true);
    const PayloadBuffer inflated(maxPayload);
    qint64 inflatedSize = 0;
    if (inflated.isNull() ||
        !g_zlibDecompress(block->data() + 4, block->size() - 4, inflated.data(), maxPayload, &inflatedSize))
        return damaged;
    g_report(progress, 40, 255);

    PayloadReader payload(inflated.data(), inflatedSize);
    if (!payload.item(&model.settings, kSettingsItem))
        return damaged;
    if (model.settings.dataSetCount > kMaxDataSets)
        return damaged;
    for (int i = 0; i < model.settings.dataSetCount; ++i) {
        if (!payload.item(model.data(i), kStoreItem))
            return damaged;
        model.activateRow(i);
        g_report(progress, 40 + (i + 1) * 13, 255);
    }
    if (model.settings.hasModeData) {
        if (!payload.item(model.modeCodes(), kModeCodesItem))
            return damaged;
        if (version == 13)
            raiseVersion13Codes(*model.modeCodes());
        if (!payload.item(model.modeParameters(), kModeParametersItem))
            return damaged;
        model.showModeBox();
    }
    // Whatever follows the last item is ignored.

    model.settings.viewBegin = model.settings.rangeBegin;
    model.settings.viewEnd = model.settings.rangeEnd;
    model.recountRange();
    g_report(progress, 255, 255);
    return FileResult();
}

FileResult g_loadProjectFile(ChartModel &model, const QString &path, const ProgressFn &progress)
{
    QFile file(path);
    if (!g_openRegularFile(file))
        return FileResult::failure(kMsgReadError, FileError::CannotOpen);
    return g_readProject(model, file, progress);
}

}  // namespace qv

#include "projectfile.h"

#include "projectpaths.h"
#include "zstream.h"

#include <QFile>
#include <QSaveFile>

#include <cstring>

namespace qv {

const char *const kMsgNoProject = QT_TRANSLATE_NOOP("QVChartClass", "File is no Quorvanta project!");
const char *const kMsgDamagedProject = QT_TRANSLATE_NOOP("QVChartClass", "Error in Quorvanta project!");
const char *const kMsgReadError = QT_TRANSLATE_NOOP("QVChartClass", "Error reading file!");
const char *const kMsgWriteError = QT_TRANSLATE_NOOP("QVChartClass", "Error while writing file!");

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
    unsigned char b[4];
    if (!readExactly(device, reinterpret_cast<char *>(b), 4))
        return false;
    *length = (quint32(b[0]) << 24) | (quint32(b[1]) << 16) | (quint32(b[2]) << 8) | b[3];
    return true;
}

// Reads a byte-array item whose length is checked against what the device can
// still deliver before any memory is taken for it.
bool readBoundedItem(QIODevice &device, qint64 maxLength, QByteArray *item)
{
    quint32 length = 0;
    if (!readLength(device, &length) || length == 0xFFFFFFFFu || qint64(length) > maxLength)
        return false;
    if (!device.isSequential() && qint64(length) > device.size() - device.pos())
        return false;
    item->resize(int(length));
    return readExactly(device, item->data(), length);
}

int versionOf(const QByteArray &magic)
{
    if (magic == g_projectHeader14())
        return 14;
    if (magic == g_projectHeader13())
        return 13;
    return 0;
}

// Files of version 1.3 numbered the mode codes one lower from code 10 upward.
void raiseVersion13Codes(modeCodesT &codes)
{
    const int n = qBound(0, int(codes.count), kMaxSamples);
    for (int k = 0; k < n; ++k) {
        if (codes.code[k] >= 10)
            codes.code[k] = qint8(quint8(codes.code[k]) + 1);
    }
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
    const FileResult writeError = FileResult::failure(kMsgWriteError, true);
    g_report(options.progress, 1, 255);
    model.settings.changedTime = options.changedTime;

    const QByteArray magic = g_projectHeader14();
    if (!writeAll(device, bigEndian32(quint32(magic.size())) + magic))
        return writeError;
    g_report(options.progress, 31, 255);

    const int n = model.usedDataSets();
    const bool withModes = model.settings.hasModeData != 0;

    // Item headers are kept alive here; the stores are compressed in place.
    const QByteArray settingsHeader = bigEndian32(kSettingsItem);
    const QByteArray storeHeader = bigEndian32(kStoreItem);
    const QByteArray modeCodesHeader = bigEndian32(kModeCodesItem);
    const QByteArray modeParametersHeader = bigEndian32(kModeParametersItem);
    std::vector<ByteSpan> spans{{settingsHeader.constData(), 4}, {&model.settings, kSettingsItem}};
    for (int i = 0; i < n; ++i) {
        spans.push_back({storeHeader.constData(), 4});
        spans.push_back({model.data(i), kStoreItem});
    }
    if (withModes) {
        spans.push_back({modeCodesHeader.constData(), 4});
        spans.push_back({model.modeCodes(), kModeCodesItem});
        spans.push_back({modeParametersHeader.constData(), 4});
        spans.push_back({model.modeParameters(), kModeParametersItem});
    }
    Q_ASSERT(g_payloadSize(n, withModes) == [&] {
        qint64 sum = 0;
        for (const ByteSpan &s : spans)
            sum += s.size;
        return sum;
    }());

    const QByteArray block = g_compressFramed(spans, options.level, [&](qint64 consumed, qint64 total) {
        g_report(options.progress, 31 + int(223 * consumed / qMax<qint64>(total, 1)), 255);
    });
    if (block.isEmpty())
        return writeError;
    if (!writeAll(device, bigEndian32(quint32(block.size()))) || !writeAll(device, block))
        return writeError;
    g_report(options.progress, 255, 255);
    return FileResult();
}

FileResult g_saveProjectFile(ChartModel &model, const QString &path, const SaveOptions &options)
{
    const QString backup = g_backupPath(path);
    if (!backup.isEmpty() && QFile::exists(path)) {
        QFile::remove(backup);
        QFile::copy(path, backup);
    }

    QSaveFile file(path);
    // Where no temporary file can be made beside the target (a writable file
    // in a read-only folder), write in place as before.
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly))
        return FileResult::failure(kMsgWriteError, true);
    FileResult result = g_writeProject(model, file, options);
    if (!result.ok) {
        file.cancelWriting();
        return result;
    }
    if (!file.commit())
        return FileResult::failure(kMsgWriteError, true);
    return result;
}

FileResult g_readProject(ChartModel &model, QIODevice &device, const ProgressFn &progress)
{
    const FileResult damaged = FileResult::failure(kMsgDamagedProject, false);

    QByteArray magic;
    quint32 magicLength = 0;
    if (!readLength(device, &magicLength) || magicLength != kMagicLength)
        return FileResult::failure(kMsgNoProject, false);
    magic.resize(kMagicLength);
    if (!readExactly(device, magic.data(), kMagicLength))
        return FileResult::failure(kMsgNoProject, false);
    const int version = versionOf(magic);
    if (version == 0)
        return FileResult::failure(kMsgNoProject, false);

    g_report(progress, 1, 255);
    model.clearStores();
    g_report(progress, 31, 255);

    QByteArray block;
    if (!readBoundedItem(device, kMaxCompressedItem, &block))
        return damaged;

    const qint64 maxPayload = g_payloadSize(kMaxDataSets, true);
    InflateReader payload(block, 2 * maxPayload);
    quint32 length = 0;

    if (!payload.readItemHeader(&length) || length != kSettingsItem)
        return damaged;
    if (!payload.read(&model.settings, kSettingsItem))
        return damaged;

    if (model.settings.dataSetCount > kMaxDataSets)
        return damaged;
    for (int i = 0; i < model.settings.dataSetCount; ++i) {
        if (!payload.readItemHeader(&length) || length != kStoreItem)
            return damaged;
        if (!payload.read(model.data(i), kStoreItem))
            return damaged;
        model.activateRow(i);
        g_report(progress, 31 + (i + 1) * 12, 255);
    }

    if (model.settings.hasModeData) {
        if (!payload.readItemHeader(&length) || length != kModeCodesItem)
            return damaged;
        if (!payload.read(model.modeCodes(), kModeCodesItem))
            return damaged;
        if (version == 13)
            raiseVersion13Codes(*model.modeCodes());
        if (!payload.readItemHeader(&length) || length != kModeParametersItem)
            return damaged;
        if (!payload.read(model.modeParameters(), kModeParametersItem))
            return damaged;
        model.showModeBox();
    }
    // Whatever follows the last item is ignored, but the stream must be sound.
    if (!payload.finish())
        return damaged;

    model.settings.viewBegin = model.settings.rangeBegin;
    model.settings.viewEnd = model.settings.rangeEnd;
    model.recountRange();
    g_report(progress, 255, 255);
    return FileResult();
}

FileResult g_loadProjectFile(ChartModel &model, const QString &path, const ProgressFn &progress)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return FileResult::failure(kMsgReadError, true);
    return g_readProject(model, file, progress);
}

}  // namespace qv

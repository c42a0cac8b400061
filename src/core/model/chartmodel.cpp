#include "core/model/chartmodel.h"

#include "core/base/pages.h"

#include <QDateTime>

#include <cstring>

#ifdef Q_OS_LINUX
#include <sys/mman.h>
#endif

namespace qv {

// Entries 6 and 9 are the same blue on purpose.
const quint32 ChartModel::m_defaultColor[kMaxDataSets] = {
    0xFF0088CC, 0xFFCC8800, 0xFF00AA00, 0xFF4444CC, 0xFFCC4400, 0xFF448866, 0xFF0000CC, 0xFFCC0000,
    0xFF00CC00, 0xFF0000CC, 0xFFCC44CC, 0xFF000044, 0xFF664400, 0xFF004466, 0xFF440066, 0xFF440000,
};

namespace {

// Every store starts on a page of its own, so that emptying it can hand its
// pages back to the system instead of writing 4 MB of zeros.
constexpr std::size_t kPage = 4096;
constexpr std::size_t alignUp(std::size_t n)
{
    return (n + kPage - 1) & ~(kPage - 1);
}

constexpr std::size_t kStoreBytes = alignUp(sizeof(_chartDataType));
constexpr std::size_t kModeBytes = alignUp(sizeof(modeCodesT));
constexpr std::size_t kBlockBytes =
    alignUp((kMaxDataSets + 1) * kStoreBytes + 2 * kModeBytes + sizeof(modeParametersT));

void zeroStore(_chartDataType *store)
{
#ifdef Q_OS_LINUX
    // Private anonymous pages read as zero again after this.
    if (madvise(store, kStoreBytes, MADV_DONTNEED) == 0)
        return;
#endif
    std::memset(store, 0, sizeof(_chartDataType));
}

}  // namespace

quint32 g_currentSeconds()
{
    return quint32(QDateTime::currentSecsSinceEpoch());
}

void g_initSettings(settingsT &s, quint32 changedTime)
{
    std::memset(&s, 0, sizeof s);
    std::memcpy(s.version, "0001", 4);
    s.changedTime = changedTime;
    s.flags = kFlagShowTitle;
    s.legendPosition = quint8(LegendPosition::Bottom);
    s.lineType = quint8(LineType::Straight);
    for (int i = 0; i < kMaxDataSets; ++i) {
        s.lineFlags[i] = i < 3   ? kLineShown | kLineOwnAxis
                         : i < 6 ? kLineShown | kLineOwnAxis | kLineAxisRight
                                 : kLineShown;
        s.color[i] = ChartModel::m_defaultColor[i];
        s.lineWidth[i] = 1;
    }
}

ChartModel::ChartModel()
{
    // Zero pages are handed out lazily, so an unused store costs no memory.
    block = g_allocatePages(kBlockBytes);
    if (!block)
        qFatal("Quorvanta: not enough memory for the chart model");
    auto *p = static_cast<unsigned char *>(block);
    for (int i = 0; i < kMaxDataSets; ++i, p += kStoreBytes)
        dataStores[i] = reinterpret_cast<_chartDataType *>(p);
    displayDataStore = reinterpret_cast<_chartDataType *>(p);
    p += kStoreBytes;
    modeCodesStore = reinterpret_cast<modeCodesT *>(p);
    p += kModeBytes;
    displayModeCodesStore = reinterpret_cast<modeCodesT *>(p);
    p += kModeBytes;
    modeParametersStore = reinterpret_cast<modeParametersT *>(p);

    g_initSettings(settings, g_currentSeconds());
}

ChartModel::~ChartModel()
{
    g_releasePages(block, kBlockBytes);
}

void ChartModel::clearStores()
{
    for (auto *store : dataStores)
        zeroStore(store);
}

void ChartModel::reset()
{
    clearStores();
    zeroStore(displayDataStore);
    // Small enough to write: their pages stay mapped for the next use.
    std::memset(modeCodesStore, 0, sizeof(modeCodesT));
    std::memset(displayModeCodesStore, 0, sizeof(modeCodesT));
    std::memset(modeParametersStore, 0, sizeof(modeParametersT));
    g_initSettings(settings, g_currentSeconds());
    for (RowState &r : row)
        r = RowState();
    modeBoxVisible = false;
    modeBoxChecked = false;
    clockReading = ClockReading::NotRead;
    standardOffset = 0;
}

int ChartModel::usedDataSets() const
{
    return qBound(0, int(settings.dataSetCount), kMaxDataSets);
}

qint32 ChartModel::countRange() const
{
    const _chartDataType &d = *dataStores[0];
    const int n = g_sampleCount(d.count);
    qint32 count = 0;
    for (int k = 0; k < n; ++k) {
        if (d.time[k] >= settings.rangeBegin && d.time[k] <= settings.rangeEnd)
            ++count;
    }
    return count;
}

void ChartModel::activateRow(int index)
{
    if (index < 0 || index >= kMaxDataSets)
        return;
    row[index].enabled = true;
    row[index].checked = (settings.lineFlags[index] & kLineShown) != 0;
}

void ChartModel::activateRows()
{
    for (int i = 0; i < usedDataSets(); ++i)
        activateRow(i);
}

void ChartModel::showModeBox()
{
    modeBoxVisible = true;
    modeBoxChecked = true;
    settings.flags |= kFlagShowModeTrack;
}

void ChartModel::applyRowChecks()
{
    const int n = usedDataSets();
    int stillShown = 0;
    for (int i = 0; i < n; ++i) {
        if (row[i].checked && (settings.lineFlags[i] & kLineShown))
            ++stillShown;
    }
    for (int i = 0; i < n; ++i) {
        if (row[i].checked)
            settings.lineFlags[i] |= kLineShown;
        else
            settings.lineFlags[i] &= ~kLineShown;
    }
    if (n == 0 || stillShown == 0) {
        row[0].checked = true;
        settings.lineFlags[0] |= kLineShown;
    }
    if (modeBoxChecked)
        settings.flags |= kFlagShowModeTrack;
    else
        settings.flags &= ~kFlagShowModeTrack;
}

}  // namespace qv

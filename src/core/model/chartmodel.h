// The in-memory model of one project: the settings record, the sixteen
// sample stores, the device-mode track and its parameter block.
//
// The records are saved as raw little-endian bytes in the project file, so
// their layout is fixed to the byte and checked at compile time below.
#pragma once

#include <QtGlobal>

#include <cstddef>
#include <cstdint>
#include <memory>

static_assert(Q_BYTE_ORDER == Q_LITTLE_ENDIAN, "the records are stored as raw little-endian bytes");

namespace qv {

constexpr int kMaxDataSets = 16;
constexpr int kMaxSamples = 0x40000;  // 262144 samples per data set
constexpr int kMinSamplesForChart = 8;
constexpr int kNameWidth = 32;
constexpr int kUnitWidth = 8;
constexpr int kDescriptionWidth = 128;

// A sample without a value keeps its time and stores this double, whose
// integer part is 0xBAADF00D.
constexpr quint32 kMissingMarker = 0xBAADF00Du;
constexpr double kMissingValue = 3131961357.0;
static_assert(kMissingValue == double(kMissingMarker), "marker and value agree");

// The samples that a stored count stands for, clamped to 0..kMaxSamples: a
// count read from a damaged file never indexes outside a store or a track.
constexpr int g_sampleCount(qint32 count)
{
    return qBound(0, int(count), kMaxSamples);
}

// The one test for a missing value used everywhere: truncate toward zero to a
// 64-bit integer and compare its low 32 bits with 0xBAADF00D. Values outside
// the 64-bit range (and NaN) are never missing, so the conversion stays defined.
constexpr bool g_isMissing(double value)
{
    return value > -9.2e18 && value < 9.2e18 && quint32(quint64(qint64(value))) == kMissingMarker;
}

// settingsT flags
constexpr quint32 kFlagShowTitle = 0x1;
constexpr quint32 kFlagShowModeTrack = 0x2;
// settingsT lineFlags
constexpr quint32 kLineShown = 0x1;
constexpr quint32 kLineOwnAxis = 0x2;
constexpr quint32 kLineAxisRight = 0x4;

// settingsT legendPosition: where the legend sits; any other byte hides it.
enum class LegendPosition : quint8 { Hidden = 0, Top = 1, Right = 2, Bottom = 3, Left = 4 };
// settingsT lineType: straight lines or spline curves.
enum class LineType : quint8 { Straight = 1, Spline = 2 };

}  // namespace qv

// Chart and series settings, exactly 2048 bytes.
struct settingsT {
    char version[4];
    quint32 flags;
    quint8 reserved8[8];
    qint32 dataSetCount;
    quint8 reserved20[4];
    quint32 changedTime;
    quint8 legendPosition;
    quint8 lineType;
    quint8 reserved30[2];
    qint64 firstTime;
    qint64 lastTime;
    quint32 color[qv::kMaxDataSets];
    quint32 lineFlags[qv::kMaxDataSets];
    quint8 lineWidth[qv::kMaxDataSets];
    quint8 valueType[qv::kMaxDataSets];
    quint8 decimals[qv::kMaxDataSets];
    double axisMin[qv::kMaxDataSets];
    double axisMax[qv::kMaxDataSets];
    char unit[qv::kMaxDataSets][qv::kUnitWidth];
    char name[qv::kMaxDataSets][qv::kNameWidth];
    char description[qv::kDescriptionWidth];
    qint64 rangeBegin;
    qint64 rangeEnd;
    qint64 viewBegin;
    qint64 viewEnd;
    qint32 rangeSampleCount;
    qint32 sampleInterval;
    quint8 hasModeData;
    quint8 reserved1289[759];
};

static_assert(sizeof(settingsT) == 2048, "settingsT is 2048 bytes");
static_assert(offsetof(settingsT, version) == 0);
static_assert(offsetof(settingsT, flags) == 4);
static_assert(offsetof(settingsT, reserved8) == 8);
static_assert(offsetof(settingsT, dataSetCount) == 16);
static_assert(offsetof(settingsT, reserved20) == 20);
static_assert(offsetof(settingsT, changedTime) == 24);
static_assert(offsetof(settingsT, legendPosition) == 28);
static_assert(offsetof(settingsT, lineType) == 29);
static_assert(offsetof(settingsT, reserved30) == 30);
static_assert(offsetof(settingsT, firstTime) == 32);
static_assert(offsetof(settingsT, lastTime) == 40);
static_assert(offsetof(settingsT, color) == 48);
static_assert(offsetof(settingsT, lineFlags) == 112);
static_assert(offsetof(settingsT, lineWidth) == 176);
static_assert(offsetof(settingsT, valueType) == 192);
static_assert(offsetof(settingsT, decimals) == 208);
static_assert(offsetof(settingsT, axisMin) == 224);
static_assert(offsetof(settingsT, axisMax) == 352);
static_assert(offsetof(settingsT, unit) == 480);
static_assert(offsetof(settingsT, name) == 608);
static_assert(offsetof(settingsT, description) == 1120);
static_assert(offsetof(settingsT, rangeBegin) == 1248);
static_assert(offsetof(settingsT, rangeEnd) == 1256);
static_assert(offsetof(settingsT, viewBegin) == 1264);
static_assert(offsetof(settingsT, viewEnd) == 1272);
static_assert(offsetof(settingsT, rangeSampleCount) == 1280);
static_assert(offsetof(settingsT, sampleInterval) == 1284);
static_assert(offsetof(settingsT, hasModeData) == 1288);
static_assert(offsetof(settingsT, reserved1289) == 1289);

// One data set's samples, exactly 4194312 bytes.
struct _chartDataType {
    qint32 count;
    quint8 reserved[4];
    qint64 time[qv::kMaxSamples];   // ms since 1970-01-01 UTC, ascending
    double value[qv::kMaxSamples];  // value or qv::kMissingValue
};

static_assert(sizeof(_chartDataType) == 0x400008, "_chartDataType is 4194312 bytes");
static_assert(offsetof(_chartDataType, count) == 0);
static_assert(offsetof(_chartDataType, time) == 8);
static_assert(offsetof(_chartDataType, value) == 0x200008);

// The device-mode track: a count and one signed code per sample.
struct modeCodesT {
    qint32 count;
    qint8 code[qv::kMaxSamples];
};

static_assert(sizeof(modeCodesT) == 0x40004, "modeCodesT is 262148 bytes");
static_assert(offsetof(modeCodesT, code) == 4);

// The device parameter block printed below the chart, exactly 256 bytes.
struct modeParametersT {
    double parameter[11];     // min/max humidity in, min/max temp in, frost, hysteresis on/off, offsets
    quint32 intParameter[4];  // [0] control time in minutes
    qint32 interval;          // sampling interval in seconds
    quint8 reserved[148];
};

static_assert(sizeof(modeParametersT) == 256, "modeParametersT is 256 bytes");
static_assert(offsetof(modeParametersT, intParameter) == 88);
static_assert(offsetof(modeParametersT, interval) == 104);
static_assert(offsetof(modeParametersT, reserved) == 108);

namespace qv {

// How an import read the local times of its recording. Not saved: a project
// loaded from a file does not know it.
enum class ClockReading : quint8 {
    NotRead,       // no local times read (a project file, a binary log)
    Local,         // local time with its summer time
    StandardTime,  // a clock without summer time: the zone's standard offset all year
};

// Check box state of one data set row beside the chart. The desktop program
// mirrors these in its widgets; keeping them here lets the command-line tool
// reproduce every effect the boxes have on the saved record.
struct RowState {
    bool enabled = false;
    bool checked = false;
};

class ChartModel
{
public:
    static const quint32 m_defaultColor[kMaxDataSets];

    ChartModel();
    ~ChartModel();
    ChartModel(const ChartModel &) = delete;
    ChartModel &operator=(const ChartModel &) = delete;

    settingsT settings;

    _chartDataType *data(int index) { return dataStores[index]; }
    const _chartDataType *data(int index) const { return dataStores[index]; }
    _chartDataType *displayData() { return displayDataStore; }
    modeCodesT *modeCodes() { return modeCodesStore; }
    const modeCodesT *modeCodes() const { return modeCodesStore; }
    modeCodesT *displayModeCodes() { return displayModeCodesStore; }
    modeParametersT *modeParameters() { return modeParametersStore; }
    const modeParametersT *modeParameters() const { return modeParametersStore; }

    // Zero every sample store (the project loader starts from empty stores).
    void clearStores();
    // Back to the state of a newly made model (fresh record, empty stores and
    // mode track, no rows) without a new allocation; it costs about what the
    // last use wrote, so one model can serve many imports in a row.
    void reset();

    // Number of samples of data set 0 with rangeBegin <= time <= rangeEnd.
    qint32 countRange() const;
    void recountRange() { settings.rangeSampleCount = countRange(); }

    // The data sets in use, clamped to 0..16 so that a damaged record can
    // never index outside the stores.
    int usedDataSets() const;

    // Row controls.
    RowState row[kMaxDataSets];
    bool modeBoxVisible = false;
    bool modeBoxChecked = false;

    ClockReading clockReading = ClockReading::NotRead;
    int standardOffset = 0;  // seconds east of UTC, with ClockReading::StandardTime

    // Row activation: enabled, ticked from the shown bit.
    void activateRow(int index);
    void activateRows();
    // Shows and ticks the mode box and sets the mode-track flag.
    void showModeBox();
    // The effect of toggling any row or mode box: every shown bit follows its
    // box, at least one data set stays shown, the mode flag follows its box.
    void applyRowChecks();

private:
    _chartDataType *dataStores[kMaxDataSets];
    _chartDataType *displayDataStore;
    modeCodesT *modeCodesStore;
    modeCodesT *displayModeCodesStore;
    modeParametersT *modeParametersStore;
    void *block;  // one zero-filled allocation holding all of the above
};

// Fresh settings record with the construction defaults.
void g_initSettings(settingsT &settings, quint32 changedTime);
// Seconds since 1970-01-01 UTC, as stored in changedTime.
quint32 g_currentSeconds();

}  // namespace qv

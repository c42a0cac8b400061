#include "core/import/controllersteps.h"

#include "core/base/coretexts.h"
#include "core/base/regularfile.h"
#include "core/model/fixedstring.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cfloat>
#include <cmath>

namespace qv {

const char *const kMsgSiblingFiles =
    QT_TRANSLATE_NOOP("QuorvantaCore", "Error while loading additional vaporix files!");
const char *const kMsgTooManyData =
    QT_TRANSLATE_NOOP("QuorvantaCore", "File is containing too many data. Please contact Merovin.");
const char *const kTitleQuestion = QT_TRANSLATE_NOOP("QuorvantaCore", "Quorvanta");
const char *const kAskSiblingFiles = QT_TRANSLATE_NOOP(
    "QuorvantaCore",
    "File seems to be part of a vaporix sampling. Try to load the state and settings information too?");
const char *const kAskStandardTime =
    QT_TRANSLATE_NOOP("QuorvantaCore", "This recording's clock does not switch to summer time. Read all of its times "
                                       "as standard time (UTC%1)?");
const char *const kTextStandardTime =
    QT_TRANSLATE_NOOP("QuorvantaCore", "Times read as standard time (UTC%1) all year.");
const char *const kSensorTitle = "SENSORWERTE";

namespace {

// The twelve data sets of a sensor sampling: absolute humidity, temperature
// and relative humidity outside, inside, in zone I and in zone II.
struct FixedSet {
    const char *name;
    int unit;  // index into the units below
    quint8 decimals;
    double axisMin;
    double axisMax;
};

enum { kGramPerKilo, kCelsius, kPercent };

const FixedSet kSensorSets[12] = {
    {"abs. Feuchte Aussen", kGramPerKilo, 1, 0, 20},
    {"Temp Aussen", kCelsius, 1, -15, 35},
    {"rel. Feuchte Aussen", kPercent, 0, 0, 100},
    {"abs. Feuchte Innen", kGramPerKilo, 1, 0, 20},
    {"Temp Innen", kCelsius, 1, -15, 35},
    {"rel. Feuchte Innen", kPercent, 0, 0, 100},
    {"abs. Feuchte Innen Zone I", kGramPerKilo, 1, 0, 20},
    {"Temp Innen Zone I", kCelsius, 1, -15, 35},
    {"rel. Feuchte Innen Zone I", kPercent, 0, 0, 100},
    {"abs. Feuchte Innen Zone II", kGramPerKilo, 1, 0, 20},
    {"Temp Innen Zone II", kCelsius, 1, -15, 35},
    {"rel. Feuchte Innen Zone II", kPercent, 0, 0, 100},
};

QString unitText(int unit)
{
    switch (unit) {
    case kGramPerKilo:
        return QStringLiteral("g/kg");
    case kCelsius:
        return QStringLiteral("\u00B0C");  // 0xB0 0x43 in the Latin-1 field
    default:
        return QStringLiteral("%");
    }
}

// One plausibility check: the data set tested, its limits and the group
// (0 outside, 1 inside, 2 zone I, 3 zone II) it invalidates.
struct PlausibilityCheck {
    int set;
    double low;
    double high;
    int group;
};

// In this order. Zone I shares the outside temperature limits and zone II the
// inside ones.
const PlausibilityCheck kChecks[12] = {
    {0, 0.5, 50, 0}, {3, 0.5, 50, 1}, {1, -40, 50, 0}, {4, -10, 50, 1},  {2, 5, 100, 0}, {5, 5, 100, 1},
    {6, 0.5, 50, 2}, {9, 0.5, 50, 3}, {7, -40, 50, 2}, {10, -10, 50, 3}, {8, 5, 100, 2}, {11, 5, 100, 3},
};

// Unticks the box of a row. A connected box (one of an activated row) reports
// the change at once, and the row rule runs.
void untickRow(ChartModel &model, int index)
{
    RowState &row = model.row[index];
    if (!row.checked)
        return;
    row.checked = false;
    if (row.enabled)
        model.applyRowChecks();
}

}  // namespace

void g_activateImportedRow(ChartModel &model, int index)
{
    model.activateRow(index);
    model.settings.lineFlags[index] &= ~kLineShown;
}

void g_setAxisRange(ChartModel &model, int index)
{
    const _chartDataType &d = *model.data(index);
    double low = DBL_MAX;
    double high = -DBL_MAX;
    for (int k = 0, n = g_sampleCount(d.count); k < n; ++k) {
        const double v = d.value[k];
        if (g_isMissing(v))
            continue;
        if (v < low)
            low = v;
        if (v > high)
            high = v;
    }
    g_setAxisLimits(model, index, low, high);
}

void g_setAxisLimits(ChartModel &model, int index, double low, double high)
{
    const double top = std::max(low, high);
    const double margin = (top - low) * 0.02 + 0.5;
    model.settings.axisMin[index] = std::round(low - margin);
    model.settings.axisMax[index] = std::round(top + margin);
}

int g_axisProgress(int index, int count)
{
    return count > 0 ? 191 + (index + 1) * 64 / count : 255;
}

void g_setTimeRange(ChartModel &model)
{
    const _chartDataType &d = *model.data(0);
    const int n = g_sampleCount(d.count);
    settingsT &s = model.settings;
    s.firstTime = d.time[0];
    // With no samples the last time is that of an empty, zeroed store: 0.
    s.lastTime = n > 0 ? d.time[n - 1] : 0;
    s.viewBegin = s.rangeBegin = s.firstTime;
    s.viewEnd = s.rangeEnd = s.lastTime;
    model.recountRange();
}

void g_measureSampleInterval(ChartModel &model)
{
    const _chartDataType &d = *model.data(0);
    const int middle = g_sampleCount(d.count) / 2;
    model.settings.sampleInterval = qint32((d.time[middle + 1] - d.time[middle]) / 1000);
}

std::array<QString, 3> g_siblingPaths(const QString &path, const std::array<const char *, 4> &tokens)
{
    std::array<QString, 3> paths;
    QString p = path;
    for (int i = 0; i < 3; ++i) {
        p.replace(QLatin1String(tokens[i]), QLatin1String(tokens[i + 1]), Qt::CaseInsensitive);
        paths[i] = p;
    }
    return paths;
}

SiblingFiles::Result SiblingFiles::open(const std::array<QString, 3> &paths)
{
    for (int i = 0; i < 3; ++i) {
        files[i].setFileName(paths[i]);
        if (!g_openRegularFile(files[i])) {
            close();
            return QFileInfo::exists(paths[i]) && !g_isRegularFile(paths[i]) ? NotRegular : Missing;
        }
    }
    return Opened;
}

void SiblingFiles::close()
{
    for (QFile &f : files)
        f.close();
}

std::optional<FileResult> g_offerSiblings(SiblingFiles &files, const std::array<QString, 3> &paths, ImportHost &host)
{
    switch (files.open(paths)) {
    case SiblingFiles::Opened:
        break;
    case SiblingFiles::Missing:
        return FileResult();
    case SiblingFiles::NotRegular:
        return FileResult::failure(kMsgReadError, FileError::CannotOpen);
    }
    if (!host.askYesNo(QLatin1String(kTitleQuestion), QLatin1String(kAskSiblingFiles)))
        return FileResult();
    return std::nullopt;
}

QString g_utcOffsetText(int seconds)
{
    const int minutes = (seconds < 0 ? -seconds : seconds) / 60;
    return QStringLiteral("%1%2:%3")
        .arg(seconds < 0 ? QLatin1Char('-') : QLatin1Char('+'))
        .arg(minutes / 60, 2, 10, QLatin1Char('0'))
        .arg(minutes % 60, 2, 10, QLatin1Char('0'));
}

bool g_askStandardTime(ChartModel &model, ImportHost &host, int seconds)
{
    // The host translates what it is given; a text already translated stays as it is.
    const bool yes =
        host.askYesNo(QLatin1String(kTitleQuestion), g_coreText(kAskStandardTime).arg(g_utcOffsetText(seconds)));
    model.clockReading = yes ? ClockReading::StandardTime : ClockReading::Local;
    model.standardOffset = yes ? seconds : 0;
    return yes;
}

void g_applySensorLayout(ChartModel &model)
{
    settingsT &s = model.settings;
    s.lineFlags[1] |= kLineAxisRight;
    for (int i = 2; i <= 5; ++i)
        s.lineFlags[i] = kLineShown;
    for (int i = 6; i <= 11; ++i)
        untickRow(model, i);
    for (int i = 0; i < 12; ++i) {
        const FixedSet &f = kSensorSets[i];
        g_qString2Buffer(s.name[i], QLatin1String(f.name), kNameWidth);
        g_qString2Buffer(s.unit[i], unitText(f.unit), kUnitWidth);
        s.decimals[i] = f.decimals;
        s.valueType[i] = 8;
        s.axisMin[i] = f.axisMin;
        s.axisMax[i] = f.axisMax;
    }
    s.hasModeData = 1;
    model.showModeBox();
}

void g_checkPlausibility(ChartModel &model)
{
    if (!(model.settings.flags & kFlagShowModeTrack))
        return;
    double *values[12];
    for (int i = 0; i < 12; ++i)
        values[i] = model.data(i)->value;
    for (int k = 0, n = g_sampleCount(model.data(0)->count); k < n; ++k) {
        if (g_isMissing(values[0][k]))
            continue;
        for (const PlausibilityCheck &c : kChecks) {
            const double v = values[c.set][k];
            if (v < c.low || v > c.high) {
                for (int i = 3 * c.group; i < 3 * c.group + 3; ++i)
                    values[i][k] = kMissingValue;
            }
        }
    }
}

void g_finishControllerImport(ChartModel &model)
{
    model.applyRowChecks();
    g_checkPlausibility(model);
}

}  // namespace qv

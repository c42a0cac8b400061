// Steps shared by the importers of the Ventimar controller's samplings (the
// CSV export and the binary log): row activation, axis ranges, the time range,
// the sibling files with the state log and the parameter block, the fixed
// layout of a sensor sampling with state data and its plausibility pass.
#pragma once

#include "core/base/fileresult.h"
#include "core/import/importhost.h"
#include "core/model/chartmodel.h"

#include <QFile>
#include <QString>

#include <array>
#include <optional>

namespace qv {

// Texts (English source texts, context "QuorvantaCore").
extern const char *const kMsgSiblingFiles;   // "Error while loading additional vaporix files!"
extern const char *const kMsgTooManyData;    // "File is containing too many data. Please contact Merovin."
extern const char *const kTitleQuestion;     // "Quorvanta"
extern const char *const kAskSiblingFiles;   // "File seems to be part of a vaporix sampling. ..."
extern const char *const kAskStandardTime;   // "This recording's clock does not switch to summer time. ..."
extern const char *const kTextStandardTime;  // "Times read as standard time (UTC%1) all year."

// A UTC offset in seconds as "+01:00" or "-03:30".
QString g_utcOffsetText(int seconds);
// A recording read as local time holds a time the local clock skips: asks,
// in the language of the installed translators, whether its clock stays on
// standard time (seconds east of UTC), and keeps the answer in the model.
bool g_askStandardTime(ChartModel &model, ImportHost &host, int seconds);

// Title of a sensor sampling that may come with sibling files.
extern const char *const kSensorTitle;  // "SENSORWERTE"

// Row activation of an imported data set: the box is enabled and ticked from
// bit 0 of the line flags (before it is connected, so nothing is redrawn),
// then the importer clears that bit.
void g_activateImportedRow(ChartModel &model, int index);

// Axis limits of data set index from its values, missing values skipped: the
// minimum and the larger of minimum and maximum (both start from the opposite
// end of the double range), widened by 2 % of their distance plus 0.5 and
// rounded half away from zero.
void g_setAxisRange(ChartModel &model, int index);
// The same limits from a minimum and maximum found by the caller.
void g_setAxisLimits(ChartModel &model, int index, double low, double high);
// The main bar value after the axis range of data set index of count.
int g_axisProgress(int index, int count);

// firstTime, lastTime, the view and the selected range from data set 0, and
// the number of its samples in that range.
void g_setTimeRange(ChartModel &model);
// sampleInterval from the middle of data set 0: (time[n/2 + 1] - time[n/2]) / 1000.
void g_measureSampleInterval(ChartModel &model);

// The three sibling paths: every tokens[0] of the path replaced by tokens[1]
// (ignoring case), then every tokens[1] of that path by tokens[2], then every
// tokens[2] by tokens[3]. The replacements are cumulative on purpose.
std::array<QString, 3> g_siblingPaths(const QString &path, const std::array<const char *, 4> &tokens);

// The three sibling files, opened read-only all or none.
class SiblingFiles
{
public:
    // Missing: one of them cannot be opened (the sampling is read without
    // them). NotRegular: one of them is a folder, a device or a FIFO, which is
    // refused like such a sampling file. Every file is closed unless Opened.
    enum Result { Opened, Missing, NotRegular };
    Result open(const std::array<QString, 3> &paths);
    QFile &operator[](int index) { return files[index]; }
    void close();

private:
    std::array<QFile, 3> files;
};

// Opens the siblings at paths and asks whether to read them. Nothing when all
// three are open and the answer is Yes; otherwise what the import ends with:
// success for the sensor data alone (a sibling missing, or No), the read
// error for a sibling that is a folder, a device or a FIFO.
std::optional<FileResult> g_offerSiblings(SiblingFiles &files, const std::array<QString, 3> &paths, ImportHost &host);

// A sensor sampling with state data: sets 1 to 5 get their display flags,
// rows 6 to 11 are unticked (each untick of a connected row applies the row
// rule at once, as the box's signal does), the twelve data sets get their
// fixed names, units, decimals, value type and axis ranges, and the state
// track is marked present and shown. The data-set count stays as it is.
void g_applySensorLayout(ChartModel &model);

// Invalidates implausible samples group by group (absolute humidity,
// temperature and relative humidity of outside, inside, zone I and zone II),
// only when the state track is shown; samples whose data set 0 value is
// already missing are left alone.
void g_checkPlausibility(ChartModel &model);

// The end of a controller import: the shown bits follow the ticked rows once,
// as a toggle of a row box makes them (so a plain sampling is drawn at once
// and saved with its rows shown), then the plausibility pass runs.
void g_finishControllerImport(ChartModel &model);

}  // namespace qv

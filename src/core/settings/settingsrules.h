// The rules of the two settings dialogs that decide bytes of the settings
// record: how one data set's fields are written and read back, what makes a
// record drawable, and how a new begin/end pair is fitted to the recording.
#pragma once

#include "core/model/chartmodel.h"

#include <QString>

namespace qv {

// The fields of one data set as the settings dialogs show them.
struct SeriesFields {
    quint32 color = 0;
    bool enabled = false;
    bool axis = false;
    bool right = false;
    int size = 1;
    QString name;
    QString unit;
    double minimum = 0.0;
    double maximum = 0.0;
    int decimals = 0;
};

// Reads data set index (0..15) of the record.
SeriesFields g_loadSeries(const settingsT &settings, int index);
// Writes data set index (0..15): the line-flag word is replaced whole, name
// and unit are cut to their fields, and limits closer than 1.0 (after the
// maximum has been raised to the minimum) are widened by 0.5 either way.
// An index outside 0..15 writes nothing.
void g_storeSeries(settingsT &settings, int index, const SeriesFields &fields);

enum class SeriesCheck { Drawable, NoData, NoAxis, TooManyAxes };

// Counts the shown data sets and the shown ones with their own axis.
SeriesCheck g_checkSeries(const settingsT &settings);
// The English source text of a refusal (translated in the context
// "SettingsDialogClass"); empty for a drawable record.
const char *g_seriesCheckText(SeriesCheck check);

// Takes begin/end (ms) as the new range: raised to firstTime, lowered to
// lastTime, the whole recording when begin is not before end. The zoom window
// follows only when the range changed; returns whether it did.
bool g_applyRange(settingsT &settings, qint64 begin, qint64 end);

// The legend positions in the order of the radio buttons Top, Right, Bottom,
// Left, None; a position of 5 or more counts as none.
int g_legendButton(LegendPosition position);
LegendPosition g_legendPosition(int button);

}  // namespace qv

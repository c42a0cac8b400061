// The samples of a project as a CSV table, for spreadsheets and scripts.
//
// One row per sample of data set 0 inside a time window: the local date and
// time in ISO 8601 with its UTC offset (so the two hours of the night the
// clocks go back stay apart), one column per chosen data set ("name [unit]",
// the value with the set's decimals, an empty field for a missing sample),
// and the device state as the last column when the project has a mode
// track. Fields are separated by ';', lines end in CR LF, the text is UTF-8;
// a field holding ';', '"' or a line break is quoted with '"' and its quotes
// doubled.
#pragma once

#include "core/base/progress.h"
#include "core/model/chartmodel.h"
#include "core/project/projectfile.h"

#include <QString>
#include <QVector>

#include <functional>

class QIODevice;

namespace qv {

enum class CsvRange { Selected, View, All };

struct CsvOptions {
    QVector<int> sets;  // the data sets to write, in this order
    qint64 begin = 0;   // rows: samples of data set 0 with begin <= time <= end
    qint64 end = 0;
    bool decimalComma = false;   // for spreadsheets that read numbers the German way
    bool byteOrderMark = false;  // lets Excel read the file as UTF-8
    // Turns the English header and state texts into the user's language.
    std::function<QString(const char *)> translate;
    ProgressFn progress;
};

// The time window of a range of the model: the selected range, the zoom
// window, or every sample of data set 0.
void g_csvWindow(const ChartModel &model, CsvRange range, CsvOptions &options);
// The data sets in use whose shown bit is set, in slot order.
QVector<int> g_shownDataSets(const ChartModel &model);

// Writes the table to an open device; only a failed write fails.
FileResult g_writeCsv(const ChartModel &model, QIODevice &device, const CsvOptions &options);
// Writes the table to path as a whole or not at all (a temporary file beside
// it, renamed when complete); anything but a regular file at path is refused.
FileResult g_saveCsvFile(const ChartModel &model, const QString &path, const CsvOptions &options);

}  // namespace qv

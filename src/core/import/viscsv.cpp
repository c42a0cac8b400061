#include "core/import/viscsv.h"

#include "core/base/regularfile.h"
#include "core/import/controllersteps.h"
#include "core/import/csvlines.h"
#include "core/import/localtime.h"
#include "core/import/viscsvformat.h"

#include <QDate>
#include <QDateTime>
#include <QFile>
#include <QTime>

#include <cstring>

namespace qv {

const char *const kMsgVisLine1 = QT_TRANSLATE_NOOP("QuorvantaCore", "Error in CSV line 1 !\nNo vaporix-Vis sampling.");
const char *const kMsgVisLine2 = QT_TRANSLATE_NOOP("QuorvantaCore", "Error in CSV title line 2 !");
const char *const kMsgVisLine3 = QT_TRANSLATE_NOOP("QuorvantaCore", "Error in CSV title line 3 !");
const char *const kMsgVisLine4 = QT_TRANSLATE_NOOP("QuorvantaCore", "Error in CSV title line 4 !");
const char *const kMsgVisLine5 = QT_TRANSLATE_NOOP("QuorvantaCore", "Error in CSV title line 5 !");
const char *const kMsgVisLine5Fields = QT_TRANSLATE_NOOP("QuorvantaCore", "Error in CSV line 5 !\nToo many columns.");
const char *const kMsgVisLine7 = QT_TRANSLATE_NOOP("QuorvantaCore", "Error in CSV title line 7 !");
const char *const kMsgVisLine7Fields = QT_TRANSLATE_NOOP("QuorvantaCore", "Error in CSV line 7 !\nToo many columns.");

namespace {

// Room for one field more than any line that is used has, so a split can tell
// "exactly n" from "more".
constexpr int kFieldRoom = kVisParameterFields + 1;

// Header lines have fixed widths of at most 192 bytes and a data line has nine
// short fields; a line longer than this is not read to its end. It reads as an
// empty line: a header line then fails its own width check, a data line ends
// the data.
constexpr qsizetype kVisLineBytes = kVisDataFields * 256;

// One import of a vaporix-VIS file into a fresh model. The header is checked
// by line lengths only; the data end at the first line without nine fields.
class VisCsvImport
{
public:
    VisCsvImport(QFile &file, ChartModel &model, ImportHost &host)
        : lines(file, kVisLineBytes), chartModel(model), settings(model.settings), importHost(host)
    {
    }

    FileResult run();

private:
    const char *readHeader();
    void readSamples();
    void finish();
    qint64 readTime(ByteView date, ByteView time);

    LineReader lines;
    ChartModel &chartModel;
    settingsT &settings;
    ImportHost &importHost;
    LocalTimeCache times;
};

FileResult VisCsvImport::run()
{
    importHost.progress(1, 255);
    if (const char *error = readHeader())
        return FileResult::failure(error, FileError::BadContents);
    readSamples();
    finish();
    return FileResult();
}

// The failure text of the first header check that fails, or null. What the
// checks before it passed stays in the model: the title from lines 2 and 3,
// the parameters of line 5.
const char *VisCsvImport::readHeader()
{
    if (lines.next().size != kVisLine1Bytes)
        return kMsgVisLine1;

    const ByteView title = lines.next(1);
    if (title.size != kVisTitleBytes)
        return kMsgVisLine2;
    const int nameAt = g_writeVisTitle(settings, title);

    const ByteView name = lines.next(1);
    if (name.size != kVisNameBytes)
        return kMsgVisLine3;
    g_appendVisName(settings, nameAt, name);

    if (lines.next().size != kVisLine4Bytes)
        return kMsgVisLine4;

    const ByteView parameters = lines.next();
    if (parameters.size != kVisParameterLineBytes)
        return kMsgVisLine5;
    ByteView fields[kFieldRoom];
    if (g_splitFields(ByteView{parameters.data, parameters.size - 1}, ';', fields, kFieldRoom) != kVisParameterFields)
        return kMsgVisLine5Fields;
    g_storeVisParameters(chartModel, fields);

    lines.next();
    // The column titles are split with their terminator.
    const ByteView columns = lines.next();
    if (columns.size != kVisColumnLineBytes)
        return kMsgVisLine7;
    if (g_splitFields(columns, ';', fields, kFieldRoom) != kVisDataFields)
        return kMsgVisLine7Fields;
    return nullptr;
}

// Date "dd.MM.yyyy" and time "hh:mm" as local time. The usual, well-formed
// stamps are read by hand; anything else is left to QDate, QTime and
// QDateTime, invalid results included.
qint64 VisCsvImport::readTime(ByteView date, ByteView time)
{
    LocalDateTime t;
    qint64 msecs = 0;
    if (g_parseStrictDate(date.data, date.size, &t) && g_parseStrictTime(time.data, time.size, false, &t) &&
        times.toMSecs(t, &msecs))
        return msecs;
    const ByteView d = date.upToZero();
    const ByteView h = time.upToZero();
    const QDate day = QDate::fromString(QString::fromLatin1(d.data, int(d.size)), QStringLiteral("dd.MM.yyyy"));
    const QTime clock = QTime::fromString(QString::fromLatin1(h.data, int(h.size)), QStringLiteral("hh:mm"));
    // A valid date with an invalid time is midnight, as QDateTime makes it.
    return times.settle(day, clock.isValid() ? clock : QTime(0, 0), QDateTime(day, clock).toMSecsSinceEpoch());
}

void VisCsvImport::readSamples()
{
    chartModel.clearStores();
    chartModel.clockReading = ClockReading::NotRead;
    modeCodesT &modes = *chartModel.modeCodes();
    std::memset(&modes, 0, sizeof modes);
    g_applyVisLayout(settings);
    chartModel.activateRows();

    _chartDataType *stores[kVisDataSets];
    for (int i = 0; i < kVisDataSets; ++i)
        stores[i] = chartModel.data(i);

    ByteView fields[kFieldRoom];
    qsizetype fieldCount = g_splitFields(lines.next(1), ';', fields, kFieldRoom);
    int progressLines = 0;
    while (fieldCount == kVisDataFields) {
        qint64 t = readTime(fields[0], fields[1]);
        if (times.metSkippedTime() && chartModel.clockReading == ClockReading::NotRead &&
            g_askStandardTime(chartModel, importHost, times.skippedOffset())) {
            // This time and every one after it with the one offset, the lines before moved to it.
            times.useFixedOffset(chartModel.standardOffset);
            t = readTime(fields[0], fields[1]);
            g_localToFixedOffset(stores[0]->time, stores[0]->count, chartModel.standardOffset);
            for (int i = 1; i < kVisDataSets; ++i)
                std::memcpy(stores[i]->time, stores[0]->time, sizeof(qint64) * std::size_t(stores[0]->count));
        }
        for (int i = 0; i < kVisDataSets; ++i) {
            _chartDataType &d = *stores[i];
            d.time[d.count] = t;
            d.value[d.count] = g_readVisValue(fields[2 + i]);
            ++d.count;
        }
        modes.code[modes.count] = g_visStateCode(fields[8]);
        ++modes.count;

        fieldCount = g_splitFields(lines.next(1), ';', fields, kFieldRoom);
        // The store is full: what was read is kept, the rest of the file not.
        if (modes.count >= kMaxSamples) {
            importHost.warn(QLatin1String(kMsgTooManyData));
            fieldCount = 0;
        }
        if (progressLines < kMaxSamples)
            ++progressLines;
        importHost.progress((progressLines * 255) >> 18, 255);
    }
    if (chartModel.clockReading == ClockReading::NotRead)
        chartModel.clockReading = ClockReading::Local;
}

void VisCsvImport::finish()
{
    settings.hasModeData = 1;
    chartModel.showModeBox();

    // The interval from the first two samples, unless they are less than a
    // second apart; then the one of the parameter line stays.
    const _chartDataType &d = *chartModel.data(0);
    const qint64 step = d.time[1] - d.time[0];
    if (step < -999 || step > 999)
        settings.sampleInterval = qint32(step / 1000);
    g_setTimeRange(chartModel);

    g_checkVisPlausibility(chartModel);
}

}  // namespace

FileResult g_importVisCsv(const QString &path, ChartModel &model, ImportHost &host)
{
    QFile file(path);
    if (!g_openRegularFile(file))
        return FileResult::failure(kMsgReadError, FileError::CannotOpen);
    return VisCsvImport(file, model, host).run();
}

}  // namespace qv

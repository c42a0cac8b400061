#include "core/import/controllercsv.h"

#include "core/base/regularfile.h"
#include "core/import/controllerstate.h"
#include "core/import/controllersteps.h"
#include "core/import/csvlines.h"
#include "core/import/csvnumber.h"
#include "core/import/localtime.h"
#include "core/model/fixedstring.h"

#include <QFile>

#include <cstring>

namespace qv {

const char *const kMsgCsvTitle = QT_TRANSLATE_NOOP("QuorvantaCore", "Error in CSV title line 1 !");
const char *const kMsgCsvColumns = QT_TRANSLATE_NOOP("QuorvantaCore", "Error in CSV line 2 !\nToo many columns.");

namespace {

constexpr int kMaxTitleBytes = 31;
constexpr int kMaxFields = kMaxDataSets + 1;  // the time column and 16 data sets

// Line bounds. Line 1 longer than the longest title and two cut bytes fails
// whatever is cut. Every other line of the file and of its siblings has at
// most 17 fields, none of them anywhere near 255 bytes; a longer line is not
// read to its end: as line 2 it fails, as a row it ends the data.
constexpr qsizetype kTitleLineBytes = kMaxTitleBytes + 2;
constexpr qsizetype kLineBytes = kMaxFields * 256;

// One import of a controller CSV file into the model.
//
// Line handling follows the controller's files as they are, odd parts
// included: the number of bytes cut from the end of every line is fixed by
// line 1 (2 when it holds a 0x07 byte, else 1, so CR LF files keep their CR),
// and the data end at the first row with another number of fields.
class ControllerCsvImport
{
public:
    ControllerCsvImport(QFile &file, ChartModel &model, ImportHost &host)
        : reader(file, kTitleLineBytes), chartModel(model), settings(model.settings), importHost(host)
    {
    }

    FileResult run(const QString &path);

private:
    bool readTitle();
    bool readHeader();
    void readRows();
    void finishDataSets();
    FileResult readSiblings(const QString &path);
    bool readStateLog(QFile &file);
    bool readParameters(QFile &file);
    bool readCardParameters(QFile &file);
    // A time stamp as the text up to its first zero byte, as Qt converts a
    // byte array into a string.
    qint64 readTime(ByteView field)
    {
        const ByteView text = field.upToZero();
        return times.read(text.data, text.size);
    }

    LineReader reader;
    ChartModel &chartModel;
    settingsT &settings;
    ImportHost &importHost;
    LocalTimeReader times;
    int cut = 1;
    char separator = 0;
    int dataSetCount = 0;  // data sets
    QByteArray title;
    QByteArray headerLine;  // line 2
};

FileResult ControllerCsvImport::run(const QString &path)
{
    importHost.progress(1, 255);
    if (!readTitle())
        return FileResult::failure(kMsgCsvTitle, FileError::BadContents);
    if (!readHeader())
        return FileResult::failure(kMsgCsvColumns, FileError::BadContents);
    readRows();
    finishDataSets();
    if (title == kSensorTitle) {
        const FileResult siblings = readSiblings(path);
        if (!siblings.ok)
            return siblings;
    }
    g_finishControllerImport(chartModel);
    return FileResult();
}

bool ControllerCsvImport::readTitle()
{
    const ByteView raw = reader.next();
    if (reader.tooLong())
        return false;
    reader.setMaxLineBytes(kLineBytes);
    cut = raw.contains('\x07') ? 2 : 1;
    const ByteView line{raw.data, qMax<qsizetype>(0, raw.size - cut)};
    if (line.size > kMaxTitleBytes)
        return false;
    title = line.upToZero().toByteArray();
    g_qString2Buffer(settings.description, QString::fromLatin1(title), kDescriptionWidth);
    return true;
}

bool ControllerCsvImport::readHeader()
{
    const ByteView line = reader.next(cut);
    if (reader.tooLong())
        return false;
    separator = line.contains(';') ? ';' : line.contains(',') ? ',' : '\0';
    qsizetype count = g_countFieldsWithoutTrailingEmpty(line, separator) - 1;
    // The controller's sensor file has a seventh column that is not a data set.
    if (title == kSensorTitle && count == 7)
        count = 6;
    if (count < 1 || count > kMaxDataSets)
        return false;
    dataSetCount = int(count);
    settings.dataSetCount = dataSetCount;
    headerLine = line.toByteArray();
    return true;
}

void ControllerCsvImport::readRows()
{
    chartModel.clearStores();
    chartModel.clockReading = ClockReading::NotRead;

    ByteView header[kMaxFields];
    g_splitFields(ByteView{headerLine.constData(), headerLine.size()}, separator, header, kMaxFields);
    ByteView fields[kMaxFields];
    qsizetype fieldCount = g_splitFields(reader.next(cut), separator, fields, kMaxFields);

    // Names from line 2, decimals from the first data row.
    for (int i = 0; i < dataSetCount; ++i) {
        const ByteView name = header[i + 1].upToZero();
        g_qString2BufferWO0(settings.name[i], QString::fromLatin1(name.toByteArray()), kNameWidth);
        qsizetype decimals = 0;
        if (i + 1 < fieldCount) {
            const qsizetype point = fields[i + 1].indexOf('.');
            if (point >= 0)
                decimals = fields[i + 1].size - point - 1;
        }
        settings.decimals[i] = quint8(decimals);
        settings.valueType[i] = 8;
        g_activateImportedRow(chartModel, i);
    }

    _chartDataType *stores[kMaxDataSets];
    for (int i = 0; i < dataSetCount; ++i)
        stores[i] = chartModel.data(i);
    int rows = 0;
    int progressRows = 0;
    while (fieldCount == dataSetCount + 1) {
        if (rows == kMaxSamples) {
            // One row more than the stores hold: the rows read are kept.
            importHost.warn(QLatin1String(kMsgTooManyData));
            break;
        }
        qint64 time = readTime(fields[0]);
        if (times.metSkippedTime() && chartModel.clockReading == ClockReading::NotRead &&
            g_askStandardTime(chartModel, importHost, times.skippedOffset())) {
            // This time and every one after it with the one offset, the rows before moved to it.
            times.useFixedOffset(chartModel.standardOffset);
            time = readTime(fields[0]);
            g_localToFixedOffset(stores[0]->time, rows, chartModel.standardOffset);
            for (int i = 1; i < dataSetCount; ++i)
                std::memcpy(stores[i]->time, stores[0]->time, sizeof(qint64) * std::size_t(rows));
        }
        for (int i = 0; i < dataSetCount; ++i) {
            stores[i]->time[rows] = time;
            stores[i]->value[rows] = g_readSampleValue(fields[i + 1]);
            stores[i]->count = rows + 1;
        }
        ++rows;
        fieldCount = g_splitFields(reader.next(cut), separator, fields, kMaxFields);
        if (progressRows < 256)
            ++progressRows;
        importHost.progress(progressRows * 191 / 256, 255);
    }
    if (chartModel.clockReading == ClockReading::NotRead)
        chartModel.clockReading = ClockReading::Local;
}

void ControllerCsvImport::finishDataSets()
{
    for (int i = 0; i < dataSetCount; ++i) {
        g_setAxisRange(chartModel, i);
        importHost.progress(g_axisProgress(i, dataSetCount), 255);
    }
    g_setTimeRange(chartModel);
    g_measureSampleInterval(chartModel);
}

// The state log, the parameters and the card parameters of a sensor sampling
// ("...TS01..." with "TS02", "TS03" and "TS04" beside it). Missing siblings or
// a No to the question import the sensor data alone.
FileResult ControllerCsvImport::readSiblings(const QString &path)
{
    SiblingFiles files;
    if (const std::optional<FileResult> done =
            g_offerSiblings(files, g_siblingPaths(path, {"TS01", "TS02", "TS03", "TS04"}), importHost))
        return *done;
    if (!readStateLog(files[0]) || !readParameters(files[1]) || !readCardParameters(files[2]))
        return FileResult::failure(kMsgSiblingFiles, FileError::SiblingFiles);
    importHost.progress(255, 255);
    g_applySensorLayout(chartModel);
    return FileResult();
}

bool ControllerCsvImport::readStateLog(QFile &file)
{
    LineReader lines(file, kLineBytes);
    importHost.progress(1, 255);
    if (!lines.next(cut).equals("STATUS LOG"))
        return false;
    importHost.progress(10, 255);
    lines.next();  // column headings

    ByteView fields[kStateLogFields];
    qsizetype fieldCount = g_splitFields(lines.next(cut), separator, fields, kStateLogFields);
    // The log is taken to run in step with the data rows; only its first
    // entry is checked, against half a sample interval.
    const qint64 start = readTime(fields[0]);
    const qint64 distance = start - settings.firstTime;
    if ((distance < 0 ? -distance : distance) > qint64(settings.sampleInterval) * 500)
        return false;

    modeCodesT &codes = *chartModel.modeCodes();
    std::memset(&codes, 0, sizeof codes);
    while (fieldCount == kStateLogFields && codes.count < kMaxSamples) {
        codes.code[codes.count] = g_stateFromFields(fields);
        ++codes.count;
        fieldCount = g_splitFields(lines.next(cut), separator, fields, kStateLogFields);
    }
    return true;
}

bool ControllerCsvImport::readParameters(QFile &file)
{
    LineReader lines(file, kLineBytes);
    importHost.progress(180, 255);
    if (!lines.next(cut).equals("PARAMETER"))
        return false;
    lines.next();
    ByteView fields[kParameterFields];
    while (g_splitFields(lines.next(cut), separator, fields, kParameterFields) == kParameterFields)
        g_storeParameterFields(*chartModel.modeParameters(), fields);
    return true;
}

bool ControllerCsvImport::readCardParameters(QFile &file)
{
    LineReader lines(file, kLineBytes);
    importHost.progress(250, 255);
    if (!lines.next(cut).equals("PARAMETER SDKARTE"))
        return false;
    lines.next();
    ByteView fields[kCardParameterFields];
    while (g_splitFields(lines.next(cut), separator, fields, kCardParameterFields) == kCardParameterFields)
        g_storeCardParameterFields(*chartModel.modeParameters(), fields);
    return true;
}

}  // namespace

FileResult g_importControllerCsv(const QString &path, ChartModel &model, ImportHost &host)
{
    QFile file(path);
    if (!g_openRegularFile(file))
        return FileResult::failure(kMsgReadError, FileError::CannotOpen);
    return ControllerCsvImport(file, model, host).run(path);
}

}  // namespace qv

#include "infoprinter.h"

#include "core/import/controllersteps.h"
#include "core/model/fixedstring.h"
#include "core/project/modelsummary.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace qv {

namespace {

QString timeText(qint64 ms)
{
    return QDateTime::fromMSecsSinceEpoch(ms, Qt::UTC).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz")) +
           QStringLiteral(" UTC");
}

QString legendText(LegendPosition position)
{
    static const char *const names[] = {"none", "top", "right", "bottom", "left"};
    const quint8 byte = quint8(position);
    return position <= LegendPosition::Left ? QLatin1String(names[byte]) : QStringLiteral("none (%1)").arg(byte);
}

QString colorText(quint32 argb)
{
    return QLatin1Char('#') + QStringLiteral("%1").arg(argb, 8, 16, QLatin1Char('0')).toUpper();
}

QString number(double v, int decimals)
{
    return QString::number(v, 'f', qBound(0, decimals, 15));
}

QString name(const settingsT &s, int i)
{
    return g_buffer2QString(s.name[i], kNameWidth);
}
QString unit(const settingsT &s, int i)
{
    return g_buffer2QString(s.unit[i], kUnitWidth);
}

QString axisText(quint32 flags)
{
    if (!(flags & kLineOwnAxis))
        return QStringLiteral("no axis");
    return (flags & kLineAxisRight) ? QStringLiteral("axis right") : QStringLiteral("axis left");
}

// How an import read the recording's local times.
QString clockText(const ChartModel &model)
{
    return model.clockReading == ClockReading::StandardTime
               ? QStringLiteral("standard time all year (UTC%1)").arg(g_utcOffsetText(model.standardOffset))
               : QStringLiteral("local time");
}

}  // namespace

QString g_infoText(const ChartModel &model, const QString &fileName)
{
    const settingsT &s = model.settings;
    QString out;
    auto line = [&out](const QString &label, const QString &text) {
        out += label.leftJustified(14) + text + QLatin1Char('\n');
    };
    line(QStringLiteral("File:"), fileName);
    line(QStringLiteral("Title:"), QLatin1Char('"') + g_buffer2QString(s.description, kDescriptionWidth) +
                                       QLatin1Char('"') +
                                       ((s.flags & kFlagShowTitle) ? QString() : QStringLiteral(" (hidden)")));
    line(QStringLiteral("Version:"), g_buffer2QString(s.version, 4));
    line(QStringLiteral("Changed:"),
         QDateTime::fromSecsSinceEpoch(s.changedTime, Qt::UTC).toString(QStringLiteral("yyyy-MM-dd hh:mm:ss")) +
             QStringLiteral(" UTC"));
    line(QStringLiteral("Chart:"),
         (LineType(s.lineType) == LineType::Spline ? QStringLiteral("splines") : QStringLiteral("lines")) +
             QStringLiteral(", legend ") + legendText(LegendPosition(s.legendPosition)));
    line(QStringLiteral("Data sets:"), QString::number(s.dataSetCount));
    line(QStringLiteral("Recording:"), timeText(s.firstTime) + QStringLiteral(" .. ") + timeText(s.lastTime));
    line(QStringLiteral("Range:"), timeText(s.rangeBegin) + QStringLiteral(" .. ") + timeText(s.rangeEnd) +
                                       QStringLiteral(" (%1 samples)").arg(s.rangeSampleCount));
    line(QStringLiteral("View:"), timeText(s.viewBegin) + QStringLiteral(" .. ") + timeText(s.viewEnd));
    line(QStringLiteral("Interval:"), QStringLiteral("%1 s").arg(s.sampleInterval));
    line(QStringLiteral("Mode data:"),
         s.hasModeData ? QStringLiteral("yes, %1 codes, track %2")
                             .arg(g_sampleCount(model.modeCodes()->count))
                             .arg((s.flags & kFlagShowModeTrack) ? QStringLiteral("shown") : QStringLiteral("hidden"))
                       : QStringLiteral("no"));
    if (model.clockReading != ClockReading::NotRead)
        line(QStringLiteral("Clock:"), clockText(model));
    for (int i = 0; i < model.usedDataSets(); ++i) {
        const _chartDataType &d = *model.data(i);
        const int dec = s.decimals[i];
        const int n = g_sampleCount(d.count);
        out += QStringLiteral("\nData set %1: \"%2\" [%3]\n").arg(i).arg(name(s, i), unit(s, i));
        out += QStringLiteral("  %1, %2, colour %3, width %4, decimals %5, value type %6\n")
                   .arg((s.lineFlags[i] & kLineShown) ? QStringLiteral("shown") : QStringLiteral("hidden"),
                        axisText(s.lineFlags[i]), colorText(s.color[i]))
                   .arg(s.lineWidth[i])
                   .arg(dec)
                   .arg(s.valueType[i]);
        out += QStringLiteral("  axis %1 .. %2\n").arg(number(s.axisMin[i], dec), number(s.axisMax[i], dec));
        out += QStringLiteral("  %1 samples").arg(d.count);
        if (n > 0)
            out += QStringLiteral(", %1 .. %2").arg(timeText(d.time[0]), timeText(d.time[n - 1]));
        out += QLatin1Char('\n');
        const RangeFigures f = g_rangeFigures(d, s.rangeBegin, s.rangeEnd);
        if (f.validInRange > 0) {
            out += QStringLiteral("  in range: min %1 / avg %2 / max %3 %4 (%5 of %6 samples with a value)\n")
                       .arg(number(f.minimum, dec), number(f.average, dec), number(f.maximum, dec), unit(s, i))
                       .arg(f.validInRange)
                       .arg(f.samplesInRange);
        } else {
            out += QStringLiteral("  in range: no values (%1 samples)\n").arg(f.samplesInRange);
        }
    }
    return out;
}

QString g_infoJson(const ChartModel &model, const QString &fileName)
{
    const settingsT &s = model.settings;
    QJsonObject root;
    root[QStringLiteral("file")] = fileName;
    root[QStringLiteral("version")] = g_buffer2QString(s.version, 4);
    root[QStringLiteral("flags")] = qint64(s.flags);
    root[QStringLiteral("description")] = g_buffer2QString(s.description, kDescriptionWidth);
    root[QStringLiteral("changedTime")] = qint64(s.changedTime);
    root[QStringLiteral("legendPosition")] = s.legendPosition;
    root[QStringLiteral("lineType")] = s.lineType;
    root[QStringLiteral("dataSetCount")] = s.dataSetCount;
    // Times in ms exceed 2^53 only for dates no recording has; JSON numbers are fine.
    root[QStringLiteral("firstTime")] = double(s.firstTime);
    root[QStringLiteral("lastTime")] = double(s.lastTime);
    root[QStringLiteral("rangeBegin")] = double(s.rangeBegin);
    root[QStringLiteral("rangeEnd")] = double(s.rangeEnd);
    root[QStringLiteral("viewBegin")] = double(s.viewBegin);
    root[QStringLiteral("viewEnd")] = double(s.viewEnd);
    root[QStringLiteral("rangeSampleCount")] = s.rangeSampleCount;
    root[QStringLiteral("sampleInterval")] = s.sampleInterval;
    root[QStringLiteral("hasModeData")] = s.hasModeData;
    if (model.clockReading != ClockReading::NotRead)
        root[QStringLiteral("clock")] = clockText(model);

    QJsonArray sets;
    for (int i = 0; i < model.usedDataSets(); ++i) {
        const _chartDataType &d = *model.data(i);
        const int n = g_sampleCount(d.count);
        QJsonObject o;
        o[QStringLiteral("index")] = i;
        o[QStringLiteral("name")] = name(s, i);
        o[QStringLiteral("unit")] = unit(s, i);
        o[QStringLiteral("color")] = qint64(s.color[i]);
        o[QStringLiteral("lineFlags")] = qint64(s.lineFlags[i]);
        o[QStringLiteral("lineWidth")] = s.lineWidth[i];
        o[QStringLiteral("valueType")] = s.valueType[i];
        o[QStringLiteral("decimals")] = s.decimals[i];
        o[QStringLiteral("axisMin")] = s.axisMin[i];
        o[QStringLiteral("axisMax")] = s.axisMax[i];
        o[QStringLiteral("count")] = d.count;
        if (n > 0) {
            o[QStringLiteral("firstTime")] = double(d.time[0]);
            o[QStringLiteral("lastTime")] = double(d.time[n - 1]);
        }
        const RangeFigures f = g_rangeFigures(d, s.rangeBegin, s.rangeEnd);
        QJsonObject r;
        r[QStringLiteral("samples")] = f.samplesInRange;
        r[QStringLiteral("valid")] = f.validInRange;
        if (f.validInRange > 0) {
            r[QStringLiteral("min")] = f.minimum;
            r[QStringLiteral("avg")] = f.average;
            r[QStringLiteral("max")] = f.maximum;
        }
        o[QStringLiteral("range")] = r;
        sets.append(o);
    }
    root[QStringLiteral("dataSets")] = sets;

    if (s.hasModeData) {
        const modeParametersT &p = *model.modeParameters();
        QJsonObject m;
        m[QStringLiteral("count")] = model.modeCodes()->count;
        QJsonArray params;
        for (double v : p.parameter)
            params.append(v);
        m[QStringLiteral("parameters")] = params;
        QJsonArray ints;
        for (quint32 v : p.intParameter)
            ints.append(qint64(v));
        m[QStringLiteral("intParameters")] = ints;
        m[QStringLiteral("interval")] = p.interval;
        root[QStringLiteral("modeData")] = m;
    }
    return QString::fromUtf8(QJsonDocument(root).toJson(QJsonDocument::Indented));
}

}  // namespace qv

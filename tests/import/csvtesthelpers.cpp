#include "csvtesthelpers.h"

#include "core/import/controllercsv.h"
#include "core/import/controllerlog.h"
#include "core/import/viscsv.h"
#include "support/testsupport.h"

#include <QDateTime>
#include <QTemporaryDir>

#include <cmath>
#include <cstring>

namespace qvtest {

QByteArray dataFile(const char *name)
{
    return readFile(QFile::decodeName(qgetenv("QV_TEST_DATA")) + QLatin1Char('/') + QLatin1String(name));
}

ImportRun importFile(Kind kind, const QString &path, bool answer)
{
    ImportRun run;
    run.host.answer = answer;
    run.result = kind == Kind::Csv   ? qv::g_importControllerCsv(path, *run.model, run.host)
                 : kind == Kind::Log ? qv::g_importControllerLog(path, *run.model, run.host)
                                     : qv::g_importVisCsv(path, *run.model, run.host);
    return run;
}

ImportRun importBytes(Kind kind, const QByteArray &bytes, bool answer)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("input"));
    writeFile(path, bytes);
    return importFile(kind, path, answer);
}

namespace {

QByteArray text(const char *p, int width)
{
    QByteArray t(p, int(strnlen(p, size_t(width))));
    QByteArray out;
    for (char c : t)
        out += (uchar(c) < 32 || uchar(c) > 126) ? "\\x" + QByteArray::number(uchar(c), 16) : QByteArray(1, c);
    return out;
}

QByteArray number(double v)
{
    return qv::g_isMissing(v)          ? QByteArray("-")
           : v == 0 && std::signbit(v) ? QByteArray("-0")
                                       : QByteArray::number(v, 'g', 12);
}

QByteArray when(qint64 ms)
{
    return ms == 0 ? QByteArray("0")
                   : QDateTime::fromMSecsSinceEpoch(ms).toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")).toLatin1();
}

}  // namespace

QByteArray ImportRun::summary(const char *parts) const
{
    const qv::ChartModel &m = *model;
    const settingsT &s = m.settings;
    const int sets = qBound(0, int(s.dataSetCount), qv::kMaxDataSets);
    QByteArrayList out;
    for (const char *p = parts; *p; ++p) {
        QByteArrayList l;
        if (*p == 'r')
            out << (result.ok ? QByteArray("ok")
                              : QByteArray(result.message).replace('\n', '/') + (result.critical() ? "!" : ""));
        if (*p == 't')
            out << "'" + text(s.description, qv::kDescriptionWidth) + "'";
        for (int i = 0; *p == 's' && i < sets; ++i)
            l << text(s.name[i], qv::kNameWidth) + ':' + QByteArray::number(s.decimals[i]) + ':' +
                     QByteArray::number(s.valueType[i]) + ':' + QByteArray::number(s.lineFlags[i]) +
                     (m.row[i].enabled ? "E" : "") + (m.row[i].checked ? "C" : "");
        for (int i = 0; *p == 'a' && i < sets; ++i)
            l << number(s.axisMin[i]) + ".." + number(s.axisMax[i]);
        for (int i = 0; *p == 'v' && i < qv::kMaxDataSets; ++i) {
            QByteArrayList v;
            for (int k = 0; k < m.data(i)->count && k < qv::kMaxSamples; ++k)
                v << number(m.data(i)->value[k]);
            if (i < sets || !v.isEmpty())
                l << v.join(' ');
        }
        for (int k = 0; *p == 'x' && k < m.data(0)->count; ++k)
            l << (k == 0 ? when(m.data(0)->time[0])
                         : "+" + QByteArray::number((m.data(0)->time[k] - m.data(0)->time[k - 1]) / 1000));
        const bool whole = s.rangeBegin == s.firstTime && s.viewBegin == s.firstTime && s.rangeEnd == s.lastTime &&
                           s.viewEnd == s.lastTime;  // range and view span the recording
        if (*p == 'g')
            out << when(s.firstTime) + ".." + when(s.lastTime) + " iv=" + QByteArray::number(s.sampleInterval) +
                       " n=" + QByteArray::number(s.rangeSampleCount) + (whole ? "" : " range?");
        for (int k = 0; *p == 'm' && k < m.modeCodes()->count; ++k)
            l << QByteArray::number(m.modeCodes()->code[k]);
        if (*p == 'm')
            out << "modes=" + QByteArray::number(s.hasModeData) + (m.modeBoxVisible ? "V" : "") +
                       (m.modeBoxChecked ? "C" : "") + " flags=" + QByteArray::number(s.flags) + " [" + l.join(' ') +
                       ']';
        const modeParametersT &b = *m.modeParameters();
        for (int i = 0; *p == 'p' && i < 15; ++i)
            l << (i < 11 ? number(b.parameter[i]) : QByteArray::number(b.intParameter[i - 11]));
        if (*p == 'p')
            out << "P[" + l.mid(0, 11).join(' ') + ';' + l.mid(11).join(' ') + ';' + QByteArray::number(b.interval) +
                       ']';
        if (*p == 'q')
            out << "q" + QByteArray::number(host.questions) + "w" + QByteArray::number(host.warnings) +
                       (host.outOfRange ? QByteArray(" progress out of range") : QByteArray());
        static const char *const listed = "savx";
        static const QByteArrayList heads{"sets[", "axes[", "v[", "x["};  // separators: , , | and blank
        if (const char *h = std::strchr(listed, *p))
            out << heads.at(int(h - listed)) + l.join(",,| "[h - listed]) + ']';
    }
    return out.join(' ');
}

}  // namespace qvtest

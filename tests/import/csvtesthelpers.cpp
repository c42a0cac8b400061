#include "csvtesthelpers.h"

#include "import/csvimport.h"
#include "import/logimport.h"
#include "import/visimport.h"
#include "support/testsupport.h"

#include <QDateTime>

#include <cstring>

namespace qvtest {

bool ScriptedHost::askYesNo(const QString &title, const QString &question)
{
    questions << title + QLatin1Char('|') + question;
    return answer;
}

QString CsvFolder::write(const QString &name, const QByteArray &bytes) const
{
    const QString p = path(name);
    writeFile(p, bytes);
    return p;
}

QByteArray dataFile(const char *name)
{
    const QByteArray bytes = readFile(QFile::decodeName(qgetenv("QV_TEST_DATA")) + QLatin1Char('/') + QLatin1String(name));
    if (bytes.isEmpty())
        qWarning("test data %s missing (QV_TEST_DATA is set by CTest)", name);
    return bytes;
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
    CsvFolder folder;
    return importFile(kind, folder.write(QStringLiteral("input"), bytes), answer);
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
    return qv::g_isMissing(v) ? QByteArray("-") : QByteArray::number(v, 'g', 12);
}

QByteArray when(qint64 ms)
{
    return QDateTime::fromMSecsSinceEpoch(ms).toString(QStringLiteral("dd.MM.yyyy hh:mm:ss")).toLatin1();
}

}  // namespace

QByteArray ImportRun::summary(const char *parts) const
{
    const qv::ChartModel &m = *model;
    const settingsT &s = m.settings;
    QByteArrayList out;
    for (const char *p = parts; *p; ++p) {
        QByteArrayList l;
        switch (*p) {
        case 'r':
            out << (result.ok ? QByteArray("ok") : QByteArray(result.message).replace('\n', '/') + (result.critical() ? "!" : ""));
            continue;
        case 't':
            out << "'" + text(s.description, qv::kDescriptionWidth) + "'";
            continue;
        case 's':
            for (int i = 0; i < s.dataSetCount && i < qv::kMaxDataSets; ++i)
                l << text(s.name[i], qv::kNameWidth) + ':' + QByteArray::number(s.decimals[i]) + ':' +
                         QByteArray::number(s.valueType[i]) + ':' + QByteArray::number(s.lineFlags[i]) +
                         (m.row[i].enabled ? "E" : "") + (m.row[i].checked ? "C" : "");
            out << "sets[" + l.join(',') + ']';
            continue;
        case 'a':
            for (int i = 0; i < s.dataSetCount && i < qv::kMaxDataSets; ++i)
                l << number(s.axisMin[i]) + ".." + number(s.axisMax[i]);
            out << "axes[" + l.join(',') + ']';
            continue;
        case 'v':
            for (int i = 0; i < qv::kMaxDataSets; ++i) {
                QByteArrayList v;
                for (int k = 0; k < m.data(i)->count && k < qv::kMaxSamples; ++k)
                    v << number(m.data(i)->value[k]);
                if (i < s.dataSetCount || !v.isEmpty())
                    l << v.join(' ');
            }
            out << "v[" + l.join('|') + ']';
            continue;
        case 'x':
            for (int k = 0; k < m.data(0)->count; ++k)
                l << (k == 0 ? when(m.data(0)->time[0]) : "+" + QByteArray::number((m.data(0)->time[k] - m.data(0)->time[k - 1]) / 1000));
            out << "x[" + l.join(' ') + ']';
            continue;
        case 'g':
            out << (s.firstTime == 0 ? QByteArray("0") : when(s.firstTime)) + ".." + (s.lastTime == 0 ? QByteArray("0") : when(s.lastTime)) +
                       " iv=" + QByteArray::number(s.sampleInterval) + " n=" + QByteArray::number(s.rangeSampleCount) +
                       (s.rangeBegin == s.firstTime && s.viewBegin == s.firstTime && s.rangeEnd == s.lastTime &&
                                s.viewEnd == s.lastTime
                            ? ""
                            : " range?");
            continue;
        case 'm':
            for (int k = 0; k < m.modeCodes()->count; ++k)
                l << QByteArray::number(m.modeCodes()->code[k]);
            out << "modes=" + QByteArray::number(s.hasModeData) + (m.modeBoxVisible ? "V" : "") + (m.modeBoxChecked ? "C" : "") +
                       " flags=" + QByteArray::number(s.flags) + " [" + l.join(' ') + ']';
            continue;
        case 'p': {
            const modeParametersT &b = *m.modeParameters();
            for (double d : b.parameter)
                l << number(d);
            out << "P[" + l.join(' ') + ';' + QByteArray::number(b.intParameter[0]) + ' ' + QByteArray::number(b.intParameter[1]) +
                       ' ' + QByteArray::number(b.intParameter[2]) + ' ' + QByteArray::number(b.intParameter[3]) + ';' +
                       QByteArray::number(b.interval) + ']';
            continue;
        }
        case 'q':
            out << "q" + QByteArray::number(host.questions.size()) + "w" + QByteArray::number(host.warnings.size());
            continue;
        default:
            out << "?";
        }
    }
    return out.join(' ');
}

}  // namespace qvtest

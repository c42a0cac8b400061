#include "chart/chartfixture.h"

#include "project/fixedstring.h"

#include <QByteArray>

namespace chartfixture {

void fill(qv::ChartModel &model, int dataSets, int samples)
{
    settingsT &s = model.settings;
    s.dataSetCount = dataSets;
    for (int i = 0; i < dataSets; ++i) {
        _chartDataType &d = *model.data(i);
        d.count = samples;
        for (int k = 0; k < samples; ++k) {
            d.time[k] = timeOf(k);
            d.value[k] = valueOf(i, k);
        }
        g_qString2Buffer(s.name[i], QStringLiteral("Set %1").arg(i), qv::kNameWidth);
        g_qString2Buffer(s.unit[i], QStringLiteral("u%1").arg(i), qv::kUnitWidth);
        s.decimals[i] = quint8(i % 3);
        s.axisMin[i] = -i;
        s.axisMax[i] = 100 + i;
    }
    s.firstTime = s.rangeBegin = s.viewBegin = timeOf(0);
    s.lastTime = s.rangeEnd = s.viewEnd = timeOf(samples - 1);
    model.recountRange();
}

void setModes(qv::ChartModel &model, const QVector<int> &codes)
{
    modeCodesT &m = *model.modeCodes();
    m.count = model.data(0)->count;
    for (int k = 0; k < m.count; ++k)
        m.code[k] = qint8(codes[k % codes.size()]);
    model.settings.hasModeData = 1;
    model.settings.flags |= qv::kFlagShowModeTrack;
}

void showOnly(qv::ChartModel &model, const QVector<int> &dataSets)
{
    for (quint32 &flags : model.settings.lineFlags)
        flags &= ~qv::kLineShown;
    for (int i : dataSets)
        model.settings.lineFlags[i] |= qv::kLineShown;
}

}  // namespace chartfixture

#include "chart/chartplan.h"

#include "project/fixedstring.h"

namespace qv {

ChartCheck g_checkChartData(const ChartModel &model)
{
    const int dataSets = model.usedDataSets();
    if (dataSets == 0)
        return ChartCheck::NoDataSets;
    for (int i = 0; i < dataSets; ++i) {
        if (model.data(i)->count < kMinSamplesForChart)
            return ChartCheck::TooFewSamples;
    }
    if (g_leadDataSet(model) < 0)
        return ChartCheck::NothingShown;
    return ChartCheck::Drawable;
}

int g_leadDataSet(const ChartModel &model)
{
    const int dataSets = model.usedDataSets();
    for (int i = 0; i < dataSets; ++i) {
        if (model.settings.lineFlags[i] & kLineShown)
            return i;
    }
    return -1;
}

FontSizes g_fontSizes(int viewWidth)
{
    FontSizes sizes;
    sizes.legend = qMax(1, viewWidth / 148);
    sizes.title = qMax(1, viewWidth / 80);
    sizes.axis = qMax(1, viewWidth / 140);
    return sizes;
}

bool g_legendAlignment(quint8 legendPosition, Qt::Alignment &alignment)
{
    switch (legendPosition) {
    case 1:
        alignment = Qt::AlignTop;
        return true;
    case 2:
        alignment = Qt::AlignRight;
        return true;
    case 3:
        alignment = Qt::AlignBottom;
        return true;
    case 4:
        alignment = Qt::AlignLeft;
        return true;
    default:
        return false;
    }
}

int g_penWidth(quint8 lineWidth, bool forPrint)
{
    return forPrint ? lineWidth * 4 : lineWidth;
}

QString g_valueLabelFormat(quint8 decimals)
{
    return QStringLiteral(" %.%1f").arg(decimals);
}

QString g_provisionalSeriesName(const settingsT &settings, int dataSet)
{
    return g_buffer2QString(settings.name[dataSet], kNameWidth) + QStringLiteral(" (D=)");
}

}  // namespace qv

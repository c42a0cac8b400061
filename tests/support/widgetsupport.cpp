#include "support/widgetsupport.h"

#include "core/model/fixedstring.h"
#include "core/project/projectfile.h"
#include "gui/ui/resources.h"

#include <QStandardPaths>

namespace qvtest {

void prepareShell(const QTemporaryDir &scratch)
{
    QStandardPaths::setTestModeEnabled(true);
    const QString config = scratch.filePath(QStringLiteral("config"));
    qputenv("XDG_CONFIG_HOME", config.toLocal8Bit());
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, config);
    qv::g_initResources();
}

std::unique_ptr<qv::ChartModel> makeModel(int dataSets, bool modes)
{
    auto model = std::make_unique<qv::ChartModel>();
    settingsT &s = model->settings;
    s.dataSetCount = dataSets;
    for (int i = 0; i < dataSets; ++i) {
        qv::g_qString2Buffer(s.name[i], QStringLiteral("Set %1").arg(i), qv::kNameWidth);
        _chartDataType &d = *model->data(i);
        d.count = 20;
        for (int k = 0; k < d.count; ++k) {
            d.time[k] = 1700000000000 + qint64(k) * 60000;
            d.value[k] = 10.0 * i + 0.5 * k;
        }
    }
    if (dataSets > 1)
        s.lineFlags[1] &= ~qv::kLineShown;
    s.firstTime = s.rangeBegin = s.viewBegin = 1700000000000;
    s.lastTime = s.rangeEnd = s.viewEnd = 1700000000000 + 19 * 60000;
    s.sampleInterval = 60;
    if (modes) {
        s.hasModeData = 1;
        model->modeCodes()->count = 20;
        for (int k = 0; k < 20; ++k)
            model->modeCodes()->code[k] = qint8(k % 13);
    }
    return model;
}

bool writeProject(const QString &path, int dataSets, bool modes)
{
    auto model = makeModel(dataSets, modes);
    qv::SaveOptions options;
    options.changedTime = 1000;
    return qv::g_saveProjectFile(*model, path, options).ok;
}

}  // namespace qvtest

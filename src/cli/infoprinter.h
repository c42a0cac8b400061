// Readable and JSON views of a model for quorvanta-cli info.
#pragma once

#include "core/model/chartmodel.h"

#include <QString>

namespace qv {

QString g_infoText(const ChartModel &model, const QString &fileName);
QString g_infoJson(const ChartModel &model, const QString &fileName);

}  // namespace qv

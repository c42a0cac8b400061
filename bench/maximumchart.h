// The chart document the widget benchmarks drive: 1480 x 1046 pixels, its
// rows in a panel, holding the maximum recording (16 data sets x 262144
// samples).
#pragma once

#include "benchutil.h"
#include "climatesynth.h"

#include "document/qvchartclass.h"

#include <QGridLayout>
#include <QString>
#include <QWidget>

#include <memory>

namespace qvbench {

struct MaximumChart {
    QWidget panel;
    QString dir;
    std::unique_ptr<QVChartClass> widget;

    MaximumChart() : widget(std::make_unique<QVChartClass>(nullptr, &dir, &dir, new QGridLayout(&panel)))
    {
        widget->resize(1480, 1046);
        qv::g_synthesiseMaximum(widget->model());
    }
};

}  // namespace qvbench

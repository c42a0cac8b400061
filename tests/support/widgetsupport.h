// Shared set-up of the widget tests: test-mode paths, a throwaway settings
// store, and projects written with the core.
#pragma once

#include "core/model/chartmodel.h"

#include <QCoreApplication>
#include <QSettings>
#include <QString>
#include <QTemporaryDir>

#include <memory>

namespace qvtest {

// Call from initTestCase(): standard paths in test mode, settings and
// configuration under a temporary folder, resources registered.
void prepareShell(const QTemporaryDir &scratch);

// Runs the pending deleteLater() calls.
inline void flushDeletions()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// A model with dataSets data sets ("Set 0", ...; set 1 hidden) of a few
// samples, with or without device-mode data.
std::unique_ptr<qv::ChartModel> makeModel(int dataSets, bool modes);
// Saves such a model as a project file; false on failure.
bool writeProject(const QString &path, int dataSets, bool modes = false);

}  // namespace qvtest

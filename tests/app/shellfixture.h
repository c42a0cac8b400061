// Shared set-up of the desktop program's tests: test-mode paths, a
// throwaway settings store, and projects written with the core.
#pragma once

#include "app/quorvantaclass.h"
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

// A main window without the start screen; language as stored (German on a
// first start).
inline std::unique_ptr<QuorvantaClass> makeWindow()
{
    return std::make_unique<QuorvantaClass>(QStringLiteral("/nonexistent-app-dir"), nullptr, false);
}

// A model with dataSets data sets ("Set 0", ...; set 1 hidden) of a few
// samples, with or without device-mode data.
std::unique_ptr<qv::ChartModel> makeModel(int dataSets, bool modes);
// Saves such a model as a project file; false on failure.
bool writeProject(const QString &path, int dataSets, bool modes = false);

}  // namespace qvtest

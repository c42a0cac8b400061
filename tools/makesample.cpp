// Writes the bundled sample project: four weeks of a wine cellar's climate.
#include "climatesynth.h"

#include "core/project/projectfile.h"

#include <QCoreApplication>
#include <QTextStream>

#include <memory>

int main(int argc, char *argv[])
{
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        QTextStream(stderr) << "usage: quorvanta-makesample OUTPUT.qvj\n";
        return 2;
    }
    auto model = std::make_unique<qv::ChartModel>();
    qv::g_synthesiseRecording(*model, qv::SynthOptions());
    qv::SaveOptions options;
    options.changedTime = 1764547200;  // fixed, so every build writes the same bytes
    const qv::FileResult result = qv::g_saveProjectFile(*model, QString::fromLocal8Bit(argv[1]), options);
    if (!result.ok) {
        QTextStream(stderr) << result.message << '\n';
        return 1;
    }
    return 0;
}

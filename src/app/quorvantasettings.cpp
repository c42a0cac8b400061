// The user's settings store: read at start, written when the window closes.
#include "app/quorvantaclass.h"

#include "core/base/version.h"
#include "core/chart/displaysize.h"
#include "core/project/recentfiles.h"
#include "ui_quorvanta.h"

#include <QActionGroup>
#include <QFileInfo>
#include <QGuiApplication>
#include <QScreen>
#include <QSettings>

#include <memory>

namespace {

// The INI store in the user's scope.
std::unique_ptr<QSettings> openSettings()
{
    return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("Merovin GmbH"),
                                       QStringLiteral("Quorvanta"));
}

}  // namespace

QString QuorvantaClass::m_getSettingsDir() const
{
    return QFileInfo(openSettings()->fileName()).absolutePath();
}

void QuorvantaClass::m_readSettings()
{
    const std::unique_ptr<QSettings> store = openSettings();
    QSettings &s = *store;
    settingsDir = m_getSettingsDir();
    if (s.contains(QStringLiteral("AppPos"))) {
        restoreGeometry(s.value(QStringLiteral("AppPos")).toByteArray());
    } else if (const QScreen *screen = QGuiApplication::primaryScreen()) {
        // First start: the designed size where the screen holds it, centred.
        const QRect free = screen->availableGeometry();
        resize(qv::g_firstWindowSize(size(), free.size()));
        move(free.center() - rect().center());
    }
    restoreState(s.value(QStringLiteral("AppState"), saveState()).toByteArray());
    helpPos = s.value(QStringLiteral("HelpPos"), QByteArray()).toByteArray();
    helpState = s.value(QStringLiteral("HelpState"), QByteArray()).toByteArray();
    recentFiles = s.value(QStringLiteral("RecentFiles"), QStringList()).toStringList().mid(0, qv::kMaxRecentFiles);
    language = qv::Language(s.value(QStringLiteral("Language"), quint32(qv::Language::German)).toUInt());
    projectDir = s.value(QStringLiteral("ProjectDir"), projectDir).toString();
    importDir = s.value(QStringLiteral("ImportDir"), importDir).toString();
    updateServer = s.value(QStringLiteral("UpdateServer")).toString();  // read only, set by hand

    m_syncRecentActions();
    connect(recentGroup, &QActionGroup::triggered, this, &QuorvantaClass::s_openRecentFile);

    // The options are ticked before their actions are connected: a stored
    // "AutoSave" shows its tick but starts no timer until toggled again.
    ui->actionAutoUpdate->setChecked(s.value(QStringLiteral("Update"), false).toBool());
    ui->actionAutoSave->setChecked(s.value(QStringLiteral("AutoSave"), false).toBool());

    if (language == qv::Language::German) {
        language = qv::Language::Unset;
        s_deutsch();
    }
}

void QuorvantaClass::m_saveSettings()
{
    const std::unique_ptr<QSettings> store = openSettings();
    QSettings &s = *store;
    s.setValue(QStringLiteral("Version"), QV_VERSION_NUMBER);
    s.setValue(QStringLiteral("AppPos"), saveGeometry());
    s.setValue(QStringLiteral("AppState"), saveState());
    s.setValue(QStringLiteral("HelpPos"), helpPos);
    s.setValue(QStringLiteral("HelpState"), helpState);
    s.setValue(QStringLiteral("RecentFiles"), recentFiles);
    s.setValue(QStringLiteral("Language"), quint32(language));
    s.setValue(QStringLiteral("Update"), ui->actionAutoUpdate->isChecked());
    s.setValue(QStringLiteral("AutoSave"), ui->actionAutoSave->isChecked());
    s.setValue(QStringLiteral("ProjectDir"), projectDir);
    s.setValue(QStringLiteral("ImportDir"), importDir);
}

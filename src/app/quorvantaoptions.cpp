// Language, automatic saving, help, about and updates.
#include "app/quorvantaclass.h"

#include "app/appexit.h"
#include "core/base/version.h"
#include "document/qvchartclass.h"
#include "gui/help/helpwindowclass.h"
#include "gui/ui/dialogseam.h"
#include "gui/update/qvupdateclass.h"
#include "gui/update/webupdateclass.h"
#include "ui_quorvanta.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QTimer>
#include <QTranslator>

namespace {

constexpr int kAutoSaveIntervalMs = 10000;
constexpr int kAutoSaveTicks = 90;  // 15 minutes of modified project

// The update server: the environment may override the settings store.
QUrl updateServerUrl(const QString &setting)
{
    return qv::g_updateServer(setting, qEnvironmentVariable(qv::kUpdateServerVariable));
}

}  // namespace

void QuorvantaClass::m_removeTranslators()
{
    QCoreApplication::removeTranslator(appTranslator);
    QCoreApplication::removeTranslator(qtTranslator);
}

void QuorvantaClass::s_deutsch()
{
    if (language == qv::Language::German)
        return;
    language = qv::Language::German;
    m_removeTranslators();
    // A catalogue that is missing is simply not installed.
    if (appTranslator->load(QStringLiteral(":/new/prefix1/resources/Quorvanta_de.qm")))
        QCoreApplication::installTranslator(appTranslator);
    if (qtTranslator->load(QStringLiteral(":/new/prefix1/resources/qtbase_de.qm")))
        QCoreApplication::installTranslator(qtTranslator);
    m_retranslate();
}

void QuorvantaClass::s_english()
{
    if (language == qv::Language::English)
        return;
    language = qv::Language::English;
    m_removeTranslators();
    m_retranslate();
}

void QuorvantaClass::m_retranslate()
{
    ui->retranslateUi(this);
    // The form's texts include the window title: put the project's back.
    m_setTitle(titleKind, titlePath);
}

void QuorvantaClass::s_autoSave(bool on)
{
    if (on && !autoSaveTimer) {
        autoSaveTimer = new QTimer(this);
        connect(autoSaveTimer, &QTimer::timeout, this, &QuorvantaClass::s_doAutoSave);
        autoSaveTimer->start(kAutoSaveIntervalMs);
    } else if (!on && autoSaveTimer) {
        autoSaveTimer->stop();
        delete autoSaveTimer;
        autoSaveTimer = nullptr;
    }
}

void QuorvantaClass::s_doAutoSave()
{
    if (!chart || QApplication::activeModalWidget())
        return;  // nothing to save, or a load, save or dialog is running
    if (!isWindowModified()) {
        autoSaveTicks = 0;
        return;
    }
    if (autoSaveTicks++ < kAutoSaveTicks - 1)
        return;
    if (!chart->rect().contains(chart->mapFromGlobal(QCursor::pos())))
        return;  // keep counting until the pointer is over the chart
    // Only titles ending in ".qvx [*]" are saved automatically; project
    // files end in ".qvj", so ordinary projects are left alone.
    if (windowTitle().right(8) == QLatin1String(".qvx [*]"))
        chart->s_saveProject();
    autoSaveTicks = 0;
}

void QuorvantaClass::s_help(QWidget *parent, QString *hName)
{
    Q_UNUSED(parent)
    QString page = (hName && !hName->isEmpty()) ? *hName : QStringLiteral("index.html");
    if (!helpWindow) {
        helpWindow = new HelpWindowClass(&appDir, nullptr, &page, language);
        connect(helpWindow, &HelpWindowClass::m_closed, this, &QuorvantaClass::s_helpClosed);
        helpWindow->restoreGeometry(helpPos);
        helpWindow->restoreState(helpState);
        helpWindow->show();
    } else {
        helpWindow->m_setSource(&page);
    }
    if (helpWindow->isMinimized())
        helpWindow->showNormal();
    helpWindow->raise();
    helpWindow->activateWindow();
}

void QuorvantaClass::s_helpClosed(QByteArray *pos, QByteArray *state)
{
    if (pos)
        helpPos = *pos;
    if (state)
        helpState = *state;
    if (helpWindow)
        helpWindow->deleteLater();
    helpWindow = nullptr;
}

void QuorvantaClass::m_checkUpdate()
{
    if (!ui->actionAutoUpdate->isChecked())
        return;
    webUpdate = new WebUpdateClass(QString::fromLatin1(QV_VERSION_STRING), updateServerUrl(updateServer), this);
    connect(webUpdate, &WebUpdateClass::m_webUpdateReady, this, &QuorvantaClass::s_webUpdateReady);
}

void QuorvantaClass::s_webUpdateReady(int found)
{
    // The answer may arrive while a project loads or saves: ask afterwards.
    if (QApplication::activeModalWidget()) {
        QTimer::singleShot(1000, this, [this, found] { s_webUpdateReady(found); });
        return;
    }
    if (webUpdate)
        webUpdate->deleteLater();
    webUpdate = nullptr;
    if (found && qv::g_question(this, tr("Quorvanta Update"), tr("A new version is available - Start update?"),
                                QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes)
        s_update();
}

void QuorvantaClass::s_update()
{
    QVUpdateClass dialog(this, QString::fromLatin1(QV_VERSION_STRING), settingsDir, updateServerUrl(updateServer));
    if (qv::g_execDialog(dialog) != QDialog::Accepted)
        return;
    // Close only when what was saved can be started: after the window has
    // gone nobody could be told.
    const QString updater = qv::g_programAfterExit(qv::kStartUpdater, appDir, settingsDir);
    if (!qv::g_canStart(updater)) {
        qv::g_critical(this, tr("Quorvanta Update"),
                       tr("The update cannot be started: %1").arg(QDir::toNativeSeparators(updater)));
        return;
    }
    appVal = qv::kStartUpdater;
    if (!close())
        appVal = 0;  // the project was not closed: no update on a later exit
}

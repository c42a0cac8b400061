// The update dialog: shows the installed and the offered version, downloads
// the updater on request and saves it as settingsDir + "/QuorvantaUpdate.exe".
// Accepted means the updater is saved and ready to start after the program
// ends.
#pragma once

#include "core/update/updaterules.h"

#include <QDialog>
#include <QPointer>
#include <QString>
#include <QUrl>

#include <memory>

class QNetworkAccessManager;
class QNetworkReply;
class Ui_UpdateClass;

class QVUpdateClass : public QDialog
{
    Q_OBJECT

public:
    QVUpdateClass(QWidget *parent, const QString &installedVersion, const QString &programDir, const QUrl &server,
                  int timeoutMs = qv::kUpdateTimeoutMs);
    ~QVUpdateClass() override;

    // Where the updater is saved.
    QString m_updaterFile() const;

public slots:
    void s_readVerFinished();
    void s_readFileFinished();
    void s_updateReadProgress(qint64 received, qint64 total);
    void s_updatePressed();
    void s_exitPressed();

private:
    void m_log(const QString &line);
    // Ends the pending reply with a failure text of our own.
    void m_abort(const QString &why);
    QString m_failure(QNetworkReply *done) const;

    std::unique_ptr<Ui_UpdateClass> ui;
    QString installedVersion;
    QString programDir;
    QUrl server;
    int timeoutMs;
    QNetworkAccessManager *manager;
    QPointer<QNetworkReply> reply;
    QString abortReason;
};

// Background version check: asks the update server once for its version file
// and reports through m_webUpdateReady whether a newer version than the
// running one is offered (1) or not (0, also on every failure).
#pragma once

#include "core/update/updaterules.h"

#include <QObject>
#include <QPointer>
#include <QString>
#include <QUrl>

class QNetworkAccessManager;
class QNetworkReply;

namespace qv {

// A GET request for one resource of the update server: redirects are
// followed only on the same server, and a transfer that stalls for
// timeoutMs ends with an error.
QNetworkReply *g_getUpdateResource(QNetworkAccessManager &manager, const QUrl &server, const char *path, int timeoutMs);

}  // namespace qv

class WebUpdateClass : public QObject
{
    Q_OBJECT

public:
    WebUpdateClass(const QString &installedVersion, const QUrl &server, QObject *parent = nullptr,
                   int timeoutMs = qv::kUpdateTimeoutMs);
    ~WebUpdateClass() override;

signals:
    void m_webUpdateReady(int available);

private slots:
    void s_readFinished();

private:
    QNetworkAccessManager *manager;
    QPointer<QNetworkReply> reply;
    QString installedVersion;
};

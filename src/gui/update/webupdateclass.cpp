#include "gui/update/webupdateclass.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace qv {

QNetworkReply *g_getUpdateResource(QNetworkAccessManager &manager, const QUrl &server, const char *path, int timeoutMs)
{
    QNetworkRequest request(g_updateResource(server, path));
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::SameOriginRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setTransferTimeout(timeoutMs);
    return manager.get(request);
}

}  // namespace qv

WebUpdateClass::WebUpdateClass(const QString &installedVersion, const QUrl &server, QObject *parent, int timeoutMs)
    : QObject(parent), manager(new QNetworkAccessManager(this)), installedVersion(installedVersion)
{
    reply = qv::g_getUpdateResource(*manager, server, qv::kVersionFilePath, timeoutMs);
    connect(reply, &QNetworkReply::finished, this, &WebUpdateClass::s_readFinished);
    // A longer reply is no version file: stop reading it at once.
    connect(reply, &QNetworkReply::downloadProgress, this, [this](qint64 received, qint64 total) {
        if ((received > qv::kVersionFileSize || total > qv::kVersionFileSize) && reply)
            reply->abort();
    });
}

WebUpdateClass::~WebUpdateClass()
{
    if (reply) {
        reply->disconnect(this);
        reply->abort();
    }
}

void WebUpdateClass::s_readFinished()
{
    QNetworkReply *done = reply;
    if (!done)
        return;
    reply = nullptr;
    done->deleteLater();
    int result = 0;
    if (done->error() == QNetworkReply::NoError) {
        const qv::VersionFile file = qv::g_decodeVersionFile(done->readAll());
        if (file.valid && qv::g_isNewerVersion(installedVersion, file.version))
            result = 1;
    }
    emit m_webUpdateReady(result);
}

#include "core/update/updaterules.h"

#include <QtEndian>

namespace qv {

const char *const kVersionFilePath = "/quorvanta/version.upd";
const char *const kUpdaterPath = "/quorvanta/QuorvantaUpdate.exe";
const char *const kUpdaterFileName = "QuorvantaUpdate.exe";
const char *const kDefaultUpdateServer = "https://update.quorvanta.example";
const char *const kUpdateServerVariable = "QUORVANTA_UPDATE_URL";

VersionFile g_decodeVersionFile(const QByteArray &bytes)
{
    VersionFile file;
    const QByteArray text = bytes.left(7);
    const int end = text.indexOf('\0');
    file.version = QString::fromLatin1(end < 0 ? text : text.left(end));
    if (bytes.size() != kVersionFileSize)
        return file;
    file.valid = true;
    file.sizeKb = qFromLittleEndian<qint32>(bytes.constData() + 8);
    return file;
}

bool g_isNewerVersion(const QString &installed, const QString &offered)
{
    return QString::compare(installed, offered, Qt::CaseSensitive) < 0;
}

QUrl g_updateServer(const QString &setting, const QString &environment)
{
    QString text = environment.trimmed();
    if (text.isEmpty())
        text = setting.trimmed();
    if (text.isEmpty())
        text = QString::fromLatin1(kDefaultUpdateServer);
    const QUrl url(text, QUrl::StrictMode);
    const QString scheme = url.scheme().toLower();
    if (!url.isValid() || url.host().isEmpty() ||
        (scheme != QLatin1String("https") && scheme != QLatin1String("http")) || !url.userInfo().isEmpty() ||
        url.hasQuery() || url.hasFragment())
        return QUrl();
    return url;
}

QUrl g_updateResource(const QUrl &server, const char *path)
{
    if (!server.isValid() || server.isEmpty())
        return QUrl();
    QUrl url = server;
    QString base = url.path();
    while (base.endsWith(QLatin1Char('/')))
        base.chop(1);
    url.setPath(base + QString::fromLatin1(path));
    return url;
}

}  // namespace qv

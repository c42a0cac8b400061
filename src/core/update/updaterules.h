// Rules of the version check without the network: where the server is, what
// the version file says, and whether its version is newer than ours.
#pragma once

#include <QByteArray>
#include <QString>
#include <QUrl>

namespace qv {

// The two resources on the update server, below its base address.
extern const char *const kVersionFilePath;  // "/quorvanta/version.upd"
extern const char *const kUpdaterPath;      // "/quorvanta/QuorvantaUpdate.exe"
// Name of the downloaded updater in the settings folder.
extern const char *const kUpdaterFileName;  // "QuorvantaUpdate.exe"
// Our own server, used when neither the settings nor the environment name one.
extern const char *const kDefaultUpdateServer;
// Environment variable that overrides the "UpdateServer" setting.
extern const char *const kUpdateServerVariable;  // "QUORVANTA_UPDATE_URL"

constexpr int kVersionFileSize = 12;
constexpr int kUpdateTimeoutMs = 15000;
constexpr qint64 kMaxUpdaterBytes = qint64(64) * 1024 * 1024;

struct VersionFile {
    bool valid = false;  // exactly 12 bytes
    QString version;     // bytes 0 to 6 up to the first zero byte
    qint32 sizeKb = 0;   // bytes 8 to 11, little-endian
};

VersionFile g_decodeVersionFile(const QByteArray &bytes);

// Versions compare as strings, character by character: "1.10.00" sorts
// before "1.8.100". This holds while every version keeps seven characters.
bool g_isNewerVersion(const QString &installed, const QString &offered);

// The server's base address: the environment variable if set, else the
// setting, else our own server. Only http and https addresses with a host
// are used; anything else gives an empty (invalid) address, which every
// request then reports as an error.
QUrl g_updateServer(const QString &setting, const QString &environment);

// A resource path appended to the base address's own path.
QUrl g_updateResource(const QUrl &server, const char *path);

}  // namespace qv

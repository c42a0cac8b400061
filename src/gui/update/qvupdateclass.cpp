#include "gui/update/qvupdateclass.h"

#include "gui/ui/dialogseam.h"
#include "gui/update/webupdateclass.h"
#include "ui_updateclass.h"

#include <QDir>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSaveFile>

QVUpdateClass::QVUpdateClass(QWidget *parent, const QString &installedVersion, const QString &programDir,
                             const QUrl &server, int timeoutMs)
    : QDialog(parent), ui(std::make_unique<Ui_UpdateClass>()), installedVersion(installedVersion),
      programDir(programDir), server(server), timeoutMs(timeoutMs), manager(new QNetworkAccessManager(this))
{
    ui->setupUi(this);
    m_log(tr("Existing Quorvanta Version: %1").arg(installedVersion));
    m_log(tr("Looking for new version ..."));
    reply = qv::g_getUpdateResource(*manager, server, qv::kVersionFilePath, timeoutMs);
    connect(reply, &QNetworkReply::finished, this, &QVUpdateClass::s_readVerFinished);
    // A longer reply is no version file: stop reading it at once.
    connect(reply, &QNetworkReply::downloadProgress, this, [this](qint64 received, qint64 total) {
        if (received > qv::kVersionFileSize || total > qv::kVersionFileSize)
            m_abort(tr("Invalid version file (%1 bytes)").arg(qMax(received, total)));
    });
    connect(ui->buttonUpdate, &QPushButton::clicked, this, &QVUpdateClass::s_updatePressed);
    connect(ui->buttonExit, &QPushButton::clicked, this, &QVUpdateClass::s_exitPressed);
}

QVUpdateClass::~QVUpdateClass()
{
    if (reply) {
        reply->disconnect(this);
        reply->abort();
    }
}

QString QVUpdateClass::m_updaterFile() const
{
    return programDir + QLatin1Char('/') + QString::fromLatin1(qv::kUpdaterFileName);
}

void QVUpdateClass::m_log(const QString &line)
{
    ui->editStatus->append(line);
}

void QVUpdateClass::m_abort(const QString &why)
{
    if (!reply || !abortReason.isEmpty())
        return;
    abortReason = why;
    reply->abort();  // finishes the reply at once
}

QString QVUpdateClass::m_failure(QNetworkReply *done) const
{
    if (!abortReason.isEmpty())
        return abortReason;
    // Nobody else aborts a reply: a cancelled one has run into the timeout.
    if (done->error() == QNetworkReply::OperationCanceledError)
        return tr("The update server did not answer in time.");
    return done->error() == QNetworkReply::NoError ? QString() : done->errorString();
}

void QVUpdateClass::s_readVerFinished()
{
    QNetworkReply *done = reply;
    if (!done)
        return;
    reply = nullptr;
    done->deleteLater();
    QString failure = m_failure(done);
    abortReason.clear();
    const QByteArray bytes = failure.isEmpty() ? done->readAll() : QByteArray();
    if (failure.isEmpty() && bytes.size() != qv::kVersionFileSize)
        failure = tr("Invalid version file (%1 bytes)").arg(bytes.size());
    if (!failure.isEmpty()) {
        m_log(tr("Error: %1").arg(failure));
        ui->buttonExit->setEnabled(true);
        return;
    }
    const qv::VersionFile file = qv::g_decodeVersionFile(bytes);
    m_log(tr("New Quorvanta Version: %1").arg(file.version));
    if (!qv::g_isNewerVersion(installedVersion, file.version)) {
        m_log(tr("No Update neccessary"));
        ui->buttonUpdate->setEnabled(false);
        return;
    }
    m_log(tr("Ready to start Update. (%1 kB)").arg(file.sizeKb));
    ui->buttonUpdate->setEnabled(true);
}

void QVUpdateClass::s_updatePressed()
{
    if (reply)
        return;
    ui->buttonUpdate->setEnabled(false);
    ui->buttonExit->setEnabled(false);
    ui->progressBar->setRange(0, 0);  // moving until the size is known
    reply = qv::g_getUpdateResource(*manager, server, qv::kUpdaterPath, timeoutMs);
    connect(reply, &QNetworkReply::finished, this, &QVUpdateClass::s_readFileFinished);
    connect(reply, &QNetworkReply::downloadProgress, this, &QVUpdateClass::s_updateReadProgress);
}

void QVUpdateClass::s_updateReadProgress(qint64 received, qint64 total)
{
    if (received > qv::kMaxUpdaterBytes || total > qv::kMaxUpdaterBytes) {
        m_abort(tr("The update is larger than %1 MiB.").arg(qv::kMaxUpdaterBytes / (1024 * 1024)));
        return;
    }
    if (total <= 0) {
        ui->progressBar->setRange(0, 0);
        return;
    }
    ui->progressBar->setRange(0, 1000);
    ui->progressBar->setValue(int(qMin<qint64>(received, total) * 1000 / total));
}

void QVUpdateClass::s_readFileFinished()
{
    QNetworkReply *done = reply;
    if (!done)
        return;
    reply = nullptr;
    done->deleteLater();
    const QString failure = m_failure(done);
    abortReason.clear();
    ui->progressBar->setRange(0, 1000);
    if (!failure.isEmpty()) {
        ui->progressBar->setValue(0);
        m_log(tr("Error: %1").arg(failure));
        ui->buttonUpdate->setEnabled(true);
        ui->buttonExit->setEnabled(true);
        return;
    }
    ui->progressBar->setValue(1000);
    // Written beside the final name and renamed when complete, so a failed
    // save never leaves half an updater behind.
    QDir().mkpath(programDir);
    QSaveFile file(m_updaterFile());
    const QByteArray bytes = done->readAll();
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.commit()) {
        const QString error = file.errorString();
        file.cancelWriting();
        ui->buttonUpdate->setEnabled(true);
        ui->buttonExit->setEnabled(true);
        qv::g_information(this, tr("Quorvanta Update"), tr("Unable to save update! %1").arg(error));
        return;
    }
    QFile::setPermissions(m_updaterFile(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner | QFile::ReadGroup |
                                               QFile::ExeGroup | QFile::ReadOther | QFile::ExeOther);
    m_log(tr("Update successful..."));
    qv::g_information(this, tr("Quorvanta Update"), tr("Quorvanta will be closed to perform the update!"));
    accept();
}

void QVUpdateClass::s_exitPressed()
{
    reject();
}

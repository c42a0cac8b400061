#include "core/base/regularfile.h"

#include <QFile>
#include <QFileInfo>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace qv {

bool g_isRegularFile(const QString &path)
{
    const QFileInfo info(path);
    return info.exists() && info.isFile();
}

bool g_mayReplace(const QString &path)
{
    const QFileInfo info(path);
    // A dangling link counts as something that is there.
    return info.exists() ? info.isFile() : !info.isSymLink();
}

bool g_openRegularFile(QFile &file)
{
#ifdef Q_OS_UNIX
    const QByteArray name = QFile::encodeName(file.fileName());
    if (name.isEmpty())
        return false;
    const int fd = ::open(name.constData(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0)
        return false;
    struct stat st;
    if (::fstat(fd, &st) != 0 || !S_ISREG(st.st_mode)) {
        ::close(fd);
        return false;
    }
    // Back to ordinary blocking reads for the regular file.
    const int flags = ::fcntl(fd, F_GETFL);
    if (flags < 0 || ::fcntl(fd, F_SETFL, flags & ~O_NONBLOCK) != 0) {
        ::close(fd);
        return false;
    }
    if (!file.open(fd, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
        ::close(fd);
        return false;
    }
    return true;
#else
    return g_isRegularFile(file.fileName()) && file.open(QIODevice::ReadOnly);
#endif
}

}  // namespace qv

#include "Panorel/FileLock.h"

#include <QFile>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <stdexcept>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Panorel {

std::unique_ptr<FileLock> FileLock::tryLock(const QString &path)
{
    const QByteArray name = QFile::encodeName(path);
    const int file = ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0600);
    if (file < 0)
        throw std::runtime_error("cannot open " + path.toStdString() + ": " + std::strerror(errno));
    // Keeps a clean-up of the runtime directory from taking the file away under its holder.
    [[maybe_unused]] const int kept = ::fchmod(file, S_ISVTX | S_IRUSR | S_IWUSR);
    if (::flock(file, LOCK_EX | LOCK_NB) == 0)
        return std::unique_ptr<FileLock>(new FileLock(file));
    const int reason = errno;
    ::close(file);
    if (reason == EWOULDBLOCK)
        return nullptr;
    throw std::runtime_error("cannot lock " + path.toStdString() + ": " + std::strerror(reason));
}

FileLock::~FileLock()
{
    ::close(m_file);
}

} // namespace Panorel

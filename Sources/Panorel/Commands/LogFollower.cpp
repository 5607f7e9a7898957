#include "Panorel/Commands/LogFollower.h"

#include <QFile>

#include <sys/stat.h>

namespace Panorel {

LogFollower::LogFollower(const QString &path, std::function<void(const QByteArray &)> write)
    : m_path(path), m_write(std::move(write))
{}

void LogFollower::readOn()
{
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return;
    struct stat facts {};
    if (::fstat(file.handle(), &facts) != 0)
        return;
    if (facts.st_ino != m_file || facts.st_size < m_position)
        m_position = 0;
    m_file = facts.st_ino;
    if (!file.seek(m_position))
        return;
    constexpr qint64 portion = 1024 * 1024;
    QByteArray pending;
    while (!file.atEnd()) {
        const QByteArray read = file.read(portion);
        if (read.isEmpty())
            break;
        pending += read;
        const qsizetype end = pending.lastIndexOf('\n') + 1; // the rest of a line is still to come
        if (end == 0)
            continue;
        m_write(pending.left(end));
        m_position += end;
        pending.remove(0, end);
    }
}

} // namespace Panorel

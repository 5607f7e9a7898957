#include "PanorelCore/Files/PrivateFile.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <unistd.h>

namespace Panorel {

namespace {

/// A disk that fills up takes a part first; only what comes after the part fails.
bool writeAll(QFile &file, QByteArray bytes)
{
    while (!bytes.isEmpty()) {
        const qint64 written = file.write(bytes);
        if (written <= 0)
            return false;
        bytes.remove(0, written);
    }
    return true;
}

/// Absent where all is on the disk, else what went wrong.
std::optional<QString> writeAndSync(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered,
                   QFileDevice::ReadOwner | QFileDevice::WriteOwner)
        || !writeAll(file, bytes))
        return file.errorString();
    if (::fsync(file.handle()) != 0)
        return QString::fromLocal8Bit(std::strerror(errno));
    return {};
}

/// A user may keep the file elsewhere and a link to it here; the link stays.
QString linkTarget(const QString &path)
{
    constexpr int longestChain = 40; // as the kernel has it
    QFileInfo info(path);
    for (int i = 0; i < longestChain && info.isSymLink(); ++i)
        info.setFile(info.symLinkTarget());
    return info.filePath();
}

} // namespace

std::optional<QString> PrivateFile::write(const QString &path, const QByteArray &bytes)
{
    const QString target = linkTarget(path);
    if (const QFileInfo info(target); info.exists() && !info.isWritable())
        return QStringLiteral("the file there is write-protected");
    const QString unfinished = target + QStringLiteral(".unfinished");
    QFile::remove(unfinished);
    auto failure = writeAndSync(unfinished, bytes);
    if (!failure
        && std::rename(QFile::encodeName(unfinished).constData(),
                       QFile::encodeName(target).constData())
               != 0)
        failure = QString::fromLocal8Bit(std::strerror(errno));
    if (failure)
        QFile::remove(unfinished);
    return failure;
}

} // namespace Panorel

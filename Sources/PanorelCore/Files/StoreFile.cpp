#include "PanorelCore/Files/StoreFile.h"

#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/Files/LogText.h"
#include "PanorelCore/Files/Paths.h"
#include "PanorelCore/Files/PrivateFile.h"

#include <QFile>
#include <QFileInfo>

namespace Panorel {

StoreFile::StoreFile(const QString &path, AppLog &log, const Clock &clock)
    : m_path(path), m_log(log), m_clock(clock)
{}

QString StoreFile::name() const
{
    return QFileInfo(m_path).fileName();
}

std::optional<QByteArray> StoreFile::read()
{
    const QFileInfo info(m_path);
    if (!info.exists())
        return {};
    m_unreadable = true;
    if (!info.isFile()) // opening a pipe would wait for a writer for ever
        return {};
    QFile file(m_path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    Paths::keepPrivate(file);
    const QByteArray bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return {};
    m_unreadable = false;
    return bytes;
}

void StoreFile::setCorruptAside(const QString &reason)
{
    moveAside();
    m_log.log(
        QStringLiteral("store: %1 was corrupt, moved aside (%2)").arg(name(), forLog(reason)));
}

bool StoreFile::write(const QByteArray &bytes)
{
    if (m_unreadable && QFileInfo::exists(m_path)) {
        if (!moveAside()) {
            logSaveFailure(QStringLiteral("the file there can't be read or moved aside"));
            return false;
        }
        m_log.log(QStringLiteral("store: %1 could not be read, moved aside").arg(name()));
    }
    m_unreadable = false;

    Paths::makeDirectory(QFileInfo(m_path).path()); // it may have been removed meanwhile
    const auto failure = PrivateFile::write(m_path, bytes);
    if (failure)
        logSaveFailure(*failure);
    return !failure;
}

void StoreFile::logSaveFailure(const QString &reason) const
{
    m_log.log(QStringLiteral("store: failed to save %1: %2").arg(name(), reason));
}

bool StoreFile::moveAside()
{
    const auto seconds =
        std::chrono::duration_cast<std::chrono::seconds>(m_clock.now().time_since_epoch());
    const QString aside = m_path + QStringLiteral(".corrupt-%1").arg(seconds.count());
    return QFile::rename(m_path, aside);
}

} // namespace Panorel

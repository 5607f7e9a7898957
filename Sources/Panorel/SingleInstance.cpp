#include "Panorel/SingleInstance.h"

#include "PanorelCore/Files/Paths.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <stdexcept>
#include <unistd.h>
#include <utility>

namespace Panorel {

namespace {

const QString openPanel = QStringLiteral("open-panel");
const QString done = QStringLiteral("ok");

bool isOwnDirectory(const QString &path)
{
    const QFileInfo info(path);
    return info.isAbsolute() && info.isDir() && info.isWritable() && info.ownerId() == ::getuid();
}

/// Where lock and socket are, without their suffix. The runtime directory is local and emptied at
/// log-out, which a data directory need not be; the hash keeps the socket's path short.
QString meetingPoint()
{
    const QFileInfo directory(Paths::file(QStringLiteral(".")));
    const QString dataDir =
        directory.exists() ? directory.canonicalFilePath() : directory.absoluteFilePath();
    const QString runtimeDir = qEnvironmentVariable("XDG_RUNTIME_DIR");
    if (!isOwnDirectory(runtimeDir))
        return QDir(dataDir).filePath(QStringLiteral("instance"));
    const QByteArray hash =
        QCryptographicHash::hash(QFile::encodeName(dataDir), QCryptographicHash::Sha256);
    return QDir(runtimeDir)
        .filePath(QStringLiteral("panorel-") + QString::fromLatin1(hash.toHex().left(16)));
}

} // namespace

std::unique_ptr<SingleInstance> SingleInstance::acquire(std::chrono::milliseconds within)
{
    const QString place = meetingPoint();
    const QString socket = place + QStringLiteral(".socket");
    const QDeadlineTimer deadline(within);
    // The other one may have only just begun, or be about to end: then neither is there for long.
    do {
        if (auto lock = FileLock::tryLock(place + QStringLiteral(".lock")))
            return std::unique_ptr<SingleInstance>(new SingleInstance(std::move(lock), socket));
        if (askServer(socket, openPanel, int(deadline.remainingTime())).reply == done)
            return nullptr;
        QThread::msleep(10);
    } while (!deadline.hasExpired());
    throw std::runtime_error("Panorel is running already, but does not answer");
}

SingleInstance::Answer SingleInstance::ask(const QString &request, std::chrono::milliseconds within)
{
    const QString place = meetingPoint();
    const QDeadlineTimer deadline(within);
    do {
        const ServerAnswer answer =
            askServer(place + QStringLiteral(".socket"), request, int(deadline.remainingTime()));
        if (answer.wasAsked)
            return {true, answer.reply}; // never twice: it may have acted on it
        const QString lock = place + QStringLiteral(".lock");
        if (!QFile::exists(lock) || FileLock::tryLock(lock))
            return {};
        QThread::msleep(10); // it is just starting
    } while (!deadline.hasExpired());
    return {true, {}};
}

SingleInstance::SingleInstance(std::unique_ptr<FileLock> lock, const QString &socket)
    : m_lock(std::move(lock)), m_server([this](const QString &request) { return answer(request); })
{
    // Without a socket, under a path that is too long for one, a second start ends with a message.
    m_server.listen(socket);
}

SingleInstance::~SingleInstance() = default;

void SingleInstance::setActivatedCallback(std::function<void()> activated)
{
    m_activated = std::move(activated);
    if (std::exchange(m_activationMissed, false))
        activateLater();
}

QString SingleInstance::answer(const QString &request)
{
    if (request == openPanel) {
        activateLater();
        return done;
    }
    const auto handler = m_handler;
    return handler ? handler(request) : QStringLiteral("error: unknown request");
}

void SingleInstance::setRequestHandler(std::function<QString(const QString &)> handler)
{
    m_handler = std::move(handler);
}

void SingleInstance::activateLater()
{
    // The reply goes out first, whatever the callback takes its time for.
    const auto activate = [this] {
        const auto activated = m_activated; // it may be replaced while it runs
        if (activated)
            activated();
        else
            m_activationMissed = true;
    };
    QMetaObject::invokeMethod(&m_server, activate, Qt::QueuedConnection);
}

} // namespace Panorel

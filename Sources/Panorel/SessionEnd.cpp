#include "Panorel/SessionEnd.h"

#include <QDBusConnection>
#include <QGuiApplication>
#include <QSessionManager>

namespace Panorel {

SessionEnd::SessionEnd(std::function<void()> ending) : m_ending(std::move(ending))
{
    connect(qApp, &QGuiApplication::commitDataRequest, this, [this] { m_ending(); });
    connect(qApp, &QCoreApplication::aboutToQuit, this, [this] { m_ending(); });
    // The login item starts it: a session that starts it too would open the panel at each login.
    connect(qApp, &QGuiApplication::saveStateRequest, this, [](QSessionManager &manager) {
        manager.setRestartHint(QSessionManager::RestartNever);
    });
    QDBusConnection::systemBus().connect(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PrepareForShutdown"),
        this, SLOT(prepareForShutdown(bool)));
}

void SessionEnd::prepareForShutdown(bool begins)
{
    if (begins)
        m_ending();
}

} // namespace Panorel

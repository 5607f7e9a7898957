#include "Panorel/SessionEnd.h"

#include "Panorel/Bus/SessionBus.h"

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
    m_shutdown = SessionBus::watchForShutdown([this] { m_ending(); });
}

} // namespace Panorel

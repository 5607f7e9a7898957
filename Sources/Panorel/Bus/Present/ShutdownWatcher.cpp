#include "Panorel/Bus/Present/ShutdownWatcher.h"

#include <QDBusConnection>

namespace Panorel {

ShutdownWatcher::ShutdownWatcher(std::function<void()> ending) : m_ending(std::move(ending))
{
    QDBusConnection::systemBus().connect(
        QStringLiteral("org.freedesktop.login1"), QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"), QStringLiteral("PrepareForShutdown"),
        this, SLOT(prepareForShutdown(bool)));
}

void ShutdownWatcher::prepareForShutdown(bool begins)
{
    if (begins)
        m_ending();
}

} // namespace Panorel

#include "Panorel/Bus/SessionBus.h"

#include <QObject>

namespace Panorel {

bool SessionBus::isPresent()
{
    return false;
}

void SessionBus::preventAutolaunch() {}

std::unique_ptr<QObject> SessionBus::watchForTray(std::function<void()>)
{
    return nullptr;
}

std::unique_ptr<QObject> SessionBus::watchForShutdown(std::function<void()>)
{
    return nullptr;
}

std::unique_ptr<QObject> SessionBus::offerService(Service)
{
    return nullptr;
}

} // namespace Panorel

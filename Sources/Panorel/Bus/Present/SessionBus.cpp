#include "Panorel/Bus/SessionBus.h"

#include "Panorel/Bus/Present/BusService.h"
#include "Panorel/Bus/Present/ShutdownWatcher.h"
#include "Panorel/Bus/Present/TrayWatcher.h"

#include <QFile>

namespace Panorel {

namespace {

constexpr auto address = "DBUS_SESSION_BUS_ADDRESS";

} // namespace

bool SessionBus::isPresent()
{
    if (!qEnvironmentVariableIsEmpty(address))
        return true;
    const QString runtime = qEnvironmentVariable("XDG_RUNTIME_DIR");
    return !runtime.isEmpty() && QFile::exists(runtime + QStringLiteral("/bus"));
}

void SessionBus::preventAutolaunch()
{
    if (!isPresent())
        qputenv(address, "disabled:");
}

std::unique_ptr<QObject> SessionBus::watchForTray(std::function<void()> ready)
{
    return std::make_unique<TrayWatcher>(std::move(ready));
}

std::unique_ptr<QObject> SessionBus::watchForShutdown(std::function<void()> ending)
{
    return std::make_unique<ShutdownWatcher>(std::move(ending));
}

std::unique_ptr<QObject> SessionBus::offerService(Service service)
{
    if (!isPresent())
        return nullptr;
    return std::make_unique<BusService>(std::move(service));
}

} // namespace Panorel

#include "Panorel/SessionBus.h"

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

} // namespace Panorel

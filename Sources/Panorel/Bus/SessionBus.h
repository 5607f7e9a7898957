#pragma once

#include "Panorel/Commands/Command.h"

#include <functional>
#include <memory>

class QObject;

/// The message buses of a Linux session, as far as the program listens to them. Where the platform
/// has none, Absent/ is built in place of Present/, and none is ever there.
namespace Panorel::SessionBus {

/// Whether the session has a message bus. Where it has none, the first to ask the bus library for
/// it would start a private one, to which nobody else is connected.
bool isPresent();

/// Where there is no bus, keeps the bus library from starting one. Before anything asks for it.
void preventAutolaunch();

/// `ready` is called once, from the event loop, as soon as a tray is there that draws icons, and
/// after a minute in any case; not after the returned object has gone. Only where isPresent().
std::unique_ptr<QObject> watchForTray(std::function<void()> ready);

/// `ending` is called whenever the system says that it is about to shut down, as long as the
/// returned object lives. Null where no bus says so.
std::unique_ptr<QObject> watchForShutdown(std::function<void()> ending);

/// What other programs may ask of this one.
struct Service {
    std::function<CommandReply(const CommandRequest &request)> run;
    std::function<void()> openPanel;
};

/// Offers it under the program's name on the session's bus, as long as the returned object lives.
/// Null where there is no bus.
std::unique_ptr<QObject> offerService(Service service);

} // namespace Panorel::SessionBus

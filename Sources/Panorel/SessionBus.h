#pragma once

namespace Panorel::SessionBus {

/// Whether the session has a message bus. Where it has none, the first to ask the bus library for
/// it would start a private one, to which nobody else is connected.
bool isPresent();

/// Where there is no bus, keeps the bus library from starting one. Before anything asks for it.
void preventAutolaunch();

} // namespace Panorel::SessionBus

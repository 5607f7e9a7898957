#pragma once

#include "PanorelPorts/WorkspacePort.h"
#include "PanorelX11/Windows/ClientRegistry.h"

namespace Panorel::X11 {

/// The applications that have windows, by their numbers. Regular with a window that the task bar
/// would show, on whatever desktop; accessory with any other. Whether they are hidden is left open.
std::vector<RunningApplication> applicationsOf(const std::vector<ClientRegistry::Client> &clients);

} // namespace Panorel::X11

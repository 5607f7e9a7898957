#pragma once

#include "PanorelPorts/WindowListPort.h"
#include "PanorelX11/Windows/ClientRegistry.h"
#include "PanorelX11/Windows/HiddenWindows.h"
#include "PanorelX11/Windows/RecentReadings.h"

namespace Panorel::X11 {

/// The managed windows that are neither minimised nor hidden, of all desktops together.
class X11WindowList final : public WindowListPort {
public:
    /// All of them outlive it.
    X11WindowList(ClientRegistry &registry, RecentReadings &readings, HiddenWindows &hidden)
        : m_registry(registry), m_readings(readings), m_hidden(hidden)
    {}

    std::optional<std::vector<WindowListEntry>> onScreenWindows() override;

private:
    ClientRegistry &m_registry;
    RecentReadings &m_readings;
    HiddenWindows &m_hidden;
};

} // namespace Panorel::X11

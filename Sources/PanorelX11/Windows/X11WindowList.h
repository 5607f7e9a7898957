#pragma once

#include "PanorelPorts/WindowListPort.h"
#include "PanorelX11/Windows/ClientReader.h"
#include "PanorelX11/Windows/ClientRegistry.h"

namespace Panorel::X11 {

/// The managed windows that are not minimised, of all desktops together.
class X11WindowList final : public WindowListPort {
public:
    /// Both outlive it.
    X11WindowList(ClientRegistry &registry, const ClientReader &reader)
        : m_registry(registry), m_reader(reader)
    {}

    std::optional<std::vector<WindowListEntry>> onScreenWindows() override;

private:
    ClientRegistry &m_registry;
    const ClientReader &m_reader;
};

} // namespace Panorel::X11

#pragma once

#include "PanorelPorts/ShellPort.h"
#include "PanorelX11/Connection/XConnection.h"

namespace Panorel::X11 {

/// Asks the selections that compositors and trays own, and sets the hints that window managers
/// read when a window is mapped.
class X11Shell final : public ShellPort {
public:
    /// The connection must outlive it.
    explicit X11Shell(XConnection &connection) : m_connection(connection) {}

    bool isComposited() const override { return isOwned("_NET_WM_CM_S0"); }
    bool hasEmbeddingTray() const override { return isOwned("_NET_SYSTEM_TRAY_S0"); }
    void showOnAllDesktops(WindowHandle window) override;

private:
    bool isOwned(const char *selection) const;

    XConnection &m_connection;
};

} // namespace Panorel::X11

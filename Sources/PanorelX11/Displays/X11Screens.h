#pragma once

#include "PanorelPorts/ScreensPort.h"
#include "PanorelX11/Connection/EventConnection.h"
#include "PanorelX11/Displays/RandR.h"

namespace Panorel::X11 {

/// The displays of the X session. A screen is a RandR monitor that a connected display shows; its
/// number is that of the display's output.
class X11Screens final : public ScreensPort {
public:
    /// `events` outlives this.
    explicit X11Screens(EventConnection &events);
    ~X11Screens() override;

    std::vector<Screen> screens() override;
    std::vector<Screen> screensIgnoringPanels() override;
    DisplayIdentity identity(DisplayNumber display) override;
    void setChangeCallback(std::function<void()> changed) override;

private:
    using Callback = std::function<void()>;

    XConnection &m_connection;
    RandR m_randr;
    std::shared_ptr<Callback> m_changed; ///< shared with the listener, which lives longer
};

} // namespace Panorel::X11

#pragma once

#include "PanorelPorts/ScreensPort.h"

#include <memory>

namespace Panorel::Mac {

class ReconfigurationCallback;

/// The screens as AppKit lists them, and what Quartz knows of their displays.
class MacScreens final : public ScreensPort {
public:
    MacScreens();
    ~MacScreens() override;

    std::vector<Screen> screens() override;
    DisplayIdentity identity(DisplayNumber display) override;
    void setChangeCallback(std::function<void()> changed) override;

private:
    std::unique_ptr<ReconfigurationCallback> m_callback; ///< null while nobody listens
};

} // namespace Panorel::Mac

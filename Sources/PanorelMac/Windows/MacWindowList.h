#pragma once

#include "PanorelPorts/WindowListPort.h"

namespace Panorel::Mac {

/// What the window server shows on the current Space, the desktop's own elements left out.
class MacWindowList final : public WindowListPort {
public:
    std::optional<std::vector<WindowListEntry>> onScreenWindows() override;
};

} // namespace Panorel::Mac

#pragma once

#include "PanorelPorts/ScreensPort.h"

namespace Panorel::Mac {

/// As ScreensPort::identity(): what the system knows of a display, read afresh.
DisplayIdentity displayIdentity(DisplayNumber display);

} // namespace Panorel::Mac

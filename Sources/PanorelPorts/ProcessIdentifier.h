#pragma once

#include <cstdint>

namespace Panorel {

/// Names one running application. The process id where an application is a process; where it is
/// not (X11), a number that the port assigns for as long as it runs.
using ProcessIdentifier = std::int32_t;

} // namespace Panorel

#pragma once

#include "PanorelMac/Support/CfRef.h"

#include <cstdint>
#include <optional>

namespace Panorel::Mac {

// What an object holds, absent where it is null, of another type, or a number that the type asked
// for can't hold exactly. A boolean is no number.

std::optional<std::int64_t> toInteger(CFTypeRef object);
std::optional<double> toDouble(CFTypeRef object); ///< absent also where it is not finite
std::optional<bool> toBoolean(CFTypeRef object);

} // namespace Panorel::Mac

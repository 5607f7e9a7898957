#include "PanorelMac/Support/CfValues.h"

#include <cmath>

namespace Panorel::Mac {

std::optional<std::int64_t> toInteger(CFTypeRef object)
{
    const auto number = cfCast<CFNumberRef>(object);
    std::int64_t value = 0;
    if (!number || !CFNumberGetValue(number, kCFNumberSInt64Type, &value))
        return {};
    return value;
}

std::optional<double> toDouble(CFTypeRef object)
{
    const auto number = cfCast<CFNumberRef>(object);
    double value = 0;
    if (!number || !CFNumberGetValue(number, kCFNumberDoubleType, &value) || !std::isfinite(value))
        return {};
    return value;
}

std::optional<bool> toBoolean(CFTypeRef object)
{
    const auto boolean = cfCast<CFBooleanRef>(object);
    return boolean ? std::optional(bool(CFBooleanGetValue(boolean))) : std::nullopt;
}

} // namespace Panorel::Mac

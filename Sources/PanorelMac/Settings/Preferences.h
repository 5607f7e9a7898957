#pragma once

#include "PanorelPorts/SystemPreferencesPort.h"

namespace Panorel::Mac {

/// As SystemPreferencesPort::value(). `domain` is the bundle identifier whose settings they are.
std::optional<PreferenceValue> preferenceValue(const QString &domain, const QString &key);

} // namespace Panorel::Mac

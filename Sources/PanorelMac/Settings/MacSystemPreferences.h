#pragma once

#include "PanorelPorts/SystemPreferencesPort.h"

namespace Panorel::Mac {

class MacSystemPreferences final : public SystemPreferencesPort {
public:
    std::optional<PreferenceValue> value(const QString &domain, const QString &key) override;
    void openDesktopSettings() override;
};

} // namespace Panorel::Mac

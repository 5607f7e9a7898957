#pragma once

#include "PanorelPorts/ApplicationPorts.h"

namespace Panorel::Mac {

class MacActivationPolicy final : public ActivationPolicyPort {
public:
    bool hasDock() const override { return true; }
    void setActivationPolicy(ActivationPolicy policy) override;
};

} // namespace Panorel::Mac

#pragma once

#include "PanorelPorts/ApplicationPorts.h"

namespace Panorel::X11 {

/// There is no Dock: a program with no window open shows as its tray icon alone.
class NoActivationPolicy final : public ActivationPolicyPort {
public:
    bool hasDock() const override { return false; }
    void setActivationPolicy(ActivationPolicy) override {}
};

} // namespace Panorel::X11

#pragma once

#include "PanorelPorts/ApplicationPorts.h"

namespace Panorel::Mac {

/// The program's own bundle among the login items.
class MacLoginItem final : public LoginItemPort {
public:
    void setRegistered(bool registered) override;
};

} // namespace Panorel::Mac

#pragma once

#include "PanorelPorts/WorkspacePort.h"

namespace Panorel {

/// Whether the program starts at login.
class LoginItemPort {
public:
    virtual ~LoginItemPort() = default;

    /// A failure is dropped: the preference keeps what the user asked for.
    virtual void setRegistered(bool registered) = 0;
};

/// How the program itself shows among the others.
class ActivationPolicyPort {
public:
    virtual ~ActivationPolicyPort() = default;

    /// Nothing where there is no Dock.
    virtual void setActivationPolicy(ActivationPolicy policy) = 0;
};

} // namespace Panorel

#pragma once

#include "PanorelPorts/WorkspacePort.h"

#include <QString>

#include <optional>

namespace Panorel {

/// Finds and starts installed applications.
class ApplicationLauncherPort {
public:
    virtual ~ApplicationLauncherPort() = default;

    /// Where an application is installed, for open(); absent where the system doesn't know it or
    /// says that it can't be run.
    virtual std::optional<QString> locate(const QString &bundleID) = 0;

    /// Starts it as the user would from the desktop and does not wait for it. A failure is
    /// dropped.
    virtual void open(const QString &location) = 0;
};

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

    /// Whether there is a Dock in which a program can show its icon.
    virtual bool hasDock() const = 0;

    /// Nothing where there is no Dock.
    virtual void setActivationPolicy(ActivationPolicy policy) = 0;
};

} // namespace Panorel

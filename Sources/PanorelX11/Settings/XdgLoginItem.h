#pragma once

#include "PanorelPorts/ApplicationPorts.h"

#include <QString>

namespace Panorel::X11 {

/// Start at login by a desktop file in the user's autostart folder. It exists while the program is
/// registered; where the administrator starts it for everybody, one that says "Hidden" stands for
/// not being registered.
class XdgLoginItem final : public LoginItemPort {
public:
    /// `program` is the absolute path of what to start.
    explicit XdgLoginItem(const QString &program);

    void setRegistered(bool registered) override;

private:
    QString m_program;
};

} // namespace Panorel::X11

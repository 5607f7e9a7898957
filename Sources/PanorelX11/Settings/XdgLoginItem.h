#pragma once

#include "PanorelPorts/ApplicationPorts.h"

#include <QString>

namespace Panorel::X11 {

/// Start at login by a desktop file in the user's autostart folder. It exists exactly while the
/// program is registered.
class XdgLoginItem final : public LoginItemPort {
public:
    /// `program` is the absolute path of what to start.
    explicit XdgLoginItem(const QString &program);

    void setRegistered(bool registered) override;

private:
    QString m_program;
};

} // namespace Panorel::X11

#pragma once

#include "PanorelPorts/ScreensPort.h"
#include "PanorelX11/Displays/Edid.h"

namespace Panorel::X11 {

/// One display on one connector of the computer.
struct ConnectedOutput {
    DisplayNumber number = 0; ///< the output's id in this X session
    QString connector;        ///< for example "DP-2"
    std::optional<Edid> edid; ///< absent: the display says nothing usable about itself

    /// Whether it is the computer's own panel, by the kind of connector.
    bool isBuiltin() const;

    /// "Built-in display", or what the display calls itself, or the connector.
    QString name() const;

    /// The same for the same display on the same connector, in every session. Without EDID the
    /// connector's name stands in for the serial number.
    DisplayIdentity identity() const;
};

} // namespace Panorel::X11

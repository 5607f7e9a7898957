#pragma once

#include "PanorelX11/Connection/XConnection.h"
#include "PanorelX11/Windows/FrameGeometry.h"
#include "PanorelX11/Windows/SizeHints.h"

#include <QString>

#include <optional>
#include <vector>

namespace Panorel::X11 {

/// What changes about a window from one moment to the next.
struct ClientReading {
    FrameGeometry geometry;
    SizeHints hints;
    bool isMinimized = false;
    bool isFullScreen = false;
    bool isMaximizedVertically = false;
    bool isMaximizedHorizontally = false;
    bool isKeptAboveOrBelow = false; ///< out of the ordinary stacking
    bool isOnCurrentDesktop = true;  ///< also where it is on all of them
    double opacity = 1;              ///< 0 invisible, 1 opaque

    bool isMaximized() const { return isMaximizedVertically && isMaximizedHorizontally; }
    bool isPartlyMaximized() const { return isMaximizedVertically || isMaximizedHorizontally; }
};

/// Reads windows afresh, however many in one round trip.
class ClientReader {
public:
    /// The connection outlives the reader.
    explicit ClientReader(const XConnection &connection) : m_connection(connection) {}

    /// One reading for each window, in their order; absent for a window that has gone.
    std::vector<std::optional<ClientReading>> read(const std::vector<xcb_window_t> &windows) const;
    std::optional<ClientReading> read(xcb_window_t window) const
    {
        return read(std::vector{window})[0];
    }

    /// The same with its title, which is absent where it has none.
    using Titled = std::pair<std::optional<ClientReading>, std::optional<QString>>;
    std::vector<Titled> readWithTitles(const std::vector<xcb_window_t> &windows) const;

private:
    const XConnection &m_connection;
};

} // namespace Panorel::X11

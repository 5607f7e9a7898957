#include "PanorelX11/Windows/ClientReader.h"

#include "PanorelX11/Windows/WindowTitle.h"

#include <algorithm>

namespace Panorel::X11 {

namespace {

constexpr std::uint32_t longestTitle = 256 * 1024;
constexpr std::uint32_t allDesktops = 0xffffffff;
constexpr std::uint32_t stateIconic = 3;

/// The requests for one window, on their way together.
class PendingReading {
public:
    PendingReading(const XConnection &connection, xcb_window_t window)
        : m_connection(connection), m_geometry(xcb_get_geometry(connection.get(), window)),
          m_origin(xcb_translate_coordinates(connection.get(), window, connection.root(), 0, 0)),
          m_decorations(connection, window, connection.atom("_NET_FRAME_EXTENTS")),
          m_shadow(connection, window, connection.atom("_GTK_FRAME_EXTENTS")),
          m_hints(connection, window, connection.atom("WM_NORMAL_HINTS")),
          m_wmState(connection, window, connection.atom("WM_STATE")),
          m_netState(connection, window, connection.atom("_NET_WM_STATE")),
          m_desktop(connection, window, connection.atom("_NET_WM_DESKTOP")),
          m_opacity(connection, window, connection.atom("_NET_WM_WINDOW_OPACITY"))
    {}

    std::optional<ClientReading> collect(std::optional<std::uint32_t> currentDesktop)
    {
        xcb_generic_error_t *error = nullptr;
        const XOwned<xcb_get_geometry_reply_t> geometry(
            xcb_get_geometry_reply(m_connection.get(), m_geometry, &error));
        const XOwned<xcb_generic_error_t> geometryError(std::exchange(error, nullptr));
        const XOwned<xcb_translate_coordinates_reply_t> origin(
            xcb_translate_coordinates_reply(m_connection.get(), m_origin, &error));
        const XOwned<xcb_generic_error_t> originError(error);
        if (!geometry || !origin)
            return std::nullopt;

        ClientReading reading;
        reading.geometry.client = {origin->dst_x, origin->dst_y, geometry->width, geometry->height};
        reading.geometry.decorations =
            extentsFromValues(m_decorations.collect().values32()).value_or(Extents{});
        reading.geometry.shadow =
            shadowFromValues(m_shadow.collect().values32(), reading.geometry.client);
        reading.hints = SizeHints::fromValues(m_hints.collect().values32());
        readStates(reading, currentDesktop);
        if (const auto opacity = m_opacity.collect().value32())
            reading.opacity = *opacity / double(UINT32_MAX);
        return reading;
    }

private:
    void readStates(ClientReading &reading, std::optional<std::uint32_t> currentDesktop)
    {
        const auto states = m_netState.collect().values32();
        const auto has = [&](const char *name) {
            return std::ranges::find(states, m_connection.atom(name)) != states.end();
        };
        reading.isFullScreen = has("_NET_WM_STATE_FULLSCREEN");
        reading.isMaximizedVertically = has("_NET_WM_STATE_MAXIMIZED_VERT");
        reading.isMaximizedHorizontally = has("_NET_WM_STATE_MAXIMIZED_HORZ");
        reading.isKeptAboveOrBelow = has("_NET_WM_STATE_ABOVE") || has("_NET_WM_STATE_BELOW");

        const auto desktop = m_desktop.collect().value32();
        reading.isOnCurrentDesktop =
            !desktop || !currentDesktop || *desktop == allDesktops || *desktop == *currentDesktop;
        // Window managers make windows of other desktops iconic as well, and rolled-up ones
        // either iconic or hidden, never both.
        const bool iconic = m_wmState.collect().value32() == stateIconic;
        const bool hidden = has("_NET_WM_STATE_HIDDEN");
        if (has("_NET_WM_STATE_SHADED"))
            reading.isMinimized = iconic && hidden;
        else
            reading.isMinimized = hidden || (iconic && reading.isOnCurrentDesktop);
    }

    const XConnection &m_connection;
    xcb_get_geometry_cookie_t m_geometry;
    xcb_translate_coordinates_cookie_t m_origin;
    PropertyRequest m_decorations;
    PropertyRequest m_shadow;
    PropertyRequest m_hints;
    PropertyRequest m_wmState;
    PropertyRequest m_netState;
    PropertyRequest m_desktop;
    PropertyRequest m_opacity;
};

class PendingTitle {
public:
    PendingTitle(const XConnection &connection, xcb_window_t window)
        : m_connection(connection),
          m_netName(connection, window, connection.atom("_NET_WM_NAME"), longestTitle),
          m_name(connection, window, connection.atom("WM_NAME"), longestTitle)
    {}

    std::optional<QString> collect()
    {
        const auto netName = m_netName.collect();
        const auto name = m_name.collect();
        if (netName.present() && netName.isText())
            return titleFromUtf8(netName.bytes());
        if (!name.present() || !name.isText())
            return std::nullopt;
        if (name.type() == m_connection.atom("UTF8_STRING"))
            return titleFromUtf8(name.bytes());
        if (name.type() == m_connection.atom("COMPOUND_TEXT"))
            return titleFromCompoundText(name.bytes());
        return titleFromLatin1(name.bytes());
    }

private:
    const XConnection &m_connection;
    PropertyRequest m_netName;
    PropertyRequest m_name;
};

PropertyRequest requestCurrentDesktop(const XConnection &connection)
{
    return {connection, connection.root(), connection.atom("_NET_CURRENT_DESKTOP")};
}

} // namespace

std::vector<std::optional<ClientReading>>
ClientReader::read(const std::vector<xcb_window_t> &windows) const
{
    PropertyRequest currentDesktop = requestCurrentDesktop(m_connection);
    std::vector<PendingReading> pending;
    pending.reserve(windows.size());
    for (const xcb_window_t window : windows)
        pending.emplace_back(m_connection, window);

    const auto desktop = currentDesktop.collect().value32();
    std::vector<std::optional<ClientReading>> readings;
    readings.reserve(windows.size());
    for (PendingReading &reading : pending)
        readings.push_back(reading.collect(desktop));
    return readings;
}

std::vector<ClientReader::Titled>
ClientReader::readWithTitles(const std::vector<xcb_window_t> &windows) const
{
    PropertyRequest currentDesktop = requestCurrentDesktop(m_connection);
    std::vector<std::pair<PendingReading, PendingTitle>> pending;
    pending.reserve(windows.size());
    for (const xcb_window_t window : windows)
        pending.emplace_back(PendingReading(m_connection, window),
                             PendingTitle(m_connection, window));

    // Collected as sent: what comes out of turn has xcb search through all that waits.
    const auto desktop = currentDesktop.collect().value32();
    std::vector<Titled> titled;
    titled.reserve(windows.size());
    for (auto &[reading, title] : pending) {
        auto collected = reading.collect(desktop);
        titled.emplace_back(std::move(collected), title.collect());
    }
    return titled;
}

} // namespace Panorel::X11

#include "PanorelX11/Shell/X11Shell.h"

#include <array>

namespace Panorel::X11 {

bool X11Shell::isOwned(const char *selection) const
{
    xcb_connection_t *connection = m_connection.get();
    const XOwned<xcb_get_selection_owner_reply_t> reply(xcb_get_selection_owner_reply(
        connection, xcb_get_selection_owner(connection, m_connection.atom(selection)), nullptr));
    return reply && reply->owner != XCB_WINDOW_NONE;
}

void X11Shell::showOnAllDesktops(WindowHandle window)
{
    const auto id = xcb_window_t(window);
    const std::uint32_t everyDesktop = 0xFFFFFFFF;
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, id,
                        m_connection.atom("_NET_WM_DESKTOP"), XCB_ATOM_CARDINAL, 32, 1,
                        &everyDesktop);
    // The toolkit adds its own states to these when it maps the window.
    const std::array states{m_connection.atom("_NET_WM_STATE_SKIP_TASKBAR"),
                            m_connection.atom("_NET_WM_STATE_SKIP_PAGER"),
                            m_connection.atom("_NET_WM_STATE_STICKY")};
    xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, id,
                        m_connection.atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 32,
                        std::uint32_t(states.size()), states.data());
    // The toolkit maps on another connection: these must have arrived before.
    isOwned("_NET_WM_CM_S0");
}

} // namespace Panorel::X11

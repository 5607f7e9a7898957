#pragma once

#include "PanorelX11/Windows/EventPump.h"

#include <cstdint>

namespace Panorel::X11 {

/// Tells when the window manager has come to what it was asked.
///
/// A fence is a request to move a window of our own that is never shown. A window manager grants
/// those as they stand, in their turn between everything else that it is asked; so once a fence
/// has been passed, what was asked before it has been done or refused, however busy the window
/// manager is. What the clients make of it may come later. What a window manager had not come to
/// when it was replaced is lost, and the next one passes the fence nevertheless.
class ManagerFence {
public:
    /// Fences are passed in the order of their numbers.
    using Number = std::uint64_t;

    /// Both outlive it.
    ManagerFence(const XConnection &connection, EventPump &pump);
    ~ManagerFence();
    ManagerFence(const ManagerFence &) = delete;
    ManagerFence &operator=(const ManagerFence &) = delete;

    /// The fence that send() puts behind everything asked by then.
    Number add();

    /// Puts up what was added since, with the next flush.
    void send();

    /// As far as the events tell that have been handed out.
    bool isPassed(Number fence) const { return fence <= m_passed; }

private:
    const XConnection &m_connection;
    xcb_window_t m_window = XCB_WINDOW_NONE;
    Number m_sent = 0;
    Number m_passed = 0;
    bool m_isAdded = false;
};

} // namespace Panorel::X11

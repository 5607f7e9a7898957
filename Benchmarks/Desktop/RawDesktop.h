#pragma once

#include "Desktop/Support/DesktopProbe.h"

#include <chrono>
#include <optional>
#include <unordered_map>
#include <vector>

namespace Panorel::Bench {

using Desktop::ServerConnection;
using TimePoint = std::chrono::steady_clock::time_point;

/// The least that a program can do on this display server, with nothing but its protocol: every
/// request sent before the first answer is read, every wait one for an event. It knows its windows
/// beforehand, matches nothing and mends nothing. The floor that the engines are compared with,
/// and the judge of whether the windows are where they should be.
///
/// "Seen in place" means for everybody: the frame, read afresh after the window last changed,
/// is the wanted one to the pixel.
class RawDesktop {
public:
    /// Of the server that DISPLAY names; fatal where there is none.
    RawDesktop();

    /// The windows that everything below is about, in this order. From now on their events come.
    void watch(const std::vector<xcb_window_t> &windows);

    std::vector<Rect> frames() const;
    /// Without the decorations, of the window at this position.
    Size clientSize(std::size_t index) const;

    /// Asks for one frame for each window, by the decorations of now, and waits for none.
    void place(const std::vector<Rect> &frames);

    enum class Begin {
        WithEvents, ///< what was just asked for will tell of itself
        WithAll,    ///< somebody else may long have placed them
    };
    /// When the last window was seen in place; absent where one is not in time.
    std::optional<TimePoint> awaitFrames(const std::vector<Rect> &frames, Begin begin,
                                         std::chrono::milliseconds atMost = longest);

    /// Asks for this stacking without taking the focus, as far as the window manager knows how.
    void stack(const std::vector<xcb_window_t> &bottomToTop);
    std::optional<TimePoint> awaitStacking(const std::vector<xcb_window_t> &bottomToTop,
                                           std::chrono::milliseconds atMost = longest);

    /// All that the program has to know of a desk to learn it, of every watched window.
    void readEverything() const;

    /// Waits until nothing has happened for some time: window managers go on after an answer.
    void rest();

    /// When RandR was last heard of a change; absent: not since it was forgotten.
    std::optional<TimePoint> lastDisplayChange() const { return m_lastDisplayChange; }
    void forgetDisplayChange();

    static constexpr std::chrono::milliseconds longest{8'000};

private:
    xcb_atom_t atom(const char *name) const;
    std::vector<std::uint32_t> rootValues(const char *property) const;
    bool supports(const char *name) const;
    void send(xcb_window_t window, xcb_atom_t type, const std::vector<std::uint32_t> &data);
    std::vector<Rect> framesOf(const std::vector<std::size_t> &indices) const;
    void takeEvents();
    bool waitForEvent(std::chrono::milliseconds atMost);

    ServerConnection m_server;
    xcb_connection_t *m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    std::uint8_t m_firstRandREvent = 0;
    mutable std::unordered_map<std::string, xcb_atom_t> m_atoms;
    std::vector<xcb_window_t> m_windows;
    std::unordered_map<xcb_window_t, std::size_t> m_indices;
    std::vector<bool> m_changed; ///< since it was last read
    bool m_stackingChanged = false;
    std::optional<TimePoint> m_lastDisplayChange;
};

} // namespace Panorel::Bench

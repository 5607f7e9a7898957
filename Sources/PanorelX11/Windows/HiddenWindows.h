#pragma once

#include "PanorelX11/Windows/ClientReader.h"
#include "PanorelX11/Windows/ClientRegistry.h"
#include "PanorelX11/Windows/InputFocus.h"
#include "PanorelX11/Windows/WindowManager.h"

#include <map>
#include <set>

namespace Panorel::X11 {

/// Hides applications by minimising their windows, and knows those windows from the ones that the
/// user minimised.
///
/// hide() and unhide() send at once and wait for no window. What unhide() began goes on with the
/// events: there is no one request that brings a window back under every window manager, so it is
/// tried with one after the other until the window is there. A window of another desktop that the
/// first, harmless one does not bring back waits for the user to go to its desktop.
///
/// A window leaves the set when it has come back, by unhide() or by the user, when it is withdrawn
/// or destroyed, and when it refuses to be minimised.
class HiddenWindows {
public:
    using TimePoint = EventPump::TimePoint;

    /// All of them outlive it.
    HiddenWindows(const XConnection &connection, EventPump &pump, ClientRegistry &registry,
                  const ClientReader &reader, const WindowManager &windowManager,
                  const InputFocus &focus);

    void hide(ProcessIdentifier application);
    void unhide(ProcessIdentifier application);

    /// Whether hide() was called and none of the application's windows is on a screen any more.
    bool isApplicationHidden(ProcessIdentifier application);

    /// Whether the window, if it is minimised, is so by hide() and not by the user.
    bool contains(xcb_window_t window) const { return m_windows.contains(window); }

    /// Whether hide() was called for it and unhide() was not. It may still be on the screen for
    /// the moment that the window manager needs.
    bool isWindowHidden(xcb_window_t window) const;

    /// Whether it is going or coming back. Some window managers animate that, and until it is over
    /// the window's frame is anywhere.
    bool isUnderWay(xcb_window_t window) const;

    /// Waits for those of the windows that are under way, until some tenths of a second after
    /// hide() or unhide() at the most.
    void awaitRest(const std::vector<xcb_window_t> &windows);

    /// From now on the focus may go to a window that is coming back.
    void releaseFocus() { m_focusBefore.reset(); }

    /// Takes up where events or the time allow it. Never waits for a window.
    void processEvents();

    /// When processEvents() is due even if no event comes; absent while nothing is under way.
    std::optional<TimePoint> nextLook() const;

private:
    enum class Phase {
        Leaving,   ///< asked to minimise
        Hidden,    ///< seen minimised since
        Returning, ///< asked to come back
        Parked,    ///< asked to come back, and waiting for its desktop to be shown
    };
    struct Window {
        ProcessIdentifier application = 0;
        Phase phase = Phase::Leaving;
        bool isWantedBack = false; ///< unhide() was called
        bool hasChanged = false;
        TimePoint sent{};         ///< the first request of this phase
        TimePoint believedFrom{}; ///< until then it may show what was asked for earlier
        TimePoint nextLook = TimePoint::max();
        TimePoint arrived{};      ///< seen as asked for, though perhaps still moving
        std::size_t attempts = 0; ///< to bring it back
        std::ptrdiff_t depth = 0; ///< when unhide() was called; 0 in front
    };

    void noteEvent(const xcb_generic_event_t &event);
    void look();
    bool judge(xcb_window_t window, Window &state, const ClientReading &reading, TimePoint now);
    bool bringBack(xcb_window_t window, Window &state, const ClientReading &reading, TimePoint now);
    bool isMoving(xcb_window_t window, Window &state, const ClientReading &reading, TimePoint now);
    void keepFocus();

    const XConnection &m_connection;
    EventPump &m_pump;
    ClientRegistry &m_registry;
    const ClientReader &m_reader;
    const WindowManager &m_windowManager;
    const InputFocus &m_focus;
    std::map<xcb_window_t, Window> m_windows;
    TimePoint m_lastReturn{};

    std::optional<InputFocus::Holder> m_focusBefore; ///< who is to have it while windows return
    std::set<xcb_window_t> m_returned;               ///< who is not to have taken it
    TimePoint m_focusKeptUntil{};
    bool m_hasFocusChanged = false;
};

} // namespace Panorel::X11

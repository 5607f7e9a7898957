#include "PanorelX11/Windows/HiddenWindows.h"

#include <algorithm>
#include <array>

namespace Panorel::X11 {

namespace {

using namespace std::chrono_literals;

/// After this a window that is still on the screen has refused.
constexpr auto leavingPatience = 1s;
/// Within this a window manager has done what it was asked for before.
constexpr auto oldRequestPatience = 150ms;
constexpr auto awaitingPatience = 400ms;
/// An animation is over by then; a frame that still looks like one is rolled up.
constexpr auto animationPatience = 300ms;
constexpr auto animationStep = 15ms;
/// Within this a window manager has handled an activation, also one that it began late.
constexpr auto focusPatience = 100ms;

struct Attempt {
    void (WindowManager::*request)(xcb_window_t) const;
    std::chrono::milliseconds patience; ///< with the window, and with the last one to come back
};

/// From the one without side effects to the one that takes the focus.
constexpr std::array attempts{
    Attempt{&WindowManager::clearHidden, 60ms},
    Attempt{&WindowManager::requestMap, 60ms},
    Attempt{&WindowManager::map, 60ms},
    Attempt{&WindowManager::activate, 150ms},
};

} // namespace

HiddenWindows::HiddenWindows(const XConnection &connection, EventPump &pump,
                             ClientRegistry &registry, const ClientReader &reader,
                             const WindowManager &windowManager, const InputFocus &focus)
    : m_connection(connection), m_pump(pump), m_registry(registry), m_reader(reader),
      m_windowManager(windowManager), m_focus(focus)
{
    pump.addListener([this](const xcb_generic_event_t &event) { noteEvent(event); });
}

void HiddenWindows::hide(ProcessIdentifier application)
{
    const auto windows = m_registry.ordinaryWindows(application);
    look();
    const auto readings = m_reader.read(windows);
    const auto now = std::chrono::steady_clock::now();
    // The front one last, or the focus would go through all of them.
    for (std::size_t i = windows.size(); i-- > 0;) {
        const auto known = m_windows.find(windows[i]);
        const bool isKnown = known != m_windows.end();
        if (isKnown && (known->second.phase == Phase::Leaving || isWindowHidden(windows[i]))) {
            known->second.isWantedBack = false;
            continue;
        }
        if (!readings[i] || (readings[i]->isMinimized && !isKnown))
            continue;
        m_windowManager.minimize(windows[i]);
        if (!readings[i]->isOnCurrentDesktop)
            m_windowManager.setHidden(windows[i]);
        Window state{.application = application, .sent = now, .believedFrom = now};
        if (isKnown)
            state.believedFrom += oldRequestPatience;
        state.nextLook = isKnown ? state.believedFrom : now + leavingPatience;
        m_windows.insert_or_assign(windows[i], state);
    }
    m_connection.flush();
}

void HiddenWindows::unhide(ProcessIdentifier application)
{
    const auto clients = m_registry.frontToBack().value_or(std::vector<ClientRegistry::Client>{});
    look();
    if (!m_focusBefore) {
        m_focusBefore = m_focus.holder();
        m_returned.clear();
        // Where nobody had it, the choice is the window manager's.
        if (m_focusBefore && m_focusBefore->active == XCB_WINDOW_NONE)
            m_focusBefore.reset();
    }
    for (auto &[window, state] : m_windows) {
        if (state.application != application || state.isWantedBack)
            continue;
        m_returned.insert(window);
        state.isWantedBack = true;
        state.hasChanged = true;
        state.sent = std::chrono::steady_clock::now();
        state.depth =
            std::ranges::find(clients, window, &ClientRegistry::Client::window) - clients.begin();
    }
    look();
}

bool HiddenWindows::isApplicationHidden(ProcessIdentifier application)
{
    look();
    const auto isAffected = [&](const auto &entry) {
        return entry.second.application == application && isWindowHidden(entry.first);
    };
    if (std::ranges::none_of(m_windows, isAffected))
        return false;
    return std::ranges::all_of(
        m_reader.read(m_registry.ordinaryWindows(application)),
        [](const auto &reading) { return !reading || reading->isMinimized; });
}

bool HiddenWindows::isWindowHidden(xcb_window_t window) const
{
    const auto known = m_windows.find(window);
    return known != m_windows.end() && !known->second.isWantedBack;
}

bool HiddenWindows::isUnderWay(xcb_window_t window) const
{
    const auto known = m_windows.find(window);
    if (known == m_windows.end() || known->second.phase == Phase::Parked)
        return false;
    return known->second.isWantedBack || known->second.phase == Phase::Leaving;
}

void HiddenWindows::awaitRest(const std::vector<xcb_window_t> &windows)
{
    processEvents();
    const auto isAwaited = [&](xcb_window_t window) {
        return isUnderWay(window)
               && std::chrono::steady_clock::now() < m_windows.at(window).sent + awaitingPatience;
    };
    while (std::ranges::any_of(windows, isAwaited)) {
        const auto end = std::chrono::steady_clock::now() + awaitingPatience;
        m_pump.waitUntil(std::min(end, nextLook().value_or(end)));
        look();
    }
}

void HiddenWindows::processEvents()
{
    m_pump.drain();
    look();
}

std::optional<HiddenWindows::TimePoint> HiddenWindows::nextLook() const
{
    TimePoint earliest = m_hasFocusChanged ? TimePoint{} : TimePoint::max();
    for (const auto &[window, state] : m_windows)
        earliest = std::min(earliest, state.hasChanged ? TimePoint{} : state.nextLook);
    return earliest == TimePoint::max() ? std::nullopt : std::optional(earliest);
}

void HiddenWindows::noteEvent(const xcb_generic_event_t &event)
{
    if (eventCode(event) == XCB_DESTROY_NOTIFY) {
        m_windows.erase(reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window);
        return;
    }
    if (m_windows.empty() && !m_focusBefore)
        return;
    if (eventCode(event) != XCB_PROPERTY_NOTIFY)
        return;
    const auto &notify = reinterpret_cast<const xcb_property_notify_event_t &>(event);
    if (notify.atom == m_connection.atom("WM_STATE")
        || notify.atom == m_connection.atom("_NET_WM_STATE")
        || notify.atom == m_connection.atom("_NET_WM_DESKTOP")) {
        const auto known = m_windows.find(notify.window);
        if (known != m_windows.end())
            known->second.hasChanged = true;
    } else if (notify.atom == m_connection.atom("_NET_CURRENT_DESKTOP")) {
        for (auto &[window, state] : m_windows)
            state.hasChanged = true;
    } else if (notify.atom == m_connection.atom("_NET_ACTIVE_WINDOW")) {
        m_hasFocusChanged = m_focusBefore.has_value();
    }
}

void HiddenWindows::look()
{
    const auto now = std::chrono::steady_clock::now();
    std::vector<xcb_window_t> windows;
    for (const auto &[window, state] : m_windows) {
        if (state.hasChanged || state.nextLook <= now)
            windows.push_back(window);
    }
    const auto readings =
        windows.empty() ? std::vector<std::optional<ClientReading>>{} : m_reader.read(windows);
    for (std::size_t i = 0; i < windows.size(); ++i) {
        Window &state = m_windows.at(windows[i]);
        state.hasChanged = false;
        if (!readings[i] || !judge(windows[i], state, *readings[i], now))
            m_windows.erase(windows[i]);
    }
    keepFocus();
    m_connection.flush();
}

/// Whether the window is to stay in the set.
bool HiddenWindows::judge(xcb_window_t window, Window &state, const ClientReading &reading,
                          TimePoint now)
{
    if (state.phase == Phase::Leaving) {
        state.nextLook = state.believedFrom;
        if (now < state.believedFrom)
            return true;
        state.nextLook += leavingPatience;
        if (!reading.isMinimized) // if it has been, the user brings it back
            return state.arrived == TimePoint{} && now < state.nextLook;
        if (!state.isWantedBack && isMoving(window, state, reading, now))
            return true;
        state.phase = Phase::Hidden;
        state.nextLook = TimePoint::max();
    }
    if (state.phase == Phase::Hidden) {
        if (!state.isWantedBack)
            return reading.isMinimized;
        state.phase = Phase::Returning;
        state.sent = state.nextLook = now;
        state.arrived = {};
    }
    return bringBack(window, state, reading, now);
}

bool HiddenWindows::bringBack(xcb_window_t window, Window &state, const ClientReading &reading,
                              TimePoint now)
{
    if (!reading.isMinimized) {
        m_lastReturn = now;
        state.phase = Phase::Returning; // one that was parked as well
        return isMoving(window, state, reading, now);
    }
    if (state.attempts > 0) {
        state.nextLook =
            std::max(state.nextLook, m_lastReturn + attempts[state.attempts - 1].patience);
        if (now < state.nextLook && state.phase != Phase::Parked)
            return true;
        if (state.attempts == attempts.size())
            return false;
        if (!reading.isOnCurrentDesktop) {
            state.phase = Phase::Parked;
            state.nextLook = TimePoint::max();
            return true;
        }
    }
    const Attempt &attempt = attempts[state.attempts];
    (m_windowManager.*attempt.request)(window);
    state.phase = Phase::Returning;
    state.attempts += 1;
    state.nextLook = now + attempt.patience;
    return true;
}

/// Animations shrink the frame below the client in it.
bool HiddenWindows::isMoving(xcb_window_t window, Window &state, const ClientReading &reading,
                             TimePoint now)
{
    if (state.arrived == TimePoint{})
        state.arrived = now;
    if (now >= state.arrived + animationPatience)
        return false;
    const XOwned<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
        m_connection.get(), xcb_query_tree(m_connection.get(), window), nullptr));
    if (!tree || tree->parent == m_connection.root())
        return false;
    const XOwned<xcb_get_geometry_reply_t> frame(xcb_get_geometry_reply(
        m_connection.get(), xcb_get_geometry(m_connection.get(), tree->parent), nullptr));
    if (!frame || frame->height >= reading.geometry.client.height)
        return false;
    state.nextLook = now + animationStep;
    return true;
}

void HiddenWindows::keepFocus()
{
    m_hasFocusChanged = false;
    if (!m_focusBefore)
        return;
    const auto now = std::chrono::steady_clock::now();
    const bool isReturning =
        std::ranges::any_of(m_windows, [&](const auto &entry) { return isUnderWay(entry.first); });
    if (isReturning)
        m_focusKeptUntil = now + focusPatience;
    if (now > m_focusKeptUntil)
        return m_focusBefore.reset();
    const auto active = m_focus.activeWindow();
    if (active != m_focusBefore->active && m_returned.contains(active))
        m_focus.giveBack(*m_focusBefore);
}

} // namespace Panorel::X11

#include "PanorelX11/Windows/WindowStacker.h"

#include <algorithm>
#include <utility>

namespace Panorel::X11 {

namespace {

using namespace std::chrono_literals;

/// With a window manager that has come to all of it and changes nothing any more.
constexpr auto stackingPatience = 100ms;
constexpr auto longestPatience = 6s;
/// How often the order is read while the window manager is at work on it.
constexpr auto lookAtUnhandled = 50ms;
/// Within this a window manager has handled an activation, whether it announced it or not.
constexpr auto activationPatience = 80ms;
constexpr auto focusPatience = 150ms;

bool isShownFullScreen(const ClientReading &reading)
{
    return reading.isFullScreen && !reading.isMinimized && reading.isOnCurrentDesktop;
}

} // namespace

WindowStacker::WindowStacker(EventPump &pump, ClientRegistry &registry, RecentReadings &readings,
                             const WindowManager &windowManager, ManagerFence &fence,
                             const InputFocus &focus)
    : m_pump(pump), m_registry(registry), m_readings(readings), m_windowManager(windowManager),
      m_fence(fence), m_focus(focus)
{}

void WindowStacker::raise(const std::vector<xcb_window_t> &backToFront)
{
    m_pump.drain();
    const auto windows = raisable(backToFront);
    if (windows.empty() || isStacked(ordinaryFrontToBack(), windows))
        return;
    if (!m_windowManager.supports("_NET_RESTACK_WINDOW"))
        return raiseByActivating(windows);
    for (const xcb_window_t window : withFullScreenWindows(windows))
        m_windowManager.stackOnTop(window);
    awaitStacking(windows);
}

std::vector<xcb_window_t> WindowStacker::raisable(const std::vector<xcb_window_t> &backToFront)
{
    const auto described = m_readings.describe(backToFront);
    std::vector<xcb_window_t> windows;
    for (std::size_t i = 0; i < backToFront.size(); ++i) {
        if (described[i] && !described[i]->reading.isMinimized
            && described[i]->reading.isOnCurrentDesktop)
            windows.push_back(backToFront[i]);
    }
    return windows;
}

std::vector<xcb_window_t>
WindowStacker::withFullScreenWindows(const std::vector<xcb_window_t> &backToFront)
{
    const auto clients = m_registry.frontToBack();
    if (!clients)
        return backToFront;
    std::vector<xcb_window_t> above; // the clients in front of the one that is looked at
    for (const auto &client : *clients)
        above.push_back(client.window);
    const auto described = m_readings.describe(above);
    std::vector<xcb_window_t> result = backToFront;
    for (std::size_t i = clients->size(); i-- > 0;) {
        const xcb_window_t window = above.back();
        above.pop_back();
        if (!described[i] || !isShownFullScreen(described[i]->reading)
            || std::ranges::find(result, window) != result.end())
            continue;
        // Only below those that were all in front of it.
        auto place = result.end();
        while (place != result.begin()
               && std::ranges::find(above, *std::prev(place)) != above.end())
            --place;
        result.insert(place, window);
    }
    return result;
}

std::vector<xcb_window_t> WindowStacker::ordinaryFrontToBack()
{
    std::vector<xcb_window_t> ordinary;
    for (const auto &client :
         m_registry.frontToBack().value_or(std::vector<ClientRegistry::Client>{})) {
        if (client.facts.isOrdinary())
            ordinary.push_back(client.window);
    }
    return ordinary;
}

bool WindowStacker::isStacked(const std::vector<xcb_window_t> &ordinary,
                              const std::vector<xcb_window_t> &backToFront)
{
    auto next = backToFront.rbegin();
    std::vector<xcb_window_t> others;
    for (auto window = ordinary.begin(); window != ordinary.end() && next != backToFront.rend();
         ++window) {
        if (*window == *next)
            ++next;
        else if (std::ranges::find(backToFront, *window) != backToFront.end())
            return false;
        else
            others.push_back(*window);
    }
    if (next != backToFront.rend())
        return false;
    // Of what is among the raised ones only windows count that these could be above: those that
    // are kept above stay there.
    return std::ranges::none_of(m_readings.describe(others), [](const auto &described) {
        return described && described->reading.isOnCurrentDesktop && !described->reading.isMinimized
               && !described->reading.isKeptAboveOrBelow && !described->reading.isFullScreen;
    });
}

void WindowStacker::awaitStacking(const std::vector<xcb_window_t> &backToFront)
{
    const ManagerFence::Number fence = m_fence.add();
    m_fence.send();
    const auto end = std::chrono::steady_clock::now() + longestPatience;
    auto patientUntil = end;
    bool isHandled = false;
    std::vector<xcb_window_t> before;
    while (true) {
        const bool wasHandled = std::exchange(
            isHandled, m_pump.waitFor([&] { return m_fence.isPassed(fence); }, lookAtUnhandled));
        auto ordinary = ordinaryFrontToBack();
        if (ordinary.empty() || isStacked(ordinary, backToFront))
            return;
        const auto now = std::chrono::steady_clock::now();
        if (isHandled && (!wasHandled || ordinary != before))
            patientUntil = std::min(now + stackingPatience, end);
        if (now >= patientUntil)
            return;
        before = std::move(ordinary);
        if (isHandled)
            m_pump.waitUntil(patientUntil);
    }
}

void WindowStacker::raiseByActivating(const std::vector<xcb_window_t> &backToFront)
{
    const auto before = m_focus.holder();
    for (const xcb_window_t window : backToFront)
        m_windowManager.activate(window);
    // An activation that is handled after the focus was given back would take it once more.
    awaitStacking(backToFront);
    m_pump.waitFor([&] { return m_focus.activeWindow() == backToFront.back(); },
                   activationPatience);
    if (!before)
        return;
    // Set by hand: to activate the window again would raise it. Twice, because the window manager
    // may say who is active before it gives him the focus.
    for (int round = 0; round < 2; ++round) {
        m_focus.giveBack(*before);
        if (m_pump.waitFor([&] { return m_focus.activeWindow() == before->active; }, focusPatience))
            break;
    }
}

} // namespace Panorel::X11

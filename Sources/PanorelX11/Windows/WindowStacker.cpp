#include "PanorelX11/Windows/WindowStacker.h"

#include <algorithm>

namespace Panorel::X11 {

namespace {

using namespace std::chrono_literals;

constexpr auto stackingPatience = 100ms;
/// Within this a window manager has handled an activation, whether it announced it or not.
constexpr auto activationPatience = 80ms;
constexpr auto focusPatience = 150ms;

} // namespace

WindowStacker::WindowStacker(EventPump &pump, ClientRegistry &registry, const ClientReader &reader,
                             const WindowManager &windowManager, const InputFocus &focus)
    : m_pump(pump), m_registry(registry), m_reader(reader), m_windowManager(windowManager),
      m_focus(focus)
{}

void WindowStacker::raise(const std::vector<xcb_window_t> &backToFront)
{
    const auto windows = raisable(backToFront);
    if (windows.empty() || isStacked(windows))
        return;
    if (!m_windowManager.supports("_NET_RESTACK_WINDOW"))
        return raiseByActivating(windows);
    for (const xcb_window_t window : windows)
        m_windowManager.stackOnTop(window);
    m_pump.waitFor([&] { return isStacked(windows); }, stackingPatience);
}

std::vector<xcb_window_t>
WindowStacker::raisable(const std::vector<xcb_window_t> &backToFront) const
{
    const auto readings = m_reader.read(backToFront);
    std::vector<xcb_window_t> windows;
    for (std::size_t i = 0; i < backToFront.size(); ++i) {
        if (readings[i] && !readings[i]->isMinimized && readings[i]->isOnCurrentDesktop)
            windows.push_back(backToFront[i]);
    }
    return windows;
}

bool WindowStacker::isStacked(const std::vector<xcb_window_t> &backToFront)
{
    const auto clients = m_registry.frontToBack();
    if (!clients)
        return false;
    std::vector<xcb_window_t> ordinary;
    for (const auto &client : *clients) {
        if (client.facts.isOrdinary())
            ordinary.push_back(client.window);
    }
    // Only windows that could be above the raised ones: those that are kept above stay there.
    const auto readings = m_reader.read(ordinary);
    auto next = backToFront.rbegin();
    for (std::size_t i = 0; i < ordinary.size() && next != backToFront.rend(); ++i) {
        if (ordinary[i] == *next)
            ++next;
        else if (std::ranges::find(backToFront, ordinary[i]) != backToFront.end())
            return false;
        else if (readings[i] && readings[i]->isOnCurrentDesktop && !readings[i]->isMinimized
                 && !readings[i]->isKeptAboveOrBelow && !readings[i]->isFullScreen)
            return false;
    }
    return next == backToFront.rend();
}

void WindowStacker::raiseByActivating(const std::vector<xcb_window_t> &backToFront)
{
    const auto before = m_focus.holder();
    for (const xcb_window_t window : backToFront)
        m_windowManager.activate(window);
    m_pump.waitFor([&] { return m_focus.activeWindow() == backToFront.back(); },
                   activationPatience);
    if (!before)
        return;
    // Set by hand: to activate the window again would raise it. Twice, because an activation that
    // is handled late takes the focus once more.
    for (int round = 0; round < 2; ++round) {
        m_focus.giveBack(*before);
        if (m_pump.waitFor([&] { return m_focus.activeWindow() == before->active; }, focusPatience))
            break;
    }
    m_pump.waitFor([&] { return isStacked(backToFront); }, stackingPatience);
}

} // namespace Panorel::X11

#include "PanorelX11/Windows/LaunchWatch.h"

#include "PanorelX11/Windows/ApplicationList.h"

#include <set>
#include <utility>

namespace Panorel::X11 {

namespace {

/// Longer than a window manager needs for all windows that it finds when it starts.
constexpr auto excuse = std::chrono::seconds(10);

} // namespace

LaunchWatch::LaunchWatch(const XConnection &connection, EventPump &pump, ClientRegistry &registry)
    : m_connection(connection), m_registry(registry)
{
    pump.addListener([this](const xcb_generic_event_t &event) { noteEvent(event); });
}

void LaunchWatch::setCallback(Launched launched)
{
    m_windows.clear();
    m_excused.clear();
    m_launched = std::move(launched);
    if (m_launched)
        takeLaunches();
    m_isDue = false;
}

void LaunchWatch::announce()
{
    if (!std::exchange(m_isDue, false))
        return;
    for (const RunningApplication &application : takeLaunches()) {
        // A copy: whoever is called may set another.
        if (const Launched launched = m_launched)
            launched(application);
    }
}

void LaunchWatch::noteEvent(const xcb_generic_event_t &event)
{
    if (!m_launched)
        return;
    if (eventCode(event) == XCB_DESTROY_NOTIFY) {
        // At once: an application may quit and start again before the next look, and the server
        // may give the number to its next window.
        const auto window = reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window;
        m_windows.erase(window);
        m_excused.erase(window);
    } else if (m_registry.isAffectedBy(event)) {
        m_isDue = true;
    } else if (eventCode(event) == XCB_PROPERTY_NOTIFY) {
        const auto &notify = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        if (notify.window == m_connection.root()
            && notify.atom == m_connection.atom("_NET_SUPPORTING_WM_CHECK"))
            m_isDue = m_hasManagerChanged = true;
    }
}

void LaunchWatch::excuseWhatIsThere()
{
    // Managed windows are no children of the root, but have been seen or are listed by now.
    for (const auto &[window, application] : m_windows)
        m_excused.insert(window);
    const XOwned<xcb_query_tree_reply_t> tree(xcb_query_tree_reply(
        m_connection.get(), xcb_query_tree(m_connection.get(), m_connection.root()), nullptr));
    if (tree) {
        const xcb_window_t *children = xcb_query_tree_children(tree.get());
        m_excused.insert(children, children + xcb_query_tree_children_length(tree.get()));
    }
    m_excusedUntil = std::chrono::steady_clock::now() + excuse;
}

/// Those since the last time.
std::vector<RunningApplication> LaunchWatch::takeLaunches()
{
    const bool hasManagerChanged = std::exchange(m_hasManagerChanged, false);
    if (hasManagerChanged)
        excuseWhatIsThere();
    const auto clients = m_registry.frontToBack();
    if (!clients) {
        m_hasManagerChanged = true;
        return {};
    }
    if (std::chrono::steady_clock::now() > m_excusedUntil)
        m_excused.clear();

    std::set<ProcessIdentifier> noLaunches{ApplicationNumbers::own};
    for (auto &[window, application] : m_windows) {
        if (application)
            noLaunches.insert(*std::exchange(application, std::nullopt));
    }
    for (const auto &[window, facts] : *clients) {
        m_windows[window] = facts.isOnTaskBar ? std::optional(facts.application) : std::nullopt;
        if (hasManagerChanged)
            m_excused.insert(window);
        if (facts.isOnTaskBar && m_excused.contains(window))
            noLaunches.insert(facts.application);
    }
    auto launches = applicationsOf(*clients);
    std::erase_if(launches, [&](const RunningApplication &application) {
        return application.policy != ActivationPolicy::Regular
               || noLaunches.contains(application.pid);
    });
    return launches;
}

} // namespace Panorel::X11

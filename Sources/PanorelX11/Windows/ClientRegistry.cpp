#include "PanorelX11/Windows/ClientRegistry.h"

#include <QSysInfo>

#include <algorithm>
#include <array>
#include <ranges>
#include <span>
#include <unordered_set>

#include <unistd.h>

namespace Panorel::X11 {

namespace {

using namespace std::chrono_literals;

constexpr std::uint32_t maximumClientListBytes = 64 * 1024;
/// Longer than a pass over a crowded desk that waits for nothing.
constexpr auto longestPass = 100ms;

struct TypeLayer {
    const char *type;
    std::int64_t layer;
};

/// Anything but 0 will do for what is not a window of an application's work.
constexpr std::array typeLayers{
    TypeLayer{"_NET_WM_WINDOW_TYPE_NORMAL", 0},
    TypeLayer{"_NET_WM_WINDOW_TYPE_DIALOG", 0},
    TypeLayer{"_NET_WM_WINDOW_TYPE_UTILITY", 0},
    TypeLayer{"_NET_WM_WINDOW_TYPE_DESKTOP", -1},
    TypeLayer{"_NET_WM_WINDOW_TYPE_DOCK", 1},
    TypeLayer{"_NET_WM_WINDOW_TYPE_TOOLBAR", 2},
    TypeLayer{"_NET_WM_WINDOW_TYPE_MENU", 2},
    TypeLayer{"_NET_WM_WINDOW_TYPE_SPLASH", 2},
    TypeLayer{"_NET_WM_WINDOW_TYPE_DROPDOWN_MENU", 2},
    TypeLayer{"_NET_WM_WINDOW_TYPE_POPUP_MENU", 2},
    TypeLayer{"_NET_WM_WINDOW_TYPE_TOOLTIP", 2},
    TypeLayer{"_NET_WM_WINDOW_TYPE_NOTIFICATION", 2},
    TypeLayer{"_NET_WM_WINDOW_TYPE_COMBO", 2},
    TypeLayer{"_NET_WM_WINDOW_TYPE_DND", 2},
};
constexpr std::int64_t unmanagedLayer = 2;

/// The properties that ClientFacts are made of.
constexpr std::array factProperties{"_NET_WM_WINDOW_TYPE", "WM_CLASS",          "_NET_WM_PID",
                                    "_GTK_APPLICATION_ID", "WM_CLIENT_MACHINE", "_NET_WM_STATE"};

/// The root's properties that the list is read from.
constexpr std::array listProperties{"_NET_CLIENT_LIST_STACKING", "_NET_CLIENT_LIST"};

bool isOneOf(std::span<const char *const> names, const XConnection &connection, xcb_atom_t atom)
{
    return std::ranges::any_of(names,
                               [&](const char *name) { return connection.atom(name) == atom; });
}

/// The requests for one window's facts, on their way together.
class PendingFacts {
public:
    PendingFacts(const XConnection &connection, xcb_window_t window)
        : m_connection(connection), m_window(window),
          m_attributes(xcb_get_window_attributes(connection.get(), window)),
          m_type(connection, window, connection.atom("_NET_WM_WINDOW_TYPE")),
          m_class(connection, window, connection.atom("WM_CLASS")),
          m_pid(connection, window, connection.atom("_NET_WM_PID")),
          m_gtkApplication(connection, window, connection.atom("_GTK_APPLICATION_ID")),
          m_machine(connection, window, connection.atom("WM_CLIENT_MACHINE")),
          m_state(connection, window, connection.atom("_NET_WM_STATE"))
    {}

    xcb_window_t window() const { return m_window; }

    /// Absent where the window has gone.
    std::optional<ClientFacts> collect(ApplicationIdentifier &identifier,
                                       ApplicationNumbers &numbers)
    {
        xcb_generic_error_t *error = nullptr;
        const XOwned<xcb_get_window_attributes_reply_t> attributes(
            xcb_get_window_attributes_reply(m_connection.get(), m_attributes, &error));
        const XOwned<xcb_generic_error_t> dropped(error);
        if (!attributes)
            return std::nullopt;

        ClientFacts facts;
        facts.layer =
            attributes->override_redirect ? unmanagedLayer : layerOf(m_type.collect().values32());
        const auto states = m_state.collect().values32();
        const bool skipped =
            std::ranges::find(states, m_connection.atom("_NET_WM_STATE_SKIP_TASKBAR"))
            != states.end();
        facts.isOnTaskBar = facts.isOrdinary() && !skipped;

        const ApplicationFacts owner = ownerFacts();
        facts.identity = identifier.identify(owner);
        facts.application =
            owner.pid == getpid() ? ApplicationNumbers::own : numbers.numberOf(facts.identity.id);
        return facts;
    }

private:
    /// By the first type that is known here; a window without one is an ordinary one.
    std::int64_t layerOf(const std::vector<std::uint32_t> &types) const
    {
        for (const xcb_atom_t type : types) {
            const auto known = std::ranges::find_if(typeLayers, [&](const TypeLayer &entry) {
                return m_connection.atom(entry.type) == type;
            });
            if (known != typeLayers.end())
                return known->layer;
        }
        return 0;
    }

    ApplicationFacts ownerFacts()
    {
        ApplicationFacts owner;
        const QList<QByteArray> names = m_class.collect().bytes().split('\0');
        owner.wmClassInstance = names.value(0);
        owner.wmClassClass = names.value(1);
        owner.gtkApplicationID = m_gtkApplication.collect().bytes();
        const auto pid = m_pid.collect().value32();
        const QByteArray machine = m_machine.collect().bytes();
        // A process id of another machine would name a stranger here.
        const bool isLocal = machine.isEmpty() || machine == QSysInfo::machineHostName().toUtf8();
        if (pid && *pid > 0 && isLocal)
            owner.pid = *pid;
        return owner;
    }

    const XConnection &m_connection;
    xcb_window_t m_window;
    xcb_get_window_attributes_cookie_t m_attributes;
    PropertyRequest m_type;
    PropertyRequest m_class;
    PropertyRequest m_pid;
    PropertyRequest m_gtkApplication;
    PropertyRequest m_machine;
    PropertyRequest m_state;
};

} // namespace

ClientRegistry::ClientRegistry(const XConnection &connection, EventPump &pump)
    : m_connection(connection), m_pump(pump)
{
    pump.addListener([this](const xcb_generic_event_t &event) { forget(event); });
}

std::optional<std::vector<ClientRegistry::Client>> ClientRegistry::frontToBack()
{
    m_ofThisPass.reset();
    m_readAt = std::chrono::steady_clock::now();
    const auto windows = readList();
    // After the list, so that what the events take back is not believed for this one.
    m_pump.drain();
    if (!windows) {
        m_facts.clear();
        return std::nullopt;
    }
    const std::unordered_set<xcb_window_t> listed(windows->begin(), windows->end());
    std::erase_if(m_facts, [&](const auto &known) { return !listed.contains(known.first); });
    std::vector<xcb_window_t> unknown;
    std::ranges::copy_if(*windows, std::back_inserter(unknown),
                         [&](xcb_window_t window) { return !m_facts.contains(window); });
    readFacts(unknown);

    std::vector<Client> clients;
    for (const xcb_window_t window : *windows) {
        const auto facts = m_facts.find(window);
        if (facts != m_facts.end())
            clients.push_back({window, facts->second});
    }
    m_ofThisPass = clients;
    return clients;
}

std::vector<xcb_window_t> ClientRegistry::ordinaryWindows(ProcessIdentifier application)
{
    m_pump.drain();
    if (!m_ofThisPass || std::chrono::steady_clock::now() - m_readAt > longestPass)
        frontToBack();
    std::vector<xcb_window_t> windows;
    if (!m_ofThisPass)
        return windows;
    for (const Client &client : *m_ofThisPass) {
        if (client.facts.application == application && client.facts.isOrdinary())
            windows.push_back(client.window);
    }
    return windows;
}

bool ClientRegistry::isAffectedBy(const xcb_generic_event_t &event) const
{
    if (eventCode(event) != XCB_PROPERTY_NOTIFY)
        return false;
    const auto &notify = reinterpret_cast<const xcb_property_notify_event_t &>(event);
    return notify.window == m_connection.root()
               ? isOneOf(listProperties, m_connection, notify.atom)
               : isOneOf(factProperties, m_connection, notify.atom);
}

void ClientRegistry::forget(const xcb_generic_event_t &event)
{
    if (isAffectedBy(event) || eventCode(event) == XCB_DESTROY_NOTIFY)
        m_ofThisPass.reset();
    if (eventCode(event) == XCB_DESTROY_NOTIFY) {
        m_facts.erase(reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window);
    } else if (eventCode(event) == XCB_PROPERTY_NOTIFY) {
        const auto &notify = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        if (isOneOf(factProperties, m_connection, notify.atom))
            m_facts.erase(notify.window);
    }
}

std::optional<std::vector<xcb_window_t>> ClientRegistry::readList() const
{
    PropertyRequest stacking(m_connection, m_connection.root(),
                             m_connection.atom("_NET_CLIENT_LIST_STACKING"),
                             maximumClientListBytes);
    PropertyRequest mapping(m_connection, m_connection.root(),
                            m_connection.atom("_NET_CLIENT_LIST"), maximumClientListBytes);
    const auto byStacking = stacking.collect();
    const auto byMapping = mapping.collect();
    if (!byStacking.present() && !byMapping.present())
        return std::nullopt;
    auto windows = byStacking.present() ? byStacking.values32() : byMapping.values32();
    std::ranges::reverse(windows);
    // Anybody can write the property; a window listed twice would be placed twice.
    std::unordered_set<xcb_window_t> seen;
    std::erase_if(windows, [&](xcb_window_t window) { return !seen.insert(window).second; });
    return windows;
}

void ClientRegistry::readFacts(const std::vector<xcb_window_t> &windows)
{
    std::vector<PendingFacts> pending;
    pending.reserve(windows.size());
    for (const xcb_window_t window : windows) {
        const std::uint32_t events =
            XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(m_connection.get(), window, XCB_CW_EVENT_MASK, &events);
        pending.emplace_back(m_connection, window);
    }
    for (PendingFacts &facts : pending) {
        if (auto collected = facts.collect(m_identifier, m_numbers))
            m_facts.insert_or_assign(facts.window(), std::move(*collected));
    }
}

} // namespace Panorel::X11

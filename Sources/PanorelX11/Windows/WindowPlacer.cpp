#include "PanorelX11/Windows/WindowPlacer.h"

#include <algorithm>
#include <array>

namespace Panorel::X11 {

namespace {

using namespace std::chrono_literals;

constexpr auto patience = 2s;
/// For some time after a change of the displays window managers still clamp to the old ones.
constexpr auto patienceAfterDisplayChange = 6s;
constexpr auto recentDisplayChange = 10s;

/// How much longer a window manager is given that has not come to it or is still at it, and a
/// client that has to do its part.
constexpr auto patienceWithSlowOnes = 4s;
constexpr auto silenceAfterAnswers = 500ms;

/// How much longer than its placement a client may take to notice that it was un-maximised.
constexpr auto noticingTime = 5s;

/// How often the windows that change are read while the window manager is at work on them: each
/// reading holds it up.
constexpr auto lookAtUnhandled = 50ms;

/// The properties that a window's visible frame and state are read from.
constexpr std::array watchedProperties{"WM_NORMAL_HINTS", "_NET_WM_STATE", "_NET_FRAME_EXTENTS",
                                       "_GTK_FRAME_EXTENTS"};

/// The window that an event tells a change of; none for events of other kinds.
xcb_window_t changedWindow(const XConnection &connection, const xcb_generic_event_t &event)
{
    switch (eventCode(event)) {
    case XCB_CONFIGURE_NOTIFY:
        return reinterpret_cast<const xcb_configure_notify_event_t &>(event).window;
    case XCB_REPARENT_NOTIFY:
        return reinterpret_cast<const xcb_reparent_notify_event_t &>(event).window;
    case XCB_UNMAP_NOTIFY:
        return reinterpret_cast<const xcb_unmap_notify_event_t &>(event).window;
    case XCB_DESTROY_NOTIFY:
        return reinterpret_cast<const xcb_destroy_notify_event_t &>(event).window;
    case XCB_PROPERTY_NOTIFY: {
        const auto &notify = reinterpret_cast<const xcb_property_notify_event_t &>(event);
        const bool isWatched = std::ranges::any_of(watchedProperties, [&](const char *property) {
            return connection.atom(property) == notify.atom;
        });
        return isWatched ? notify.window : xcb_window_t(XCB_WINDOW_NONE);
    }
    default:
        return XCB_WINDOW_NONE;
    }
}

bool contains(const PixelRect &rect, const Point &point)
{
    return point.x >= rect.x && point.x < rect.x + rect.width && point.y >= rect.y
           && point.y < rect.y + rect.height;
}

} // namespace

WindowPlacer::WindowPlacer(const XConnection &connection, EventPump &pump,
                           const ClientReader &reader, RecentReadings &readings,
                           const WindowManager &windowManager, ManagerFence &fence,
                           Monitors &monitors)
    : m_connection(connection), m_pump(pump), m_reader(reader), m_readings(readings),
      m_windowManager(windowManager), m_fence(fence), m_monitors(monitors)
{
    pump.addListener([this](const xcb_generic_event_t &event) { noteEvent(event); });
}

void WindowPlacer::place(xcb_window_t window, const PlacementTarget &target)
{
    awaitDisplayChange();
    begin(window, target, std::chrono::steady_clock::now() + patience + noticingTime);
}

/// A window manager that still has a change of the displays before it would move windows that were
/// found in place, or bring them from where they no longer are.
void WindowPlacer::awaitDisplayChange()
{
    if (m_handledChanges == m_monitors.changeCount())
        return;
    m_handledChanges = m_monitors.changeCount();
    const ManagerFence::Number fence = m_fence.add();
    m_fence.send();
    m_pump.waitFor([&] { return m_fence.isPassed(fence); }, patienceWithSlowOnes);
}

void WindowPlacer::begin(xcb_window_t window, const PlacementTarget &target, TimePoint heldUntil)
{
    const auto &workAreas = m_monitors.workAreas();
    m_watch.remove(window);
    m_restFrames.erase(window);
    m_unread.insert(window);
    const bool isUnsure = m_pending.erase(window) > 0;
    const auto reading = readingToStartFrom(window, isUnsure);
    if (!reading)
        return;
    const auto now = std::chrono::steady_clock::now();
    const auto lastChange = m_monitors.lastChange();
    const bool displaysChanged = lastChange && now - *lastChange < recentDisplayChange;
    Placement placement(window, target, m_windowManager);
    placement.begin(*reading, workAreas, isUnsure, now);
    if (placement.isDone())
        return;
    m_pending.emplace(window,
                      Pending{std::move(placement),
                              {target, heldUntil, m_monitors.changeCount()},
                              now + (displaysChanged ? patienceAfterDisplayChange : patience),
                              m_fence.add(),
                              now});
}

std::optional<PixelRect> WindowPlacer::awaitFrame(xcb_window_t window)
{
    m_pump.drain();
    lookAtPlaced();
    while (m_pending.contains(window)) {
        look();
        m_fence.send();
        if (m_pending.contains(window))
            m_pump.waitUntil(*nextLook());
    }
    if (!m_restFrames.contains(window))
        readAtRest(window);
    const auto frame = m_restFrames.extract(window);
    return frame ? std::optional(frame.mapped()) : std::nullopt;
}

void WindowPlacer::readAtRest(xcb_window_t window)
{
    m_unread.insert(window);
    std::vector<xcb_window_t> windows;
    std::ranges::copy_if(m_unread, std::back_inserter(windows),
                         [this](xcb_window_t one) { return !m_pending.contains(one); });
    const auto readings = m_reader.read(windows);
    for (std::size_t i = 0; i < windows.size(); ++i) {
        m_unread.erase(windows[i]);
        if (readings[i])
            m_restFrames.insert_or_assign(windows[i], readings[i]->geometry.visibleFrame());
    }
}

void WindowPlacer::processEvents()
{
    m_pump.drain();
    look();
    // The event loop has run: who asks for a frame now does not mean that of before.
    m_unread.clear();
    m_restFrames.clear();
}

std::optional<WindowPlacer::TimePoint> WindowPlacer::nextLook() const
{
    TimePoint earliest = TimePoint::max();
    for (const auto &[window, pending] : m_pending)
        earliest = std::min(earliest, nextLook(pending));
    if (m_watch.hasChanged())
        earliest = TimePoint{};
    return earliest == TimePoint::max() ? std::nullopt : std::optional(earliest);
}

void WindowPlacer::noteEvent(const xcb_generic_event_t &event)
{
    const xcb_window_t window = changedWindow(m_connection, event);
    if (window == XCB_WINDOW_NONE)
        return;
    m_restFrames.erase(window);
    m_watch.noteChange(window);
    const auto pending = m_pending.find(window);
    if (pending == m_pending.end())
        return;
    m_lastAnswer = std::chrono::steady_clock::now();
    pending->second.placement.noteChange();
}

void WindowPlacer::noteHandled(TimePoint now)
{
    for (auto &[window, pending] : m_pending) {
        if (!pending.placement.handled() && m_fence.isPassed(pending.fence))
            pending.placement.noteHandled(now);
    }
}

WindowPlacer::TimePoint WindowPlacer::nextLook(const Pending &pending) const
{
    const Placement &placement = pending.placement;
    if (!placement.handled() && m_fence.isPassed(pending.fence))
        return TimePoint{};
    if (!placement.hasChanged())
        return placement.nextLook();
    return placement.handled() ? TimePoint{} : pending.looked + lookAtUnhandled;
}

WindowPlacer::TimePoint WindowPlacer::deadlineOf(const Pending &pending) const
{
    const TimePoint latest = pending.deadline + patienceWithSlowOnes;
    const auto handled = pending.placement.handled();
    if (!handled || pending.placement.dependsOnClient())
        return latest;
    return std::clamp(std::max(*handled, m_lastAnswer) + silenceAfterAnswers, pending.deadline,
                      latest);
}

std::optional<ClientReading> WindowPlacer::readingToStartFrom(xcb_window_t window, bool isUnsure)
{
    const auto known = m_readings.take(window);
    if (known && !isUnsure)
        return known;
    return m_reader.read(window);
}

void WindowPlacer::look()
{
    lookAtPlaced();
    lookAtPending();
}

void WindowPlacer::lookAtPending()
{
    // What was asked for on the displays of before is not what the user wants on these.
    std::erase_if(m_pending, [&](const auto &entry) {
        return entry.second.place.displayChanges != m_monitors.changeCount();
    });
    const auto now = std::chrono::steady_clock::now();
    noteHandled(now);
    std::vector<xcb_window_t> windows;
    bool isMending = false;
    for (const auto &[window, pending] : m_pending) {
        if (nextLook(pending) > now)
            continue;
        windows.push_back(window);
        isMending = isMending || pending.placement.mendingTime() <= now;
    }
    if (windows.empty())
        return;

    const auto pointer = isMending ? pointerWithButtonDown() : std::nullopt;
    const auto readings = m_reader.read(windows);
    for (std::size_t i = 0; i < windows.size(); ++i) {
        Pending &pending = m_pending.at(windows[i]);
        Placement &placement = pending.placement;
        pending.looked = now;
        const bool isHeld = pointer && readings[i] && placement.mendingTime() <= now
                            && contains(readings[i]->geometry.visibleFrame(), *pointer);
        if (isHeld)
            placement.giveUp();
        else
            placement.judge(readings[i], now, deadlineOf(pending));
        if (placement.sent() == now)
            pending.fence = m_fence.add();
        if (placement.isDone() && readings[i]) {
            m_watch.add(windows[i], pending.place, placement, *readings[i], now);
            m_unread.erase(windows[i]);
            m_restFrames.insert_or_assign(windows[i], readings[i]->geometry.visibleFrame());
        }
    }
    m_connection.flush();
    std::erase_if(m_pending, [](const auto &entry) { return entry.second.placement.isDone(); });
}

void WindowPlacer::lookAtPlaced()
{
    const auto now = std::chrono::steady_clock::now();
    const auto changed = m_watch.changed(m_monitors.changeCount(), now);
    if (changed.empty())
        return;
    const bool isHeld = pointerWithButtonDown().has_value();
    const auto readings = m_reader.read(changed);
    for (std::size_t i = 0; i < changed.size(); ++i) {
        if (const auto place = m_watch.judge(changed[i], readings[i], isHeld, now))
            begin(changed[i], place->target, place->heldUntil);
    }
    m_connection.flush();
}

std::optional<Point> WindowPlacer::pointerWithButtonDown() const
{
    const XOwned<xcb_query_pointer_reply_t> pointer(xcb_query_pointer_reply(
        m_connection.get(), xcb_query_pointer(m_connection.get(), m_connection.root()), nullptr));
    const int buttons = XCB_BUTTON_MASK_1 | XCB_BUTTON_MASK_2 | XCB_BUTTON_MASK_3;
    if (!pointer || !(pointer->mask & buttons))
        return std::nullopt;
    return Point{double(pointer->root_x), double(pointer->root_y)};
}

} // namespace Panorel::X11

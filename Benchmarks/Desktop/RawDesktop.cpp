#include "Desktop/RawDesktop.h"

#include <xcb/randr.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <numeric>
#include <poll.h>

namespace Panorel::Bench {

namespace {

using namespace std::chrono_literals;

struct Free {
    void operator()(void *memory) const { std::free(memory); }
};
template <typename T> using Reply = std::unique_ptr<T, Free>;

constexpr std::uint32_t northWest = 1;
constexpr std::uint32_t allFour = 0xF << 8;
constexpr std::uint32_t pager = 2; // source indication
constexpr auto silence = 120ms;
/// Window managers that are silent for this long may have left a window where it was.
constexpr auto secondLook = 50ms;

constexpr std::array learnedProperties{
    "_NET_FRAME_EXTENTS", "_GTK_FRAME_EXTENTS",     "WM_NORMAL_HINTS", "WM_STATE", "_NET_WM_STATE",
    "_NET_WM_DESKTOP",    "_NET_WM_WINDOW_OPACITY", "_NET_WM_NAME",    "WM_NAME"};

xcb_get_property_cookie_t ask(xcb_connection_t *connection, xcb_window_t window, xcb_atom_t name)
{
    return xcb_get_property(connection, 0, window, name, XCB_ATOM_ANY, 0, 64 * 1024);
}

std::vector<std::uint32_t> collect(xcb_connection_t *connection, xcb_get_property_cookie_t cookie)
{
    const Reply<xcb_get_property_reply_t> reply(
        xcb_get_property_reply(connection, cookie, nullptr));
    if (!reply || reply->format != 32)
        return {};
    const auto *first = static_cast<const std::uint32_t *>(xcb_get_property_value(reply.get()));
    return {first, first + reply->value_len};
}

/// Left, right, top, bottom.
std::array<double, 4> collectExtents(xcb_connection_t *connection, xcb_get_property_cookie_t cookie)
{
    std::array<double, 4> extents{};
    const auto values = collect(connection, cookie);
    std::copy_n(values.begin(), std::min<std::size_t>(values.size(), 4), extents.begin());
    return extents;
}

std::uint32_t pixel(double value)
{
    return std::uint32_t(std::int32_t(value));
}

std::chrono::milliseconds until(TimePoint end)
{
    return std::chrono::ceil<std::chrono::milliseconds>(end - std::chrono::steady_clock::now());
}

} // namespace

RawDesktop::RawDesktop() : m_server(xcb_connect(nullptr, nullptr)), m_connection(m_server.get())
{
    if (xcb_connection_has_error(m_connection))
        qFatal("no X server at %s", qgetenv("DISPLAY").constData());
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &events);
    m_firstRandREvent = xcb_get_extension_data(m_connection, &xcb_randr_id)->first_event;
    xcb_randr_select_input(m_connection, m_root,
                           XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE
                               | XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    for (const char *name : learnedProperties)
        atom(name);
}

void RawDesktop::watch(const std::vector<xcb_window_t> &windows)
{
    m_windows = windows;
    m_indices.clear();
    for (std::size_t i = 0; i < windows.size(); ++i) {
        m_indices[windows[i]] = i;
        const std::uint32_t events =
            XCB_EVENT_MASK_STRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
        xcb_change_window_attributes(m_connection, windows[i], XCB_CW_EVENT_MASK, &events);
    }
    m_changed.assign(windows.size(), false);
    xcb_flush(m_connection);
}

std::vector<Rect> RawDesktop::frames() const
{
    std::vector<std::size_t> all(m_windows.size());
    std::iota(all.begin(), all.end(), std::size_t(0));
    return framesOf(all);
}

Size RawDesktop::clientSize(std::size_t index) const
{
    const Reply<xcb_get_geometry_reply_t> size(xcb_get_geometry_reply(
        m_connection, xcb_get_geometry(m_connection, m_windows[index]), nullptr));
    return size ? Size{double(size->width), double(size->height)} : Size{};
}

void RawDesktop::place(const std::vector<Rect> &frames)
{
    const xcb_atom_t extentsAtom = atom("_NET_FRAME_EXTENTS");
    const xcb_atom_t type = atom("_NET_MOVERESIZE_WINDOW");
    std::vector<xcb_get_property_cookie_t> cookies;
    for (const xcb_window_t window : m_windows)
        cookies.push_back(ask(m_connection, window, extentsAtom));
    for (std::size_t i = 0; i < m_windows.size(); ++i) {
        const auto [left, right, top, bottom] = collectExtents(m_connection, cookies[i]);
        send(m_windows[i], type,
             {northWest | allFour | pager << 12, pixel(frames[i].x), pixel(frames[i].y),
              pixel(frames[i].width - left - right), pixel(frames[i].height - top - bottom)});
    }
    xcb_flush(m_connection);
}

std::optional<TimePoint> RawDesktop::awaitFrames(const std::vector<Rect> &frames, Begin begin,
                                                 std::chrono::milliseconds atMost)
{
    std::vector<std::size_t> pending(m_windows.size());
    std::iota(pending.begin(), pending.end(), std::size_t(0));
    if (begin == Begin::WithAll)
        m_changed.assign(m_windows.size(), true);
    const TimePoint end = std::chrono::steady_clock::now() + atMost;
    while (true) {
        takeEvents();
        std::vector<std::size_t> toRead;
        std::ranges::copy_if(pending, std::back_inserter(toRead),
                             [&](std::size_t i) { return m_changed[i]; });
        const auto read = framesOf(toRead);
        for (std::size_t i = 0; i < toRead.size(); ++i) {
            m_changed[toRead[i]] = false;
            if (read[i] == frames[toRead[i]])
                std::erase(pending, toRead[i]);
        }
        const TimePoint now = std::chrono::steady_clock::now();
        if (pending.empty())
            return now;
        if (now >= end)
            return std::nullopt;
        if (toRead.empty() && !waitForEvent(std::min(until(end), secondLook)))
            m_changed.assign(m_windows.size(), true);
    }
}

void RawDesktop::stack(const std::vector<xcb_window_t> &bottomToTop)
{
    if (supports("_NET_RESTACK_WINDOW")) {
        const xcb_atom_t type = atom("_NET_RESTACK_WINDOW");
        for (const xcb_window_t window : bottomToTop)
            send(window, type, {pager, XCB_WINDOW_NONE, XCB_STACK_MODE_ABOVE});
    } else {
        const xcb_atom_t type = atom("_NET_ACTIVE_WINDOW");
        const Reply<xcb_get_input_focus_reply_t> focus(
            xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
        for (const xcb_window_t window : bottomToTop)
            send(window, type, {pager, XCB_CURRENT_TIME});
        awaitStacking(bottomToTop);
        if (focus)
            xcb_set_input_focus(m_connection, focus->revert_to, focus->focus, XCB_CURRENT_TIME);
    }
    xcb_flush(m_connection);
}

std::optional<TimePoint> RawDesktop::awaitStacking(const std::vector<xcb_window_t> &bottomToTop,
                                                   std::chrono::milliseconds atMost)
{
    const TimePoint end = std::chrono::steady_clock::now() + atMost;
    m_stackingChanged = true;
    while (true) {
        takeEvents();
        const bool isToRead = std::exchange(m_stackingChanged, false);
        const bool isRight = isToRead && rootValues("_NET_CLIENT_LIST_STACKING") == bottomToTop;
        const TimePoint now = std::chrono::steady_clock::now();
        if (isRight)
            return now;
        if (now >= end)
            return std::nullopt;
        // What came in while the list was read has to be taken first.
        if (!isToRead && !waitForEvent(std::min(until(end), secondLook)))
            m_stackingChanged = true;
    }
}

void RawDesktop::readEverything() const
{
    const auto stacking = ask(m_connection, m_root, atom("_NET_CLIENT_LIST_STACKING"));
    const auto mapping = ask(m_connection, m_root, atom("_NET_CLIENT_LIST"));
    const auto desktop = ask(m_connection, m_root, atom("_NET_CURRENT_DESKTOP"));
    const auto windows = collect(m_connection, stacking);
    xcb_discard_reply(m_connection, mapping.sequence);
    struct Asked {
        xcb_get_geometry_cookie_t size;
        xcb_translate_coordinates_cookie_t origin;
        std::array<xcb_get_property_cookie_t, learnedProperties.size()> properties;
    };
    std::vector<Asked> asked;
    for (const xcb_window_t window : windows) {
        Asked &one = asked.emplace_back();
        one.size = xcb_get_geometry(m_connection, window);
        one.origin = xcb_translate_coordinates(m_connection, window, m_root, 0, 0);
        for (std::size_t i = 0; i < learnedProperties.size(); ++i)
            one.properties[i] = ask(m_connection, window, atom(learnedProperties[i]));
    }
    collect(m_connection, desktop);
    // Collected as sent: what comes out of turn has xcb search through all that waits.
    for (const Asked &one : asked) {
        Reply<xcb_get_geometry_reply_t>(xcb_get_geometry_reply(m_connection, one.size, nullptr));
        Reply<xcb_translate_coordinates_reply_t>(
            xcb_translate_coordinates_reply(m_connection, one.origin, nullptr));
        for (const auto &cookie : one.properties)
            Reply<xcb_get_property_reply_t>(xcb_get_property_reply(m_connection, cookie, nullptr));
    }
}

void RawDesktop::rest()
{
    do
        takeEvents();
    while (waitForEvent(silence));
}

void RawDesktop::forgetDisplayChange()
{
    takeEvents();
    m_lastDisplayChange.reset();
}

xcb_atom_t RawDesktop::atom(const char *name) const
{
    const auto known = m_atoms.find(name);
    if (known != m_atoms.end())
        return known->second;
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(
        m_connection, xcb_intern_atom(m_connection, 0, std::uint16_t(std::strlen(name)), name),
        nullptr));
    return m_atoms[name] = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
}

std::vector<std::uint32_t> RawDesktop::rootValues(const char *property) const
{
    return collect(m_connection, ask(m_connection, m_root, atom(property)));
}

bool RawDesktop::supports(const char *name) const
{
    const auto supported = rootValues("_NET_SUPPORTED");
    return std::ranges::find(supported, atom(name)) != supported.end();
}

void RawDesktop::send(xcb_window_t window, xcb_atom_t type, const std::vector<std::uint32_t> &data)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = type;
    std::ranges::copy(data, event.data.data32);
    xcb_send_event(m_connection, 0, m_root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char *>(&event));
}

std::vector<Rect> RawDesktop::framesOf(const std::vector<std::size_t> &indices) const
{
    struct Asked {
        xcb_get_geometry_cookie_t size;
        xcb_translate_coordinates_cookie_t origin;
        xcb_get_property_cookie_t extents;
    };
    const xcb_atom_t extentsAtom = atom("_NET_FRAME_EXTENTS");
    std::vector<Asked> asked;
    for (const std::size_t i : indices)
        asked.push_back({xcb_get_geometry(m_connection, m_windows[i]),
                         xcb_translate_coordinates(m_connection, m_windows[i], m_root, 0, 0),
                         ask(m_connection, m_windows[i], extentsAtom)});
    std::vector<Rect> frames;
    for (const Asked &one : asked) {
        const Reply<xcb_get_geometry_reply_t> size(
            xcb_get_geometry_reply(m_connection, one.size, nullptr));
        const Reply<xcb_translate_coordinates_reply_t> origin(
            xcb_translate_coordinates_reply(m_connection, one.origin, nullptr));
        const auto [left, right, top, bottom] = collectExtents(m_connection, one.extents);
        if (!size || !origin)
            qFatal("a window of the benchmark has gone");
        frames.push_back({origin->dst_x - left, origin->dst_y - top, size->width + left + right,
                          size->height + top + bottom});
    }
    return frames;
}

void RawDesktop::takeEvents()
{
    while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(m_connection)}) {
        const int kind = event->response_type & 0x7f;
        xcb_window_t window = XCB_WINDOW_NONE;
        if (kind == XCB_CONFIGURE_NOTIFY) {
            window = reinterpret_cast<xcb_configure_notify_event_t *>(event.get())->window;
        } else if (kind == XCB_PROPERTY_NOTIFY) {
            const auto *notify = reinterpret_cast<xcb_property_notify_event_t *>(event.get());
            if (notify->window == m_root)
                m_stackingChanged |= notify->atom == atom("_NET_CLIENT_LIST_STACKING");
            else if (notify->atom == atom("_NET_FRAME_EXTENTS"))
                window = notify->window;
        } else if (kind == m_firstRandREvent + XCB_RANDR_SCREEN_CHANGE_NOTIFY
                   || kind == m_firstRandREvent + XCB_RANDR_NOTIFY) {
            m_lastDisplayChange = std::chrono::steady_clock::now();
        }
        const auto index = m_indices.find(window);
        if (index != m_indices.end())
            m_changed[index->second] = true;
    }
    if (xcb_connection_has_error(m_connection))
        qFatal("the X server has gone");
}

/// Whether there is one. Looks at the socket alone: takeEvents() has emptied the queue.
bool RawDesktop::waitForEvent(std::chrono::milliseconds atMost)
{
    pollfd socket{xcb_get_file_descriptor(m_connection), POLLIN, 0};
    return poll(&socket, 1, int(std::max(atMost, 0ms).count())) > 0;
}

} // namespace Panorel::Bench

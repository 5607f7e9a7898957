#include "PanorelX11/Displays/RandR.h"

#include "PanorelX11/Displays/WorkArea.h"

#include <algorithm>

namespace Panorel::X11 {

namespace {

/// Stands for the root window where the server tells no displays.
ConnectedOutput rootOutput()
{
    return {0, QStringLiteral("Display"), {}};
}

} // namespace

RandR::RandR(XConnection &connection) : m_connection(connection)
{
    const auto *extension = xcb_get_extension_data(connection.get(), &xcb_randr_id);
    if (!extension || !extension->present)
        return;
    m_firstEvent = extension->first_event;
    const XOwned<xcb_randr_query_version_reply_t> version(xcb_randr_query_version_reply(
        connection.get(), xcb_randr_query_version(connection.get(), 1, 5), nullptr));
    m_available = version
                  && (version->major_version > 1
                      || (version->major_version == 1 && version->minor_version >= 5));
}

std::vector<Monitor> RandR::monitors()
{
    std::vector<Monitor> monitors;
    if (!m_available) {
        if (const auto size = readRootSize(m_connection)) {
            const Rect whole = Rect::of({}, *size);
            monitors.push_back(
                {whole, whole, true, 0, rootOutput().connector, rootOutput().name()});
        }
        return monitors;
    }
    xcb_connection_t *c = m_connection.get();
    const XOwned<xcb_randr_get_monitors_reply_t> reply(xcb_randr_get_monitors_reply(
        c, xcb_randr_get_monitors(c, m_connection.root(), 1), nullptr));
    if (!reply)
        return monitors;
    for (auto item = xcb_randr_get_monitors_monitors_iterator(reply.get()); item.rem > 0;
         xcb_randr_monitor_info_next(&item)) {
        if (auto found = monitor(*item.data))
            monitors.push_back(*std::move(found));
    }
    return monitors;
}

std::optional<Monitor> RandR::monitor(const xcb_randr_monitor_info_t &information)
{
    if (information.width == 0 || information.height == 0)
        return {};
    const auto *outputs = xcb_randr_monitor_info_outputs(&information);
    const int count = xcb_randr_monitor_info_outputs_length(&information);
    std::vector<ConnectedOutput> connected;
    for (int i = 0; i < count; ++i) {
        if (auto found = output(outputs[i]))
            connected.push_back(*std::move(found));
    }
    if (connected.empty())
        return {};
    // Of several displays that show the same, always the same one is the screen, in whatever
    // order they were switched on.
    const auto chosen = std::ranges::min_element(connected, {}, &ConnectedOutput::connector);
    const Rect frame{double(information.x), double(information.y), double(information.width),
                     double(information.height)};
    return Monitor{
        frame, frame, information.primary != 0, chosen->number, chosen->connector, chosen->name()};
}

std::optional<ConnectedOutput> RandR::output(DisplayNumber number)
{
    if (!m_available)
        return number == 0 ? std::optional(rootOutput()) : std::nullopt;
    ConnectedOutput output;
    State state = readOutput(number, output);
    // What the server knows of plugs may be older than what it shows: it looks when it is told of
    // a plug or asked to look. A display that was pulled out stays lit until someone turns it off.
    if (state == State::LitUnconnected && m_knownUnconnected.insert(number).second) {
        probe();
        state = readOutput(number, output);
    }
    if (state != State::LitUnconnected)
        m_knownUnconnected.erase(number);
    return state == State::Connected ? std::optional(output) : std::nullopt;
}

RandR::State RandR::readOutput(DisplayNumber number, ConnectedOutput &output)
{
    constexpr std::uint32_t edidWords = 128 / 4;
    xcb_connection_t *c = m_connection.get();
    const auto informationCookie = xcb_randr_get_output_info(c, number, XCB_CURRENT_TIME);
    const auto edidCookie = xcb_randr_get_output_property(
        c, number, m_connection.atom("EDID"), XCB_GET_PROPERTY_TYPE_ANY, 0, edidWords, 0, 0);
    const XOwned<xcb_randr_get_output_info_reply_t> information(
        xcb_randr_get_output_info_reply(c, informationCookie, nullptr));
    const XOwned<xcb_randr_get_output_property_reply_t> edid(
        xcb_randr_get_output_property_reply(c, edidCookie, nullptr));
    if (!information || information->crtc == XCB_NONE)
        return State::Off;
    if (information->connection == XCB_RANDR_CONNECTION_DISCONNECTED)
        return State::LitUnconnected;
    const auto *name = xcb_randr_get_output_info_name(information.get());
    const int nameLength = xcb_randr_get_output_info_name_length(information.get());
    output.number = number;
    output.connector = QString::fromUtf8(reinterpret_cast<const char *>(name), nameLength);
    if (edid && edid->format == 8) {
        const auto *bytes = xcb_randr_get_output_property_data(edid.get());
        output.edid = Edid::parse(
            QByteArray(reinterpret_cast<const char *>(bytes), qsizetype(edid->num_items)));
    }
    return State::Connected;
}

void RandR::probe()
{
    xcb_connection_t *c = m_connection.get();
    const auto cookie = xcb_randr_get_screen_resources(c, m_connection.root());
    const XOwned<xcb_randr_get_screen_resources_reply_t> looked(
        xcb_randr_get_screen_resources_reply(c, cookie, nullptr));
}

void RandR::selectDisplayChanges()
{
    if (!m_available)
        return;
    // Not XCB_RANDR_NOTIFY_MASK_OUTPUT_PROPERTY: the backlight is a property.
    xcb_randr_select_input(m_connection.get(), m_connection.root(),
                           XCB_RANDR_NOTIFY_MASK_SCREEN_CHANGE | XCB_RANDR_NOTIFY_MASK_CRTC_CHANGE
                               | XCB_RANDR_NOTIFY_MASK_OUTPUT_CHANGE);
    m_connection.flush();
}

bool RandR::isDisplayChange(const xcb_generic_event_t &event, std::uint8_t firstEvent)
{
    const int type = event.response_type & 0x7F; // without the mark of a sent event
    if (type == firstEvent + XCB_RANDR_SCREEN_CHANGE_NOTIFY)
        return true;
    if (type != firstEvent + XCB_RANDR_NOTIFY)
        return false;
    const auto &notification = reinterpret_cast<const xcb_randr_notify_event_t &>(event);
    return notification.subCode == XCB_RANDR_NOTIFY_CRTC_CHANGE
           || notification.subCode == XCB_RANDR_NOTIFY_OUTPUT_CHANGE;
}

} // namespace Panorel::X11

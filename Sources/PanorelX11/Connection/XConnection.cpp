#include "PanorelX11/Connection/XConnection.h"

#include <stdexcept>
#include <string>
#include <utility>

namespace Panorel::X11 {

XConnection::XConnection()
{
    int screenNumber = 0;
    m_connection = xcb_connect(nullptr, &screenNumber);
    if (xcb_connection_has_error(m_connection)) {
        xcb_disconnect(m_connection);
        const QByteArray display = qgetenv("DISPLAY");
        throw std::runtime_error(display.isEmpty()
                                     ? "there is no X11 session (DISPLAY is not set)"
                                     : "cannot reach the X server at " + display.toStdString());
    }
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (; screenNumber > 0 && screen.rem > 1; --screenNumber)
        xcb_screen_next(&screen);
    m_root = screen.data->root;
}

XConnection::~XConnection()
{
    xcb_disconnect(m_connection);
}

xcb_atom_t XConnection::atom(const char *name) const
{
    const auto known = m_atoms.constFind(QByteArray::fromRawData(name, qsizetype(strlen(name))));
    if (known != m_atoms.constEnd())
        return *known;
    preload({name});
    return m_atoms.value(name, XCB_ATOM_NONE);
}

void XConnection::preload(const std::vector<const char *> &names) const
{
    std::vector<xcb_intern_atom_cookie_t> cookies;
    for (const char *name : names)
        cookies.push_back(xcb_intern_atom(m_connection, 0, std::uint16_t(strlen(name)), name));
    for (std::size_t i = 0; i < names.size(); ++i) {
        const XOwned<xcb_intern_atom_reply_t> reply(
            xcb_intern_atom_reply(m_connection, cookies[i], nullptr));
        if (reply)
            m_atoms.insert(names[i], reply->atom);
    }
}

PropertyRequest::PropertyRequest(const XConnection &connection, xcb_window_t window,
                                 xcb_atom_t property, std::uint32_t maximumBytes)
    : m_connection(connection.get()),
      m_cookie(xcb_get_property(m_connection, 0, window, property, XCB_GET_PROPERTY_TYPE_ANY, 0,
                                (maximumBytes + 3) / 4))
{}

PropertyRequest::~PropertyRequest()
{
    if (m_pending)
        xcb_discard_reply(m_connection, m_cookie.sequence);
}

PropertyRequest::PropertyRequest(PropertyRequest &&other) noexcept
    : m_connection(other.m_connection), m_cookie(other.m_cookie),
      m_pending(std::exchange(other.m_pending, false))
{}

PropertyRequest::Value PropertyRequest::collect()
{
    m_pending = false;
    // The error of a window that has gone is dropped with the null reply.
    xcb_generic_error_t *error = nullptr;
    XOwned<xcb_get_property_reply_t> reply(xcb_get_property_reply(m_connection, m_cookie, &error));
    const XOwned<xcb_generic_error_t> dropped(error);
    return Value(std::move(reply));
}

bool PropertyRequest::Value::present() const
{
    return m_reply && m_reply->type != XCB_ATOM_NONE;
}

std::vector<std::uint32_t> PropertyRequest::Value::values32() const
{
    if (!present() || m_reply->format != 32)
        return {};
    const auto *first = static_cast<const std::uint32_t *>(xcb_get_property_value(m_reply.get()));
    return {first, first + m_reply->value_len};
}

std::optional<std::uint32_t> PropertyRequest::Value::value32() const
{
    const auto values = values32();
    return values.empty() ? std::nullopt : std::optional(values.front());
}

QByteArray PropertyRequest::Value::bytes() const
{
    if (!present() || m_reply->format != 8)
        return {};
    const auto *first = static_cast<const char *>(xcb_get_property_value(m_reply.get()));
    return {first, qsizetype(m_reply->value_len)};
}

xcb_atom_t PropertyRequest::Value::type() const
{
    return m_reply ? m_reply->type : xcb_atom_t(XCB_ATOM_NONE);
}

} // namespace Panorel::X11

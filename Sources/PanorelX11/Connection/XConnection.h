#pragma once

#include <QByteArray>
#include <QHash>

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <optional>
#include <vector>

namespace Panorel::X11 {

struct FreeDeleter {
    void operator()(void *memory) const { std::free(memory); }
};

/// A reply, an event or an error: xcb allocates them, the receiver frees them.
template <typename T> using XOwned = std::unique_ptr<T, FreeDeleter>;

/// One connection to the X server named by DISPLAY, on its first screen. Once the server is gone
/// every reply is null and alive() is false; nothing throws or exits.
class XConnection {
public:
    /// Throws std::runtime_error, its text fit for the user, where there is no server.
    XConnection();
    ~XConnection();
    XConnection(const XConnection &) = delete;
    XConnection &operator=(const XConnection &) = delete;

    xcb_connection_t *get() const { return m_connection; }
    xcb_window_t root() const { return m_root; }
    bool alive() const { return xcb_connection_has_error(m_connection) == 0; }

    /// Interned once for each name; XCB_ATOM_NONE when the server is gone.
    xcb_atom_t atom(const char *name) const;

    /// Interns all of them in one round trip, so that atom() costs nothing later.
    void preload(const std::vector<const char *> &names) const;

    void flush() const { xcb_flush(m_connection); }

private:
    xcb_connection_t *m_connection = nullptr;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    mutable QHash<QByteArray, xcb_atom_t> m_atoms;
};

/// A GetProperty on its way. Send many, then collect: the requests are pipelined. Destroying an
/// uncollected one discards its reply.
class PropertyRequest {
public:
    /// `maximumBytes` bounds what a hostile window can make us read; the rest is cut off.
    PropertyRequest(const XConnection &connection, xcb_window_t window, xcb_atom_t property,
                    std::uint32_t maximumBytes = 4096);
    ~PropertyRequest();
    PropertyRequest(PropertyRequest &&other) noexcept;
    PropertyRequest &operator=(PropertyRequest &&) = delete;

    class Value {
    public:
        explicit Value(XOwned<xcb_get_property_reply_t> reply) : m_reply(std::move(reply)) {}

        /// Whether the property is set, to whatever type.
        bool present() const;
        /// The values of a property of format 32; empty for any other.
        std::vector<std::uint32_t> values32() const;
        /// The first of values32().
        std::optional<std::uint32_t> value32() const;
        /// The bytes of a property of format 8; empty for any other.
        QByteArray bytes() const;
        xcb_atom_t type() const;
        /// Whether the property has format 8, be it empty.
        bool isText() const { return m_reply && m_reply->format == 8; }

    private:
        XOwned<xcb_get_property_reply_t> m_reply;
    };

    /// Waits for the reply. Nothing present where the window is gone. Once only.
    Value collect();

private:
    xcb_connection_t *m_connection;
    xcb_get_property_cookie_t m_cookie;
    bool m_pending = true;
};

} // namespace Panorel::X11

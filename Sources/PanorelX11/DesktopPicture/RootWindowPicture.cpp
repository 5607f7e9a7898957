#include "PanorelX11/DesktopPicture/RootWindowPicture.h"

#include "PanorelX11/Displays/RandR.h"
#include "PanorelX11/Displays/WorkArea.h"

#include <QSysInfo>

#include <stdexcept>

namespace Panorel::X11 {

namespace {

constexpr auto announced = "_XROOTPMAP_ID";
constexpr auto disposable = "ESETROOT_PMAP_ID"; ///< who sets the next picture may free this one

const xcb_screen_t *screenOf(const XConnection &connection)
{
    auto screen = xcb_setup_roots_iterator(xcb_get_setup(connection.get()));
    while (screen.rem > 1 && screen.data->root != connection.root())
        xcb_screen_next(&screen);
    return screen.data;
}

const xcb_visualtype_t *rootVisual(const xcb_screen_t &screen)
{
    for (auto depth = xcb_screen_allowed_depths_iterator(&screen); depth.rem > 0;
         xcb_depth_next(&depth)) {
        for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem > 0;
             xcb_visualtype_next(&visual)) {
            if (visual.data->visual_id == screen.root_visual)
                return visual.data;
        }
    }
    return nullptr;
}

int bitsPerPixel(const xcb_setup_t &setup, std::uint8_t depth)
{
    for (auto format = xcb_setup_pixmap_formats_iterator(&setup); format.rem > 0;
         xcb_format_next(&format)) {
        if (format.data->depth == depth)
            return format.data->bits_per_pixel;
    }
    return 0;
}

/// Whether the server stores a pixel as QImage's 32-bit RGB does.
bool takesOurPixels(const XConnection &connection)
{
    const xcb_setup_t &setup = *xcb_get_setup(connection.get());
    const xcb_screen_t &screen = *screenOf(connection);
    const auto *visual = rootVisual(screen);
    const auto ourOrder = QSysInfo::ByteOrder == QSysInfo::LittleEndian ? XCB_IMAGE_ORDER_LSB_FIRST
                                                                        : XCB_IMAGE_ORDER_MSB_FIRST;
    return visual && visual->_class == XCB_VISUAL_CLASS_TRUE_COLOR && visual->red_mask == 0xFF0000
           && visual->green_mask == 0xFF00 && visual->blue_mask == 0xFF
           && bitsPerPixel(setup, screen.root_depth) == 32 && setup.image_byte_order == ourOrder;
}

bool succeeded(const XConnection &connection, xcb_void_cookie_t cookie)
{
    const XOwned<xcb_generic_error_t> error(xcb_request_check(connection.get(), cookie));
    return !error && connection.alive();
}

/// A picture as large as the root window, being painted. Kept by the server only when it is
/// finished; before, it goes with the connection.
class Canvas {
public:
    explicit Canvas(const XConnection &connection)
        : m_connection(connection), m_pixmap(xcb_generate_id(connection.get())),
          m_graphics(xcb_generate_id(connection.get()))
    {
        m_depth = screenOf(connection)->root_depth;
        const auto size = readRootSize(connection).value_or(Size{});
        const auto width = std::uint16_t(size.width);
        const auto height = std::uint16_t(size.height);
        xcb_connection_t *c = connection.get();
        m_isThere =
            succeeded(connection, xcb_create_pixmap_checked(c, m_depth, m_pixmap, connection.root(),
                                                            width, height));
        const std::uint32_t black = 0;
        xcb_create_gc(c, m_graphics, m_pixmap, XCB_GC_FOREGROUND, &black);
        const xcb_rectangle_t whole{0, 0, width, height};
        xcb_poly_fill_rectangle(c, m_pixmap, m_graphics, 1, &whole);
    }

    bool isThere() const { return m_isThere; }
    xcb_pixmap_t pixmap() const { return m_pixmap; }

    void paint(const Rect &where, const QImage &image)
    {
        constexpr int header = 32;
        xcb_connection_t *c = m_connection.get();
        const auto bytesAtOnce = qint64(xcb_get_maximum_request_length(c)) * 4 - header;
        const int rowsAtOnce = int(std::max<qint64>(1, bytesAtOnce / image.bytesPerLine()));
        for (int row = 0; row < image.height(); row += rowsAtOnce) {
            const int rows = std::min(rowsAtOnce, image.height() - row);
            xcb_put_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, m_pixmap, m_graphics,
                          std::uint16_t(image.width()), std::uint16_t(rows), std::int16_t(where.x),
                          std::int16_t(where.y + row), 0, m_depth,
                          std::uint32_t(rows * image.bytesPerLine()), image.constScanLine(row));
        }
    }

private:
    const XConnection &m_connection;
    xcb_pixmap_t m_pixmap;
    xcb_gcontext_t m_graphics;
    std::uint8_t m_depth = 0;
    bool m_isThere = false;
};

/// The picture that whoever set it has left to be freed; absent where it may be in use. Anybody
/// can write the properties: a window's id in them would end the window's program.
std::optional<xcb_pixmap_t> pictureLeftBehind(const XConnection &connection)
{
    xcb_connection_t *c = connection.get();
    PropertyRequest first(connection, connection.root(), connection.atom(announced));
    PropertyRequest second(connection, connection.root(), connection.atom(disposable));
    const auto one = first.collect();
    const auto other = second.collect();
    const auto pixmap = other.value32().value_or(XCB_NONE);
    if (pixmap == XCB_NONE || one.value32() != pixmap || one.type() != XCB_ATOM_PIXMAP
        || other.type() != XCB_ATOM_PIXMAP)
        return {};
    const auto drawableCookie = xcb_get_geometry(c, pixmap);
    const auto windowCookie = xcb_get_window_attributes(c, pixmap);
    xcb_generic_error_t *errors[2] = {};
    const XOwned<xcb_get_geometry_reply_t> drawable(
        xcb_get_geometry_reply(c, drawableCookie, &errors[0]));
    const XOwned<xcb_get_window_attributes_reply_t> window(
        xcb_get_window_attributes_reply(c, windowCookie, &errors[1]));
    const XOwned<xcb_generic_error_t> dropped[] = {XOwned<xcb_generic_error_t>(errors[0]),
                                                   XOwned<xcb_generic_error_t>(errors[1])};
    return drawable && !window ? std::optional(pixmap) : std::nullopt;
}

void makeBackground(const XConnection &connection, xcb_pixmap_t pixmap)
{
    xcb_connection_t *c = connection.get();
    const xcb_window_t root = connection.root();
    xcb_grab_server(c); // or two who set a picture at once could free each other's
    const auto before = pictureLeftBehind(connection);
    for (const char *property : {announced, disposable})
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, root, connection.atom(property),
                            XCB_ATOM_PIXMAP, 32, 1, &pixmap);
    xcb_change_window_attributes(c, root, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(c, 0, root, 0, 0, 0, 0);
    xcb_set_close_down_mode(c, XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    if (before)
        xcb_kill_client(c, *before);
    succeeded(connection, xcb_ungrab_server_checked(c)); // all has arrived before it is closed
}

} // namespace

void RootWindowPicture::set(const PictureFile &picture)
try {
    XConnection connection; // of its own: what the server is to keep is kept by connection
    if (!takesOurPixels(connection))
        return;
    connection.preload({announced, disposable});
    const auto monitors = RandR(connection).monitors();
    if (monitors.empty())
        return;
    Canvas canvas(connection);
    QImage image;
    for (const Monitor &monitor : monitors) {
        const QSize size(int(monitor.frame.width), int(monitor.frame.height));
        if (image.size() != size)
            image = picture.covering(size);
        if (image.isNull())
            return;
        canvas.paint(monitor.frame, image);
    }
    if (canvas.isThere())
        makeBackground(connection, canvas.pixmap());
} catch (const std::runtime_error &) {
    // The server has gone.
}

} // namespace Panorel::X11

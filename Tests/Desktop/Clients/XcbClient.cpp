// A window with whatever properties the desktop tests need. Prints the window's id when it is
// mapped; ends on SIGTERM, and after SIGUSR1 without a word as soon as it is moved.

#include <QByteArray>
#include <QCommandLineParser>
#include <QCoreApplication>

#include <xcb/xcb.h>
#include <xcb/xcb_icccm.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {

struct Window {
    xcb_connection_t *connection;
    xcb_window_t id;
};

xcb_atom_t atom(const Window &window, const char *name)
{
    const auto cookie =
        xcb_intern_atom(window.connection, false, static_cast<std::uint16_t>(qstrlen(name)), name);
    xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(window.connection, cookie, nullptr);
    const xcb_atom_t result = reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
    std::free(reply);
    return result;
}

template <typename Values>
void set(const Window &window, const char *property, const char *type, const Values &values)
{
    xcb_change_property(window.connection, XCB_PROP_MODE_REPLACE, window.id, atom(window, property),
                        atom(window, type), 8 * sizeof(*values.data()),
                        static_cast<std::uint32_t>(values.size()), values.data());
}

void describe(const Window &window, const QCommandLineParser &options)
{
    // Encoded, for it need not be text at all.
    const QByteArray title =
        QByteArray::fromPercentEncoding(options.value(QStringLiteral("title")).toLatin1());
    set(window, "_NET_WM_NAME", "UTF8_STRING", title);
    set(window, "WM_NAME", "STRING", title);
    const QByteArray name = options.value(QStringLiteral("class")).toLatin1();
    set(window, "WM_CLASS", "STRING", name.toLower() + '\0' + name + '\0');

    xcb_size_hints_t hints{};
    xcb_icccm_size_hints_set_win_gravity(
        &hints, static_cast<xcb_gravity_t>(options.value(QStringLiteral("gravity")).toInt()));
    const QStringList place = options.value(QStringLiteral("geometry")).split(u',');
    xcb_icccm_size_hints_set_position(&hints, 1, place.value(0).toInt(), place.value(1).toInt());
    if (options.isSet(QStringLiteral("fixed"))) {
        xcb_icccm_size_hints_set_min_size(&hints, place.value(2).toInt(), place.value(3).toInt());
        xcb_icccm_size_hints_set_max_size(&hints, place.value(2).toInt(), place.value(3).toInt());
    }
    if (options.isSet(QStringLiteral("aspect"))) {
        const QStringList least = options.value(QStringLiteral("aspect")).split(u',');
        const int width = least.value(0).toInt();
        const int height = least.value(1).toInt();
        xcb_icccm_size_hints_set_min_size(&hints, width, height);
        xcb_icccm_size_hints_set_aspect(&hints, width, height, width, height);
    }
    xcb_icccm_set_wm_normal_hints(window.connection, window.id, &hints);
    for (const QString &pair : options.values(QStringLiteral("atom"))) {
        const QByteArray value = pair.section(u'=', 1).toLatin1();
        set(window, pair.section(u'=', 0, 0).toLatin1(), "ATOM", std::array{atom(window, value)});
    }
    if (options.isSet(QStringLiteral("takes-focus"))) {
        xcb_icccm_wm_hints_t wmHints{};
        xcb_icccm_wm_hints_set_input(&wmHints, 0);
        xcb_icccm_set_wm_hints(window.connection, window.id, &wmHints);
        set(window, "WM_PROTOCOLS", "ATOM", std::array{atom(window, "WM_TAKE_FOCUS")});
    }
    if (options.isSet(QStringLiteral("strut"))) {
        std::vector<std::uint32_t> sides;
        for (const QString &number : options.value(QStringLiteral("strut")).split(u','))
            sides.push_back(number.toUInt());
        set(window, "_NET_WM_STRUT_PARTIAL", "CARDINAL", sides);
    }
}

Window create(const QCommandLineParser &options)
{
    Window window{xcb_connect(nullptr, nullptr), XCB_WINDOW_NONE};
    if (xcb_connection_has_error(window.connection))
        std::exit(1);
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(window.connection)).data;
    const QStringList place = options.value(QStringLiteral("geometry")).split(u',');
    window.id = xcb_generate_id(window.connection);
    const std::array<std::uint32_t, 2> values{screen->white_pixel, XCB_EVENT_MASK_STRUCTURE_NOTIFY};
    xcb_create_window(window.connection, XCB_COPY_FROM_PARENT, window.id, screen->root,
                      place.value(0).toShort(), place.value(1).toShort(), place.value(2).toUShort(),
                      place.value(3).toUShort(), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      screen->root_visual, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
    return window;
}

volatile std::sig_atomic_t diesWhenMoved = 0;

void serve(const Window &window)
{
    while (xcb_generic_event_t *event = xcb_wait_for_event(window.connection)) {
        const int kind = event->response_type & 0x7F;
        if (kind == XCB_MAP_NOTIFY) {
            std::printf("%u\n", window.id);
            std::fflush(stdout);
        } else if (kind == XCB_CLIENT_MESSAGE) { // the focus is offered; no time is refused
            const auto *offer = reinterpret_cast<xcb_client_message_event_t *>(event);
            xcb_set_input_focus(window.connection, XCB_INPUT_FOCUS_PARENT, window.id,
                                offer->data.data32[1]);
            xcb_flush(window.connection);
        } else if (kind == XCB_CONFIGURE_NOTIFY && diesWhenMoved) {
            _exit(0);
        }
        std::free(event);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser options;
    options.addOptions({
        {QStringLiteral("title"), {}, QStringLiteral("text")},
        {QStringLiteral("class"), {}, QStringLiteral("name"), QStringLiteral("Panorel-test")},
        {QStringLiteral("geometry"),
         {},
         QStringLiteral("x,y,width,height"),
         QStringLiteral("40,60,400,300")},
        {QStringLiteral("gravity"), {}, QStringLiteral("number"), QStringLiteral("1")},
        {QStringLiteral("fixed"), {}}, // at the size of its geometry
        {QStringLiteral("aspect"), {}, QStringLiteral("least width,least height")},
        {QStringLiteral("atom"), {}, QStringLiteral("property=value")},
        {QStringLiteral("takes-focus"), {}},
        {QStringLiteral("strut"), {}, QStringLiteral("twelve numbers")},
    });
    options.process(application);
    std::signal(SIGUSR1, [](int) { diesWhenMoved = 1; });
    const Window window = create(options);
    describe(window, options);
    xcb_map_window(window.connection, window.id);
    xcb_flush(window.connection);
    serve(window);
    xcb_disconnect(window.connection);
    return 0;
}

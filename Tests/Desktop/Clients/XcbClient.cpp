// A window with whatever properties the desktop tests need, or many of them. Prints a window's id
// when it is mapped; ends on SIGTERM, and after SIGUSR1 without a word as soon as it is moved.

#include "PanorelX11/Connection/XConnection.h"

#include <QMap>

#include <xcb/xcb_icccm.h>

#include <array>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <unistd.h>

using Panorel::X11::XConnection;

namespace {

using Options = QMap<QByteArray, QByteArray>;

struct Window {
    const XConnection &connection;
    xcb_window_t id;
};

template <typename Values>
void set(const Window &window, const char *property, const char *type, const Values &values)
{
    xcb_change_property(window.connection.get(), XCB_PROP_MODE_REPLACE, window.id,
                        window.connection.atom(property), window.connection.atom(type),
                        8 * sizeof(*values.data()), static_cast<std::uint32_t>(values.size()),
                        values.data());
}

/// Of numbers separated by commas.
std::vector<std::uint32_t> numbers(const QByteArray &list)
{
    std::vector<std::uint32_t> result;
    for (const QByteArray &number : list.split(','))
        result.push_back(static_cast<std::uint32_t>(number.toInt()));
    return result;
}

void setSizeHints(const Window &window, const Options &options)
{
    xcb_size_hints_t hints{};
    xcb_icccm_size_hints_set_win_gravity(&hints,
                                         static_cast<xcb_gravity_t>(options["--gravity"].toInt()));
    const auto place = numbers(options["--geometry"]);
    xcb_icccm_size_hints_set_position(&hints, 1, int(place[0]), int(place[1]));
    if (options.contains("--fixed")) {
        xcb_icccm_size_hints_set_min_size(&hints, int(place[2]), int(place[3]));
        xcb_icccm_size_hints_set_max_size(&hints, int(place[2]), int(place[3]));
    }
    if (options.contains("--aspect")) {
        const auto least = numbers(options["--aspect"]);
        xcb_icccm_size_hints_set_min_size(&hints, int(least[0]), int(least[1]));
        xcb_icccm_size_hints_set_aspect(&hints, int(least[0]), int(least[1]), int(least[0]),
                                        int(least[1]));
    }
    xcb_icccm_set_wm_normal_hints(window.connection.get(), window.id, &hints);
}

void describe(const Window &window, const Options &options, int number)
{
    // Encoded, for it need not be text at all.
    QByteArray title = QByteArray::fromPercentEncoding(options["--title"]);
    QByteArray name = options["--class"];
    if (options.contains("--applications")) {
        title += ' ' + QByteArray::number(number);
        name += '-' + QByteArray::number(number % options["--applications"].toInt());
    }
    set(window, "_NET_WM_NAME", "UTF8_STRING", title);
    set(window, "WM_NAME", "STRING", title);
    set(window, "WM_CLASS", "STRING", name.toLower() + '\0' + name + '\0');
    setSizeHints(window, options);
    if (options.contains("--atom")) {
        const auto pair = options["--atom"].split('=');
        set(window, pair[0], "ATOM", std::array{window.connection.atom(pair[1])});
    }
    if (options.contains("--strut"))
        set(window, "_NET_WM_STRUT_PARTIAL", "CARDINAL", numbers(options["--strut"]));
}

void open(const XConnection &server, const Options &options, int number)
{
    xcb_connection_t *connection = server.get();
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const auto place = numbers(options["--geometry"]);
    const Window window{server, xcb_generate_id(connection)};
    const std::array<std::uint32_t, 2> values{screen->white_pixel, XCB_EVENT_MASK_STRUCTURE_NOTIFY};
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window.id, screen->root,
                      std::int16_t(place[0]), std::int16_t(place[1]), std::uint16_t(place[2]),
                      std::uint16_t(place[3]), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      screen->root_visual, XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
    describe(window, options, number);
    xcb_map_window(connection, window.id);
    xcb_flush(connection);
}

volatile std::sig_atomic_t diesWhenMoved = 0;

void serve(xcb_connection_t *connection)
{
    while (xcb_generic_event_t *event = xcb_wait_for_event(connection)) {
        const int kind = event->response_type & 0x7F;
        if (kind == XCB_MAP_NOTIFY) {
            std::printf("%u\n", reinterpret_cast<xcb_map_notify_event_t *>(event)->window);
            std::fflush(stdout);
        } else if (kind == XCB_CONFIGURE_NOTIFY && diesWhenMoved) {
            _exit(0);
        }
        std::free(event);
    }
}

} // namespace

int main(int argc, char **argv)
{
    Options options{{"--class", "Panorel-test"},
                    {"--geometry", "40,60,400,300"},
                    {"--gravity", "1"},
                    {"--count", "1"}};
    // Also: --title, --fixed (at the size of its geometry), --aspect (the least width and height),
    // --atom (property=value), --strut (twelve numbers) and --applications (among which many
    // windows are shared). Each has a value.
    for (int i = 1; i + 1 < argc; i += 2)
        options[argv[i]] = argv[i + 1];
    std::signal(SIGUSR1, [](int) { diesWhenMoved = 1; });
    const XConnection server;
    for (int i = 0; i < options["--count"].toInt(); ++i)
        open(server, options, i);
    serve(server.get());
    return 0;
}

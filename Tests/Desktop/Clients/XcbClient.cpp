// A window with whatever properties the desktop tests need, or many of them. Prints a window's id
// when it is mapped; ends on SIGTERM, and after SIGUSR1 without a word as soon as it is moved.

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

/// Of numbers separated by commas.
std::vector<std::uint32_t> numbers(const QString &list)
{
    std::vector<std::uint32_t> result;
    for (const QString &number : list.split(u','))
        result.push_back(static_cast<std::uint32_t>(number.toInt()));
    return result;
}

void describe(const Window &window, const QCommandLineParser &options, int number)
{
    const auto value = [&](const char *name) { return options.value(QLatin1String(name)); };
    const auto isSet = [&](const char *name) { return options.isSet(QLatin1String(name)); };
    // Encoded, for it need not be text at all.
    QByteArray title = QByteArray::fromPercentEncoding(value("title").toLatin1());
    QByteArray name = value("class").toLatin1();
    if (isSet("applications")) {
        title += ' ' + QByteArray::number(number);
        name += '-' + QByteArray::number(number % value("applications").toInt());
    }
    set(window, "_NET_WM_NAME", "UTF8_STRING", title);
    set(window, "WM_NAME", "STRING", title);
    set(window, "WM_CLASS", "STRING", name.toLower() + '\0' + name + '\0');

    xcb_size_hints_t hints{};
    xcb_icccm_size_hints_set_win_gravity(&hints,
                                         static_cast<xcb_gravity_t>(value("gravity").toInt()));
    const auto place = numbers(value("geometry"));
    xcb_icccm_size_hints_set_position(&hints, 1, int(place[0]), int(place[1]));
    if (isSet("fixed")) {
        xcb_icccm_size_hints_set_min_size(&hints, int(place[2]), int(place[3]));
        xcb_icccm_size_hints_set_max_size(&hints, int(place[2]), int(place[3]));
    }
    if (isSet("aspect")) {
        const auto least = numbers(value("aspect"));
        xcb_icccm_size_hints_set_min_size(&hints, int(least[0]), int(least[1]));
        xcb_icccm_size_hints_set_aspect(&hints, int(least[0]), int(least[1]), int(least[0]),
                                        int(least[1]));
    }
    xcb_icccm_set_wm_normal_hints(window.connection, window.id, &hints);
    for (const QString &pair : options.values(QStringLiteral("atom"))) {
        const QByteArray named = pair.section(u'=', 1).toLatin1();
        set(window, pair.section(u'=', 0, 0).toLatin1(), "ATOM", std::array{atom(window, named)});
    }
    if (isSet("takes-focus")) {
        xcb_icccm_wm_hints_t wmHints{};
        xcb_icccm_wm_hints_set_input(&wmHints, 0);
        xcb_icccm_set_wm_hints(window.connection, window.id, &wmHints);
        set(window, "WM_PROTOCOLS", "ATOM", std::array{atom(window, "WM_TAKE_FOCUS")});
    }
    if (isSet("strut"))
        set(window, "_NET_WM_STRUT_PARTIAL", "CARDINAL", numbers(value("strut")));
}

void open(xcb_connection_t *connection, const QCommandLineParser &options, int number)
{
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    const auto place = numbers(options.value(QStringLiteral("geometry")));
    const Window window{connection, xcb_generate_id(connection)};
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
        } else if (kind == XCB_CLIENT_MESSAGE) { // the focus is offered; no time is refused
            const auto *offer = reinterpret_cast<xcb_client_message_event_t *>(event);
            xcb_set_input_focus(connection, XCB_INPUT_FOCUS_PARENT, offer->window,
                                offer->data.data32[1]);
            xcb_flush(connection);
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
    for (const auto &[name, usual] : {std::pair("title", ""),
                                      {"class", "Panorel-test"},
                                      {"geometry", "40,60,400,300"},
                                      {"gravity", "1"},
                                      {"aspect", ""}, // the least width and height
                                      {"atom", ""},   // property=value
                                      {"strut", ""},  // twelve numbers
                                      {"count", "1"},
                                      {"applications", ""}}) // among which many windows are shared
        options.addOption({QLatin1String(name), {}, QStringLiteral("value"), QLatin1String(usual)});
    options.addOptions({{QStringLiteral("fixed"), {}}, // at the size of its geometry
                        {QStringLiteral("takes-focus"), {}}});
    options.process(application);
    std::signal(SIGUSR1, [](int) { diesWhenMoved = 1; });
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(connection))
        return 1;
    for (int i = 0; i < options.value(QStringLiteral("count")).toInt(); ++i)
        open(connection, options, i);
    serve(connection);
    xcb_disconnect(connection);
    return 0;
}

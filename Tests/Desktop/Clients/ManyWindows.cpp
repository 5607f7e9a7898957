// Many plain windows of several applications in one process: many-windows COUNT APPLICATIONS.
// Prints their ids on one line once all of them are on the screen, then lives until it is ended.

#include <xcb/xcb.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace {

xcb_atom_t atom(xcb_connection_t *connection, const char *name)
{
    const auto cookie = xcb_intern_atom(connection, 0, std::uint16_t(std::strlen(name)), name);
    xcb_intern_atom_reply_t *reply = xcb_intern_atom_reply(connection, cookie, nullptr);
    const xcb_atom_t result = reply ? reply->atom : xcb_atom_t(XCB_ATOM_NONE);
    std::free(reply);
    return result;
}

void setText(xcb_connection_t *connection, xcb_window_t window, xcb_atom_t property,
             xcb_atom_t type, const std::string &text)
{
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, window, property, type, 8,
                        std::uint32_t(text.size()), text.data());
}

xcb_window_t open(xcb_connection_t *connection, const xcb_screen_t *screen, int number,
                  int application)
{
    const xcb_window_t window = xcb_generate_id(connection);
    const std::array<std::uint32_t, 2> values{screen->white_pixel, XCB_EVENT_MASK_STRUCTURE_NOTIFY};
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, screen->root,
                      std::int16_t(20 + 7 * number), std::int16_t(20 + 3 * number), 400, 300, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual,
                      XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
    const std::string title = "Document " + std::to_string(number);
    setText(connection, window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, title);
    setText(connection, window, atom(connection, "_NET_WM_NAME"), atom(connection, "UTF8_STRING"),
            title);
    const std::string name = "Application-" + std::to_string(application);
    std::string wmClass = name;
    wmClass += '\0';
    wmClass += name;
    wmClass += '\0';
    setText(connection, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, wmClass);
    xcb_map_window(connection, window);
    return window;
}

} // namespace

int main(int argc, char **argv)
{
    const int count = argc > 2 ? std::atoi(argv[1]) : 0;
    const int applications = argc > 2 ? std::atoi(argv[2]) : 0;
    xcb_connection_t *connection = xcb_connect(nullptr, nullptr);
    if (count <= 0 || applications <= 0 || xcb_connection_has_error(connection))
        return 1;
    const xcb_screen_t *screen = xcb_setup_roots_iterator(xcb_get_setup(connection)).data;
    std::vector<xcb_window_t> windows;
    for (int i = 0; i < count; ++i)
        windows.push_back(open(connection, screen, i, i % applications));
    xcb_flush(connection);

    int mapped = 0;
    while (xcb_generic_event_t *event = xcb_wait_for_event(connection)) {
        const bool isMap = (event->response_type & 0x7f) == XCB_MAP_NOTIFY;
        std::free(event);
        if (!isMap || ++mapped != count)
            continue;
        for (const xcb_window_t window : windows)
            std::printf("%u ", window);
        std::printf("\n");
        std::fflush(stdout);
    }
    xcb_disconnect(connection);
    return 0;
}

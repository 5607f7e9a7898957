#include "Desktop/Support/TestPointer.h"

#include <xcb/xtest.h>

namespace Panorel::Desktop {

TestPointer::TestPointer() : m_connection(xcb_connect(nullptr, nullptr))
{
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data->root;
}

void TestPointer::click(int x, int y)
{
    xcb_connection_t *connection = m_connection.get();
    xcb_test_fake_input(connection, XCB_MOTION_NOTIFY, 0, 0, m_root, std::int16_t(x),
                        std::int16_t(y), 0);
    xcb_test_fake_input(connection, XCB_BUTTON_PRESS, 1, 0, XCB_NONE, 0, 0, 0);
    xcb_test_fake_input(connection, XCB_BUTTON_RELEASE, 1, 0, XCB_NONE, 0, 0, 0);
    xcb_flush(connection);
}

} // namespace Panorel::Desktop

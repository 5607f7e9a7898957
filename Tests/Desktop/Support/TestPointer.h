#pragma once

#include "Desktop/Support/TestKeyboard.h"

namespace Panorel::Desktop {

/// The mouse of the test server.
class TestPointer {
public:
    TestPointer();

    /// Moves there, in root coordinates, and presses and releases the first button.
    void click(int x, int y);

private:
    ServerConnection m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
};

} // namespace Panorel::Desktop

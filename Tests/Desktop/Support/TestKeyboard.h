#pragma once

#include "Desktop/Support/DesktopProbe.h"
#include "PanorelCore/Records/Models.h"

#include <functional>

namespace Panorel::Desktop {

/// Types on the test server through its test extension, on an ordinary PC keyboard whose key codes
/// this class knows for itself.
class TestKeyboard {
public:
    static constexpr xcb_keycode_t capsLock = 66;
    static constexpr xcb_keycode_t numLock = 77;

    /// Gives the server a PC keyboard with the US layout.
    TestKeyboard();

    /// Replaces the keymap by what setxkbmap is told: "-layout de".
    void setKeymap(const QString &options);

    /// Down and up. In between, the key is held until the condition is true: it begins to repeat
    /// at once.
    void press(const HotKeyCombo &combo, const std::function<bool()> &until = {});
    void press(xcb_keycode_t key, quint32 modifiers = 0, const std::function<bool()> &until = {});

private:
    void send(bool down, xcb_keycode_t key);
    void sendModifiers(bool down, quint32 modifiers);

    ServerConnection m_connection;
};

/// Another program that uses the keyboard, until it ends.
class KeyboardUser {
public:
    KeyboardUser();
    ~KeyboardUser();

    /// False where it was refused. `modifiers` is the server's mask, taken exactly.
    bool grab(xcb_keycode_t key, std::uint16_t modifiers);
    bool grab(const HotKeyCombo &combo);

private:
    ServerConnection m_connection;
    xcb_window_t m_root = XCB_WINDOW_NONE;
};

} // namespace Panorel::Desktop

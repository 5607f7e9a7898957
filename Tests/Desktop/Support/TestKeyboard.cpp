#include "Desktop/Support/TestKeyboard.h"

#include "Desktop/Support/ChildProcess.h"

#include <xcb/xtest.h>

#include <cstdlib>
#include <map>
#include <vector>

namespace Panorel::Desktop {
namespace {

/// Where a PC keyboard has the keys that tests use, by the combination's code.
const std::map<quint32, xcb_keycode_t> keys{{1, 39},  {6, 52},   {15, 27},  {18, 10},
                                            {16, 29}, {111, 96}, {126, 111}};

struct Modifier {
    quint32 inCombo;
    xcb_keycode_t key;
    std::uint16_t mask;
};
constexpr Modifier modifierKeys[] = {
    {HotKeyCombo::shift, 50, XCB_MOD_MASK_SHIFT},
    {HotKeyCombo::control, 37, XCB_MOD_MASK_CONTROL},
    {HotKeyCombo::option, 64, XCB_MOD_MASK_1},
    {HotKeyCombo::command, 133, XCB_MOD_MASK_4},
};

/// Everything sent so far has been carried out.
void sync(xcb_connection_t *connection)
{
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

} // namespace

TestKeyboard::TestKeyboard() : m_connection(xcb_connect(nullptr, nullptr))
{
    setKeymap(QStringLiteral("-layout us"));
}

void TestKeyboard::setKeymap(const QString &options)
{
    run(QStringLiteral("setxkbmap"), QStringLiteral("-rules evdev -model pc105 -option").split(u' ')
                                         << QString() << options.split(u' '));
}

void TestKeyboard::press(const HotKeyCombo &combo, const std::function<bool()> &until)
{
    press(keys.at(combo.keyCode), combo.modifiers, until);
}

void TestKeyboard::press(xcb_keycode_t key, quint32 modifiers, const std::function<bool()> &until)
{
    if (until)
        run(QStringLiteral("xset"), QStringLiteral("r rate 20 100").split(u' '));
    sendModifiers(true, modifiers);
    send(true, key);
    if (until) {
        sync(m_connection.get());
        require(until, "a repeating key");
    }
    send(false, key);
    sendModifiers(false, modifiers);
    sync(m_connection.get());
}

void TestKeyboard::sendModifiers(bool down, quint32 modifiers)
{
    for (const Modifier &modifier : modifierKeys) {
        if (modifiers & modifier.inCombo)
            send(down, modifier.key);
    }
}

void TestKeyboard::send(bool down, xcb_keycode_t key)
{
    xcb_test_fake_input(m_connection.get(), down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, key,
                        XCB_CURRENT_TIME, XCB_WINDOW_NONE, 0, 0, 0);
}

KeyboardUser::KeyboardUser() : m_connection(xcb_connect(nullptr, nullptr))
{
    xcb_connection_t *server = m_connection.get();
    m_root = xcb_setup_roots_iterator(xcb_get_setup(server)).data->root;
}

KeyboardUser::~KeyboardUser()
{
    // What it held is free on return, and not when the server notices that the connection ended.
    xcb_ungrab_key(m_connection.get(), XCB_GRAB_ANY, m_root, XCB_MOD_MASK_ANY);
    sync(m_connection.get());
}

bool KeyboardUser::grab(xcb_keycode_t key, std::uint16_t modifiers)
{
    const auto cookie = xcb_grab_key_checked(m_connection.get(), 0, m_root, modifiers, key,
                                             XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
    xcb_generic_error_t *error = xcb_request_check(m_connection.get(), cookie);
    std::free(error);
    return !error;
}

bool KeyboardUser::grab(const HotKeyCombo &combo)
{
    std::uint16_t mask = 0;
    for (const Modifier &modifier : modifierKeys)
        mask |= combo.modifiers & modifier.inCombo ? modifier.mask : 0;
    return grab(keys.at(combo.keyCode), mask);
}

} // namespace Panorel::Desktop

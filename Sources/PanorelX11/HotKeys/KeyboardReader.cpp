#include "PanorelX11/HotKeys/KeyboardReader.h"

#define explicit explicit_ // a field of the C header bears the name
#include <xcb/xkb.h>
#undef explicit

#include <cstring>

namespace Panorel::X11 {

namespace {

constexpr xcb_xkb_device_spec_t coreKeyboard = XCB_XKB_ID_USE_CORE_KBD;

QByteArray keyName(const char (&name)[4])
{
    return {name, qsizetype(qstrnlen(name, sizeof name))};
}

} // namespace

KeyboardReader::KeyboardReader(const XConnection &connection) : m_connection(connection)
{
    xcb_connection_t *server = connection.get();
    const auto *extension = xcb_get_extension_data(server, &xcb_xkb_id);
    if (!extension || !extension->present)
        return;
    const auto cookie = xcb_xkb_use_extension(server, XCB_XKB_MAJOR_VERSION, XCB_XKB_MINOR_VERSION);
    const XOwned<xcb_xkb_use_extension_reply_t> reply(
        xcb_xkb_use_extension_reply(server, cookie, nullptr));
    if (!reply || !reply->supported)
        return;
    m_firstEvent = extension->first_event;
    selectEvents();
}

void KeyboardReader::selectEvents() const
{
    constexpr std::uint16_t events = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY
                                     | XCB_XKB_EVENT_TYPE_MAP_NOTIFY
                                     | XCB_XKB_EVENT_TYPE_NAMES_NOTIFY;
    constexpr std::uint16_t map = XCB_XKB_MAP_PART_KEY_SYMS | XCB_XKB_MAP_PART_MODIFIER_MAP;
    xcb_connection_t *server = m_connection.get();
    xcb_xkb_select_events(server, coreKeyboard, events, 0, events, map, map, nullptr);
    constexpr std::uint32_t repeat = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const auto cookie = xcb_xkb_per_client_flags(server, coreKeyboard, repeat, repeat, 0, 0, 0);
    xcb_discard_reply(server, cookie.sequence);
    m_connection.flush();
}

bool KeyboardReader::changed(const xcb_generic_event_t &event) const
{
    if (!m_firstEvent || (event.response_type & 0x7f) != *m_firstEvent)
        return false;
    switch (event.pad0) { // all XKB events share one code and tell themselves apart here
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY:
    case XCB_XKB_NAMES_NOTIFY:
        return true;
    default:
        return false;
    }
}

Keyboard KeyboardReader::read() const
{
    Keyboard keyboard;
    if (!m_firstEvent)
        return keyboard;
    readKeys(keyboard);
    readModifiers(keyboard);
    return keyboard;
}

void KeyboardReader::readKeys(Keyboard &keyboard) const
{
    constexpr std::uint32_t which = XCB_XKB_NAME_DETAIL_KEY_NAMES | XCB_XKB_NAME_DETAIL_KEY_ALIASES;
    const auto cookie = xcb_xkb_get_names(m_connection.get(), coreKeyboard, which);
    const XOwned<xcb_xkb_get_names_reply_t> reply(
        xcb_xkb_get_names_reply(m_connection.get(), cookie, nullptr));
    if (!reply)
        return;
    xcb_xkb_get_names_value_list_t list = {};
    xcb_xkb_get_names_value_list_unpack(xcb_xkb_get_names_value_list(reply.get()), reply->nTypes,
                                        reply->indicators, reply->virtualMods, reply->groupNames,
                                        reply->nKeys, reply->nKeyAliases, reply->nRadioGroups,
                                        reply->which, &list);
    if (reply->which & XCB_XKB_NAME_DETAIL_KEY_NAMES) {
        for (int i = 0; i < reply->nKeys; ++i)
            keyboard.keys.try_emplace(keyName(list.keyNames[i].name),
                                      xcb_keycode_t(reply->firstKey + i));
    }
    keyboard.keys.erase(QByteArray()); // the key codes that no key has
    if (reply->which & XCB_XKB_NAME_DETAIL_KEY_ALIASES) {
        for (int i = 0; i < reply->nKeyAliases; ++i) {
            const auto real = keyboard.keys.find(keyName(list.keyAliases[i].real));
            if (real != keyboard.keys.end())
                keyboard.keys.try_emplace(keyName(list.keyAliases[i].alias), real->second);
        }
    }
}

void KeyboardReader::readModifiers(Keyboard &keyboard) const
{
    xcb_connection_t *server = m_connection.get();
    const xcb_setup_t *setup = xcb_get_setup(server);
    const auto modifierCookie = xcb_get_modifier_mapping(server);
    const auto keysymCookie = xcb_get_keyboard_mapping(
        server, setup->min_keycode, std::uint8_t(setup->max_keycode - setup->min_keycode + 1));
    const XOwned<xcb_get_modifier_mapping_reply_t> modifiers(
        xcb_get_modifier_mapping_reply(server, modifierCookie, nullptr));
    const XOwned<xcb_get_keyboard_mapping_reply_t> keysyms(
        xcb_get_keyboard_mapping_reply(server, keysymCookie, nullptr));
    if (!modifiers || !keysyms)
        return;

    // Eight rows of keys, one row for each modifier; and for each key code a row of keysyms.
    const xcb_keycode_t *keys = xcb_get_modifier_mapping_keycodes(modifiers.get());
    const xcb_keysym_t *symbols = xcb_get_keyboard_mapping_keysyms(keysyms.get());
    const int columns = keysyms->keysyms_per_keycode;
    const int symbolCount = xcb_get_keyboard_mapping_keysyms_length(keysyms.get());
    std::vector<ModifierKey> modifierKeys;
    for (int i = 0; i < xcb_get_modifier_mapping_keycodes_length(modifiers.get()); ++i) {
        const auto mask = std::uint16_t(1u << (i / modifiers->keycodes_per_modifier));
        const int first = (keys[i] - setup->min_keycode) * columns;
        if (first < 0 || first + columns > symbolCount)
            continue; // 0 fills up a row
        for (int column = 0; column < columns; ++column)
            modifierKeys.push_back({mask, symbols[first + column]});
    }
    keyboard.setModifiers(modifierKeys);
}

} // namespace Panorel::X11

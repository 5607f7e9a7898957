#pragma once

#include "PanorelCore/Records/Models.h"

#include <QByteArray>

#include <xcb/xcb.h>

#include <compare>
#include <cstdint>
#include <map>
#include <optional>
#include <vector>

namespace Panorel::X11 {

/// A combination in the server's terms.
struct KeyGrab {
    xcb_keycode_t key = 0;
    std::uint16_t modifiers = 0; ///< exactly these are down, locks aside
    std::uint16_t numLock = 0;   ///< the modifier that is NumLock; 0: there is none

    /// The sets of modifiers under which the user means this combination: as it is, with CapsLock,
    /// with NumLock, with both.
    std::vector<std::uint16_t> variants() const;

    /// Whether a press of `pressed`, reported with `state`, is this combination.
    bool matches(xcb_keycode_t pressed, std::uint16_t state) const;

    auto operator<=>(const KeyGrab &) const = default;
};

/// Keysyms of the keys that carry a modifier, as the server lists them.
struct ModifierKey {
    std::uint16_t mask = 0; ///< XCB_MOD_MASK_SHIFT and so on
    xcb_keysym_t keysym = 0;
};

/// What of the server's keymap decides where a combination sits.
struct Keyboard {
    std::map<QByteArray, xcb_keycode_t> keys; ///< by XKB name, aliases included
    std::uint16_t command = 0;                ///< the modifier of the Super keys; 0: there is none
    std::uint16_t option = 0;                 ///< the modifier of the Alt keys; 0: there is none
    std::uint16_t numLock = 0;

    /// Sets the three modifiers. The lowest modifier that has such a key counts.
    void setModifiers(const std::vector<ModifierKey> &modifierKeys);

    /// Absent where this keyboard lacks the key or one of the modifiers.
    std::optional<KeyGrab> find(const HotKeyCombo &combo) const;

    /// The way back: which key code names the key. Absent: none.
    std::optional<quint32> keyCodeOf(std::uint32_t key) const;
};

} // namespace Panorel::X11

#include "PanorelX11/HotKeys/Keyboard.h"

#include "PanorelX11/HotKeys/KeyPositions.h"

#include <array>

namespace Panorel::X11 {

namespace {

// From the X protocol's list of keysyms.
constexpr xcb_keysym_t keysymNumLock = 0xff7f;
constexpr xcb_keysym_t keysymAltLeft = 0xffe9;
constexpr xcb_keysym_t keysymAltRight = 0xffea;
constexpr xcb_keysym_t keysymSuperLeft = 0xffeb;
constexpr xcb_keysym_t keysymSuperRight = 0xffec;

constexpr std::uint16_t allModifiers = 0xff; ///< what is above are mouse buttons and the group

std::uint16_t lowest(std::uint16_t known, std::uint16_t candidate)
{
    return known == 0 || candidate < known ? candidate : known;
}

} // namespace

std::vector<std::uint16_t> KeyGrab::variants() const
{
    std::vector<std::uint16_t> variants{modifiers};
    for (const std::uint16_t lock : {std::uint16_t(XCB_MOD_MASK_LOCK), numLock}) {
        if (lock == 0 || (variants.back() & lock) != 0)
            continue; // no such lock, or it shares its modifier with what is there already
        const std::size_t without = variants.size();
        for (std::size_t i = 0; i < without; ++i)
            variants.push_back(variants[i] | lock);
    }
    return variants;
}

bool KeyGrab::matches(xcb_keycode_t pressed, std::uint16_t state) const
{
    const std::uint16_t locks = (XCB_MOD_MASK_LOCK | numLock) & ~modifiers;
    return pressed == key && (state & allModifiers & ~locks) == modifiers;
}

void Keyboard::setModifiers(const std::vector<ModifierKey> &modifierKeys)
{
    command = option = numLock = 0;
    for (const auto &[mask, keysym] : modifierKeys) {
        if (keysym == keysymSuperLeft || keysym == keysymSuperRight)
            command = lowest(command, mask);
        else if (keysym == keysymAltLeft || keysym == keysymAltRight)
            option = lowest(option, mask);
        else if (keysym == keysymNumLock)
            numLock = lowest(numLock, mask);
    }
}

std::optional<KeyGrab> Keyboard::find(const HotKeyCombo &combo) const
{
    const auto key = keys.find(keyPosition(combo.keyCode).toByteArray());
    if (key == keys.end())
        return {};
    const std::array<std::pair<quint32, std::uint16_t>, 4> masks{{
        {HotKeyCombo::shift, XCB_MOD_MASK_SHIFT},
        {HotKeyCombo::control, XCB_MOD_MASK_CONTROL},
        {HotKeyCombo::option, option},
        {HotKeyCombo::command, command},
    }};
    KeyGrab grab{key->second, 0, numLock};
    for (const auto &[asked, mask] : masks) {
        if (!(combo.modifiers & asked))
            continue;
        if (mask == 0)
            return {};
        grab.modifiers |= mask;
    }
    return grab;
}

std::optional<quint32> Keyboard::keyCodeOf(std::uint32_t key) const
{
    for (quint32 keyCode = 0; keyCode <= lastKeyCode; ++keyCode) {
        const auto found = keys.find(keyPosition(keyCode).toByteArray());
        if (found != keys.end() && found->second == key)
            return keyCode;
    }
    return {};
}

} // namespace Panorel::X11

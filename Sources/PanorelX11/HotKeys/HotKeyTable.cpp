#include "PanorelX11/HotKeys/HotKeyTable.h"

#include <algorithm>

namespace Panorel::X11 {

HotKeyTable::HotKeyTable(Grab grab, Ungrab ungrab)
    : m_grab(std::move(grab)), m_ungrab(std::move(ungrab))
{}

void HotKeyTable::setKeyboard(Keyboard keyboard)
{
    m_keyboard = std::move(keyboard);
    for (Entry &entry : m_entries)
        entry.grab = m_keyboard.find(entry.combo);
    // Released first: two combinations may have changed places.
    releaseUnused();
    for (const Entry &entry : m_entries) {
        if (entry.grab)
            hold(*entry.grab);
    }
}

bool HotKeyTable::add(HotKeyNumber number, const HotKeyCombo &combo)
{
    const std::optional<KeyGrab> grab = m_keyboard.find(combo);
    if (!grab || !hold(*grab))
        return false;
    m_entries.push_back({number, combo, grab});
    return true;
}

void HotKeyTable::remove(HotKeyNumber number)
{
    std::erase_if(m_entries, [&](const Entry &entry) { return entry.number == number; });
    releaseUnused();
}

std::optional<HotKeyNumber> HotKeyTable::pressed(xcb_keycode_t key, std::uint16_t state) const
{
    for (const Entry &entry : m_entries) {
        if (entry.grab && m_held.contains(*entry.grab) && entry.grab->matches(key, state))
            return entry.number;
    }
    return {};
}

bool HotKeyTable::hold(const KeyGrab &grab)
{
    if (m_held.contains(grab))
        return true;
    if (!m_grab(grab))
        return false;
    m_held.insert(grab);
    return true;
}

void HotKeyTable::releaseUnused()
{
    std::erase_if(m_held, [this](const KeyGrab &held) {
        const bool used =
            std::ranges::any_of(m_entries, [&](const Entry &entry) { return entry.grab == held; });
        if (!used)
            m_ungrab(held);
        return !used;
    });
}

} // namespace Panorel::X11

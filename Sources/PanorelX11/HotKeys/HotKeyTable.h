#pragma once

#include "PanorelPorts/HotKeyPort.h"
#include "PanorelX11/HotKeys/Keyboard.h"

#include <functional>
#include <set>
#include <vector>

namespace Panorel::X11 {

/// Who has registered what, and which grabs that takes: one for each combination, whatever the
/// number of its registrations. Registrations outlive a change of the keyboard that leaves them
/// without their key; they get it back when a later change brings it.
class HotKeyTable {
public:
    /// False where another program has the combination; then nothing of it is grabbed.
    using Grab = std::function<bool(const KeyGrab &)>;
    using Ungrab = std::function<void(const KeyGrab &)>;

    HotKeyTable(Grab grab, Ungrab ungrab);

    /// Moves the grabs to where the keyboard has their keys, and tries those again that were
    /// refused. What stays where it is stays grabbed throughout.
    void setKeyboard(Keyboard keyboard);
    const Keyboard &keyboard() const { return m_keyboard; }

    /// False where the keyboard lacks the combination or it can't be grabbed; then nothing is kept.
    /// No number is used twice.
    bool add(HotKeyNumber number, const HotKeyCombo &combo);

    void remove(HotKeyNumber number);

    /// The earliest registration of what was pressed; absent: none.
    std::optional<HotKeyNumber> pressed(xcb_keycode_t key, std::uint16_t state) const;

private:
    struct Entry {
        HotKeyNumber number = 0;
        HotKeyCombo combo;
        std::optional<KeyGrab> grab; ///< absent: the keyboard lacks it
    };

    bool hold(const KeyGrab &grab);
    void releaseUnused();

    Grab m_grab;
    Ungrab m_ungrab;
    Keyboard m_keyboard;
    std::vector<Entry> m_entries; ///< the earliest first
    std::set<KeyGrab> m_held;
};

} // namespace Panorel::X11

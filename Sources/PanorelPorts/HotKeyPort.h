#pragma once

#include "PanorelCore/Records/Models.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace Panorel {

using HotKeyNumber = std::uint32_t;

/// A combination that the platform delivers to us; destroying it gives the combination back.
class HotKeyRegistration {
public:
    virtual ~HotKeyRegistration() = default;
};

/// Key combinations that reach us whatever program has the focus.
class HotKeyPort {
public:
    virtual ~HotKeyPort() = default;

    /// `pressed` is called on the main thread with the number of the registration whose keys were
    /// pressed, once a press, not while the key repeats. Set once, before the first registration.
    virtual void setPressedCallback(std::function<void(HotKeyNumber)> pressed) = 0;

    /// Null where the platform refuses, for example because another program has the combination;
    /// then nothing of it is held. The combination may be registered already under another
    /// number: the earliest registration of it is the one that is told. The port must outlive the
    /// registration.
    [[nodiscard]] virtual std::unique_ptr<HotKeyRegistration>
    registerHotKey(const HotKeyCombo &combo, HotKeyNumber number) = 0;

    /// The key code of a key that was pressed in a window of ours, from the two numbers that the
    /// toolkit gives with it; each platform knows its keys by one of them. Absent: a key that no
    /// combination can name.
    virtual std::optional<quint32> keyCodeOf(quint32 nativeScanCode,
                                             quint32 nativeVirtualKey) const = 0;

    /// Whether the toolkit reports the Command key of this platform as Control, and Control as
    /// Meta.
    virtual bool isCommandReportedAsControl() const = 0;

    /// The combination as the platform's users know it: "⌥⇧S" or "Alt+Shift+S".
    virtual QString text(const HotKeyCombo &combo) const = 0;
};

} // namespace Panorel

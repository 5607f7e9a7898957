#pragma once

#include "PanorelCore/JSON/ValueCoding.h"
#include "PanorelCore/Records/ModelCoding.h"

namespace Panorel {

/// What the user can set, as plain values. A new one is what a new user has; what each means
/// stands in Prefs.
struct PreferenceValues {
    bool enabled = true;
    bool restoreAutomatically = true;
    bool alsoRestoreSizes = true;
    bool hasOnboarded = false;
    bool showDockIcon = false;
    bool launchAtLogin = false;
    bool placeNewApps = true;
    bool hideOthersOnSwitch = false;
    double displaySettleSeconds = 1.5;
    bool tipDismissed = false;
    std::optional<HotKeyCombo> stashHotKey;
    std::optional<HotKeyCombo> restoreHotKey;
    std::optional<HotKeyCombo> saveLayoutHotKey;
    std::optional<HotKeyCombo> undoHotKey;

    bool operator==(const PreferenceValues &) const = default;
};

template <> struct Fields<PreferenceValues> {
    using R = PreferenceValues;
    // Only a key may be absent, which means that there is none.
    static constexpr auto table = std::make_tuple(
        Field{"enabled", &R::enabled}, Field{"restoreAutomatically", &R::restoreAutomatically},
        Field{"alsoRestoreSizes", &R::alsoRestoreSizes}, Field{"hasOnboarded", &R::hasOnboarded},
        Field{"showDockIcon", &R::showDockIcon}, Field{"launchAtLogin", &R::launchAtLogin},
        Field{"placeNewApps", &R::placeNewApps},
        Field{"hideOthersOnSwitch", &R::hideOthersOnSwitch},
        Field{"displaySettleSeconds", &R::displaySettleSeconds},
        Field{"tipDismissed", &R::tipDismissed}, Field{"stashHotKey", &R::stashHotKey, false},
        Field{"restoreHotKey", &R::restoreHotKey, false},
        Field{"saveLayoutHotKey", &R::saveLayoutHotKey, false},
        Field{"undoHotKey", &R::undoHotKey, false});
};

} // namespace Panorel

#pragma once

#include "PanorelCore/Records/ModelCoding.h"
#include "PanorelCore/Records/PreferenceValues.h"
#include "PanorelCore/Triggers/TriggerCoding.h"

namespace Panorel {

/// Everything that is kept from one run of the program to the next: the body of every file, and
/// the preferences. A plain value, to be carried from one place to another whole.
struct SavedState {
    LayoutFile layouts;
    SceneFile scenes;
    std::vector<AppRule> rules;
    std::vector<TriggerRecord> triggers;
    std::vector<AppPlacement> placements;
    UsageData usage;
    PreferenceValues preferences;

    bool operator==(const SavedState &) const = default;
};

template <> struct Fields<SavedState> {
    using R = SavedState;
    static constexpr auto table = std::make_tuple(
        Field{"layouts", &R::layouts}, Field{"scenes", &R::scenes}, Field{"rules", &R::rules},
        Field{"triggers", &R::triggers}, Field{"placements", &R::placements},
        Field{"usage", &R::usage}, Field{"preferences", &R::preferences});
};

} // namespace Panorel

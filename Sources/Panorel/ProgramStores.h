#pragma once

#include "PanorelCore/State/SavedState.h"
#include "PanorelCore/Stores/AppRuleStore.h"
#include "PanorelCore/Stores/LayoutStore.h"
#include "PanorelCore/Stores/PlacementMemory.h"
#include "PanorelCore/Stores/SceneStore.h"
#include "PanorelCore/Stores/UsageStore.h"
#include "PanorelCore/Triggers/TriggerStore.h"

namespace Panorel {

class Prefs;

/// Every store of the program, loaded from the data directory.
struct ProgramStores {
    /// Both must outlive it.
    ProgramStores(AppLog &log, const Clock &clock)
        : layouts(log, clock), scenes(log, clock), usage(log, clock), rules(log, clock),
          triggers(log, clock), placements(log, clock)
    {}

    /// What they and the preferences hold.
    SavedState state(const Prefs &prefs) const;

    /// Takes the whole state over into stores and preferences. False where a file could not be
    /// written, which the log says.
    bool replace(const SavedState &state, Prefs &prefs);

    LayoutStore layouts;
    SceneStore scenes;
    UsageStore usage;
    AppRuleStore rules;
    TriggerStore triggers;
    PlacementMemory placements;
};

} // namespace Panorel

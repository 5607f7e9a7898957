#include "Panorel/ProgramStores.h"

#include "Panorel/Prefs.h"

namespace Panorel {

SavedState ProgramStores::state(const Prefs &prefs) const
{
    return {layouts.contents(), scenes.contents(), rules.allRules(), triggers.all(),
            placements.all(),   usage.data(),      prefs.values()};
}

bool ProgramStores::replace(const SavedState &state, Prefs &prefs)
{
    bool saved = layouts.replaceAll(state.layouts);
    saved &= scenes.replaceAll(state.scenes);
    saved &= rules.replaceAll(state.rules);
    saved &= triggers.replaceAll(state.triggers);
    saved &= placements.replaceAll(state.placements);
    saved &= usage.replaceAll(state.usage);
    prefs.assignAll(state.preferences);
    return saved;
}

} // namespace Panorel

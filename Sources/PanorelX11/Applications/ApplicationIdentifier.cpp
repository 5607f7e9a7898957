#include "PanorelX11/Applications/ApplicationIdentifier.h"

#include "PanorelX11/Applications/ApplicationRule.h"

namespace Panorel::X11 {

ApplicationIdentity ApplicationIdentifier::identify(const ApplicationFacts &facts)
{
    const auto process = facts.pid ? readProcessFacts(*facts.pid) : std::nullopt;
    const DesktopEntry *entry =
        resolveApplication(m_installed.entries(), facts, process ? &*process : nullptr);
    if (!entry)
        return unclaimedIdentity(facts);
    return {entry->id, entry->name.isEmpty() ? entry->id : entry->name};
}

} // namespace Panorel::X11

#include "Panorel/Commands/Verbs.h"

#include <algorithm>

namespace Panorel {

const Verb *findVerb(const QString &name)
{
    const auto found = std::ranges::find_if(
        verbs, [&](const Verb &verb) { return name == QLatin1String(verb.name); });
    return found == verbs.end() ? nullptr : &*found;
}

} // namespace Panorel

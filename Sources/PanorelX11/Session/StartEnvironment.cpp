#include "PanorelX11/Session/StartEnvironment.h"

#include <optional>
#include <unistd.h>

namespace Panorel::X11 {

namespace {

std::optional<StartEnvironment::Variables> recorded;

} // namespace

void StartEnvironment::record()
{
    recorded = presentVariables();
}

StartEnvironment::Variables StartEnvironment::variables()
{
    return recorded ? *recorded : presentVariables();
}

StartEnvironment::Variables StartEnvironment::presentVariables()
{
    Variables variables;
    for (char **entry = environ; entry && *entry; ++entry) {
        const QByteArray text(*entry);
        if (const qsizetype equals = text.indexOf('='); equals > 0)
            variables.emplace(text.left(equals), text.mid(equals + 1));
    }
    return variables;
}

} // namespace Panorel::X11

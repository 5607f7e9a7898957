#include "MacDoubles/Desktop/MacDesktop.h"

namespace Panorel::MacDoubles {

namespace {

std::unique_ptr<MacDesktop> current;

} // namespace

MacDesktop &desktop()
{
    if (!current)
        current = std::make_unique<MacDesktop>();
    return *current;
}

void resetDesktop()
{
    current.reset();
}

QStringList takeRemains()
{
    QStringList left = desktop().faults + takeLeaks();
    if (sourcesLeft() > 0)
        left << QStringLiteral("a dispatch source");
    if (desktop().launchObservers != 0)
        left << QStringLiteral("an observer of launches");
    if (desktop().isUnsynchronized)
        left << QStringLiteral("preferences that were not handed to the system");
    return left;
}

} // namespace Panorel::MacDoubles

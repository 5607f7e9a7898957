#include "Support/InMemoryPlatform.h"

#include "PanorelCore/Matching/CoordSpace.h"

namespace Panorel {

void InMemoryScreens::plug(const QString &name, const Rect &frame, std::uint32_t serial)
{
    const double primaryHeight =
        displays.empty() ? frame.height : displays.front().screen.frame.height;
    constexpr double menuBar = 25;
    const Rect visible{frame.x, frame.y + menuBar, frame.width, frame.height - menuBar};
    Display display;
    display.screen = {m_nextNumber++, CoordSpace::flip(frame, primaryHeight),
                      CoordSpace::flip(visible, primaryHeight), name};
    display.identity = {name + QStringLiteral("-uuid"), 0x610, 0xA050, serial, displays.empty()};
    displays.push_back(display);
}

void InMemoryScreens::unplug(const QString &name)
{
    std::erase_if(displays,
                  [&](const Display &display) { return display.screen.localizedName == name; });
}

std::vector<Screen> InMemoryScreens::screens()
{
    std::vector<Screen> screens;
    for (const Display &display : displays)
        screens.push_back(display.screen);
    return screens;
}

DisplayIdentity InMemoryScreens::identity(DisplayNumber number)
{
    for (const Display &display : displays) {
        if (display.screen.displayNumber == number)
            return display.identity;
    }
    return {};
}

void InMemoryScreens::setChangeCallback(std::function<void()> changed)
{
    m_changed = std::move(changed);
    ++callbacksSet;
}

} // namespace Panorel

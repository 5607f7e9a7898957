#include "PanorelEngine/Displays/DisplayWatcher.h"

#include "PanorelCore/Desks/ConfigID.h"
#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/Matching/CoordSpace.h"

#include <algorithm>
#include <cmath>

namespace Panorel {

namespace {

double primaryHeight(const std::vector<Screen> &screens)
{
    const auto primary = std::ranges::find(
        screens, Point{0, 0}, [](const Screen &screen) { return screen.frame.origin(); });
    return primary == screens.end() ? screens.front().frame.height : primary->frame.height;
}

QString edidUUID(const DisplayIdentity &identity)
{
    return QString::asprintf("%08X-0000-0000-%04X-%08X", identity.vendorNumber,
                             identity.modelNumber, identity.serialNumber);
}

} // namespace

DisplayWatcher::DisplayWatcher(ScreensPort &screens, Scheduler &scheduler, AppLog &log)
    : m_screens(screens), m_scheduler(scheduler), m_log(log)
{}

DisplayWatcher::~DisplayWatcher()
{
    if (m_started)
        m_screens.setChangeCallback({});
}

void DisplayWatcher::start()
{
    if (m_started)
        return;
    m_started = true;
    m_screens.setChangeCallback([this] { scheduleSettle(); });
    refresh();
}

void DisplayWatcher::refresh()
{
    m_displays = currentDisplays();
    QStringList identifiers;
    for (const DisplayInfo &display : m_displays)
        identifiers.append(display.edidUUID);
    m_configID = ConfigID::compute(identifiers);
}

void DisplayWatcher::scheduleSettle()
{
    constexpr double day = 86400;
    const std::chrono::duration<double> delay(std::clamp(m_settleSeconds, 0.0, day));
    m_settleWork = m_scheduler.runAfter(
        std::chrono::duration_cast<std::chrono::milliseconds>(delay), [this] { settle(); });
}

std::vector<DisplayInfo> DisplayWatcher::currentDisplays() const
{
    return displaysOf(m_screens.screens());
}

bool DisplayWatcher::isCurrent() const
{
    const auto same = [](const DisplayInfo &a, const DisplayInfo &b) {
        return a.uuid == b.uuid && a.edidUUID == b.edidUUID && a.frame == b.frame;
    };
    return std::ranges::equal(displaysOf(m_screens.screensIgnoringPanels()), m_displays, same);
}

std::vector<DisplayInfo> DisplayWatcher::displaysOf(const std::vector<Screen> &screens) const
{
    std::vector<DisplayInfo> displays;
    if (screens.empty())
        return displays;
    const double height = primaryHeight(screens);
    for (const Screen &screen : screens) {
        if (!screen.displayNumber)
            continue;
        const DisplayIdentity identity = m_screens.identity(*screen.displayNumber);
        displays.push_back({identity.uuid.value_or(QString()), edidUUID(identity),
                            screen.localizedName, identity.isBuiltin,
                            CoordSpace::flip(screen.frame, height),
                            CoordSpace::flip(screen.visibleFrame, height)});
    }
    return displays;
}

void DisplayWatcher::settle()
{
    // Kept to the end of the call: it owns the action that is running.
    const std::unique_ptr<ScheduledTask> done = std::move(m_settleWork);
    refresh();
    m_log.log(QStringLiteral("display settled: %1 displays, config %2")
                  .arg(m_displays.size())
                  .arg(m_configID.left(8)));
    if (m_onDeskSettled)
        m_onDeskSettled(m_configID, m_displays);
}

} // namespace Panorel

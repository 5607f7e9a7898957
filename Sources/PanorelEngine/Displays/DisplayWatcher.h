#pragma once

#include "PanorelCore/Records/Models.h"
#include "PanorelPorts/Scheduler.h"
#include "PanorelPorts/ScreensPort.h"

#include <functional>
#include <memory>
#include <vector>

namespace Panorel {

class AppLog;

/// Knows which displays are connected and which desk they make, and announces a desk once the
/// displays have been quiet for the settle delay. One dock or undock is a burst of events; each
/// starts the delay anew. There is one in the program, made by main. Main thread only.
class DisplayWatcher {
public:
    using DeskSettled =
        std::function<void(const QString &configID, const std::vector<DisplayInfo> &displays)>;

    /// The ports and the log must outlive the watcher.
    DisplayWatcher(ScreensPort &screens, Scheduler &scheduler, AppLog &log);
    ~DisplayWatcher();

    /// Reads the displays at once and listens for changes; announces nothing. A second call does
    /// nothing.
    void start();

    /// Reads the displays anew, without waiting for them to settle.
    void refresh();

    /// Restarts the settle delay, as a change of the displays does.
    void scheduleSettle();

    /// Whether a change was seen that has not been announced: what is on the screen is in
    /// motion. Already false when the settled callback runs.
    bool isSettling() const { return m_settleWork != nullptr; }

    /// What is connected at this moment, in the platform's order; the watcher's own list stays.
    std::vector<DisplayInfo> currentDisplays() const;

    /// Whether the displays are those of the last refresh. They are not where a change has not been
    /// announced yet because its event is unread.
    bool isCurrent() const;

    /// As of the last refresh. Frames are in the top-left space.
    const std::vector<DisplayInfo> &displays() const { return m_displays; }
    const QString &configID() const { return m_configID; } ///< empty before start()

    /// Counts from the next change on. Below 0 counts as 0, above a day as a day.
    void setSettleSeconds(double seconds) { m_settleSeconds = seconds; }
    double settleSeconds() const { return m_settleSeconds; }

    void setOnDeskSettled(DeskSettled callback) { m_onDeskSettled = std::move(callback); }

private:
    std::vector<DisplayInfo> displaysOf(const std::vector<Screen> &screens) const;
    void settle();

    ScreensPort &m_screens;
    Scheduler &m_scheduler;
    AppLog &m_log;
    DeskSettled m_onDeskSettled;
    double m_settleSeconds = 1.5;
    std::vector<DisplayInfo> m_displays;
    QString m_configID;
    std::unique_ptr<ScheduledTask> m_settleWork;
    bool m_started = false;
};

} // namespace Panorel

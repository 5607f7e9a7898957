#pragma once

#include "PanorelPorts/AccessibilityPort.h"
#include "PanorelPorts/WindowListPort.h"
#include "PanorelPorts/WorkspacePort.h"

#include <QStringList>

#include <list>

namespace Panorel {

/// A window of the in-memory desktop. A test changes what it likes, at any time.
struct InMemoryWindow {
    int number = 0;
    ProcessIdentifier pid = 0;
    std::optional<QString> title;
    Rect frame;
    bool isMinimized = false;
    bool isFullScreen = false;

    // As the window list shows it.
    bool isOnScreen = true;
    std::optional<std::int64_t> layer = 0;
    std::optional<double> alpha;
    Point boundsOff; ///< how far the listed bounds lie from the frame

    // Misbehaviour on cue.
    bool refusesMoves = false;
    bool vanishesWhenMoved = false;
    bool hidesPosition = false;
    bool hidesSize = false;
    bool losesSizeWhenMoved = false; ///< hides it from then on
    Point landsOff;                  ///< how far from its target it comes to rest
};

/// Applications and windows in memory, behind the three ports through which the engines see a
/// desktop. Shares the real ones' redundancy: a window is listed twice, by its application and by
/// the window server.
class InMemoryDesktop final : public AccessibilityPort,
                              public WindowListPort,
                              public WorkspacePort {
public:
    static constexpr ProcessIdentifier ownPID = 1;

    InMemoryDesktop();

    ProcessIdentifier launch(const QString &bundleID, const std::optional<QString> &name,
                             ActivationPolicy policy = ActivationPolicy::Regular);
    /// The new window is the frontmost. Returns its number.
    int open(ProcessIdentifier pid, const QString &title, const Rect &frame);
    void close(int number);
    InMemoryWindow &window(int number);
    std::vector<RunningApplication> &applications() { return m_applications; }

    bool trusted = true;
    bool listReadable = true;
    int prompts = 0;
    std::optional<int> focused;          ///< the number of the window with the focus
    QStringList journal;                 ///< "position 3", "size 3", "raise 3", in order
    std::function<void()> duringReading; ///< called at every reading of the window list

    // AccessibilityPort
    bool isTrusted() const override { return trusted; }
    void promptForTrust() override { ++prompts; }
    std::vector<WindowAttributes> windows(ProcessIdentifier pid) override;
    void apply(const WindowElementRef &window, std::optional<Point> position,
               std::optional<Size> size) override;
    FrameReading readFrame(const WindowElementRef &window) override;
    void raise(const std::vector<WindowElementRef> &backToFront) override;
    WindowElementRef focusedWindow() override;
    void focus(const WindowElementRef &window) override;

    // WindowListPort
    std::optional<std::vector<WindowListEntry>> onScreenWindows() override;

    // WorkspacePort
    std::vector<RunningApplication> runningApplications() override { return m_applications; }
    ProcessIdentifier ownProcessIdentifier() const override { return ownPID; }
    void hide(ProcessIdentifier pid) override;
    void unhide(ProcessIdentifier pid) override;
    void setLaunchCallback(std::function<void(const RunningApplication &)> launched) override
    {
        m_launched = std::move(launched);
    }

private:
    InMemoryWindow *find(const WindowElementRef &element);

    std::vector<RunningApplication> m_applications;
    std::function<void(const RunningApplication &)> m_launched;
    std::list<InMemoryWindow> m_windows; ///< front to back
    int m_nextNumber = 1;
    ProcessIdentifier m_nextPID = 100;
};

} // namespace Panorel

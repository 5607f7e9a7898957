#pragma once

#include "PanorelPorts/AccessibilityPort.h"
#include "PanorelPorts/WindowListPort.h"
#include "PanorelPorts/WorkspacePort.h"

#include <QStringList>

#include <list>
#include <set>

namespace Panorel {

/// A window of the in-memory desktop. A test changes what it likes, at any time.
struct InMemoryWindow {
    int number = 0;
    ProcessIdentifier pid = 0;
    std::optional<QString> title;
    Rect frame;
    bool isMinimized = false;
    bool isFullScreen = false;
    bool isHidden = false; ///< hide() took it away

    bool isVisible() const { return !isMinimized && !isHidden; }

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
class InMemoryDesktop : public AccessibilityPort, public WindowListPort, public WorkspacePort {
public:
    static constexpr ProcessIdentifier ownPID = 1;

    InMemoryDesktop();

    /// Starts an application and says so at once, before it has a window.
    ProcessIdentifier launch(const QString &bundleID, const std::optional<QString> &name,
                             ActivationPolicy policy = ActivationPolicy::Regular);
    /// The same in two steps: what is opened in between is there when the launch is told.
    ProcessIdentifier add(const std::optional<QString> &bundleID,
                          const std::optional<QString> &name,
                          ActivationPolicy policy = ActivationPolicy::Regular);
    void announceLaunch(ProcessIdentifier pid);
    void quit(ProcessIdentifier pid);

    /// The new window is the frontmost and has the focus. Returns its number.
    int open(ProcessIdentifier pid, const QString &title, const Rect &frame);
    void close(int number);
    void minimize(int number);
    /// The user clicks the window in the task bar: it is visible, in front, and has the focus.
    void activate(int number);
    InMemoryWindow &window(int number);
    /// Front to back.
    const std::list<InMemoryWindow> &allWindows() const { return m_windows; }
    /// The handle that the accessibility port gives for it.
    static WindowElementRef element(int number);
    std::vector<RunningApplication> &applications() { return m_applications; }

    bool trusted = true;
    bool trustIsGranted = true;
    bool listReadable = true;
    int prompts = 0;
    std::optional<int> focused; ///< the number of the window with the focus
    std::set<ProcessIdentifier> refusingToHide;
    QStringList journal; ///< "position 3", "size 3", "raise 3", "hide 100", ..., in order
    std::function<void()> duringReading; ///< called at every reading of the window list
    std::function<void()> duringMove;    ///< called before every window is moved

    // AccessibilityPort
    bool isTrusted() const override { return trusted; }
    bool isTrustGranted() const override { return trustIsGranted; }
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
    std::vector<RunningApplication> runningApplications() override;
    ProcessIdentifier ownProcessIdentifier() const override { return ownPID; }
    void hide(ProcessIdentifier pid) override;
    void unhide(ProcessIdentifier pid) override;
    void setLaunchCallback(std::function<void(const RunningApplication &)> launched) override
    {
        m_launched = std::move(launched);
    }

private:
    InMemoryWindow *find(const WindowElementRef &element);
    RunningApplication *findApplication(ProcessIdentifier pid);
    void moveToFront(int number);
    void passFocusOn();

    std::vector<RunningApplication> m_applications;
    std::function<void(const RunningApplication &)> m_launched;
    std::list<InMemoryWindow> m_windows; ///< front to back
    int m_nextNumber = 1;
    ProcessIdentifier m_nextPID = 100;
};

} // namespace Panorel

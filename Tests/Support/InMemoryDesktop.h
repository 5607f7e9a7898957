#pragma once

#include "PanorelPorts/AccessibilityPort.h"
#include "PanorelPorts/WindowListPort.h"
#include "PanorelPorts/WorkspacePort.h"

#include <QStringList>

#include <algorithm>
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

    /// Starts an application and says so at once, before it has a window.
    ProcessIdentifier launch(const QString &bundleID, const std::optional<QString> &name,
                             ActivationPolicy policy = ActivationPolicy::Regular)
    {
        const ProcessIdentifier pid = add(bundleID, name, policy);
        announceLaunch(pid);
        return pid;
    }
    /// The same in two steps: what is opened in between is there when the launch is told.
    ProcessIdentifier add(const std::optional<QString> &bundleID,
                          const std::optional<QString> &name,
                          ActivationPolicy policy = ActivationPolicy::Regular)
    {
        m_applications.push_back({m_nextPID, policy, bundleID, name, false});
        return m_nextPID++;
    }
    void announceLaunch(ProcessIdentifier pid)
    {
        const RunningApplication launched = *findApplication(pid);
        if (m_launched)
            m_launched(launched);
    }
    void quit(ProcessIdentifier pid)
    {
        m_windows.remove_if([=](const InMemoryWindow &window) { return window.pid == pid; });
        std::erase_if(m_applications,
                      [=](const RunningApplication &running) { return running.pid == pid; });
        passFocusOn();
    }

    /// The new window is the frontmost and has the focus. Returns its number.
    int open(ProcessIdentifier pid, const QString &title, const Rect &frame)
    {
        InMemoryWindow &window = m_windows.emplace_front();
        window.number = m_nextNumber++;
        window.pid = pid;
        window.title = title;
        window.frame = frame;
        focused = window.number;
        return window.number;
    }
    void close(int number)
    {
        m_windows.remove_if([=](const InMemoryWindow &window) { return window.number == number; });
        passFocusOn();
    }
    void minimize(int number)
    {
        window(number).isMinimized = true;
        passFocusOn();
    }
    /// The user clicks the window in the task bar: it is visible, in front, and has the focus.
    void activate(int number)
    {
        window(number).isMinimized = window(number).isHidden = false;
        moveToFront(number);
        focused = number;
    }
    InMemoryWindow &window(int number)
    {
        InMemoryWindow *window = find(number);
        if (!window)
            qFatal("the test asked for window %d, which is gone", number);
        return *window;
    }
    /// Front to back.
    const std::list<InMemoryWindow> &allWindows() const { return m_windows; }
    /// The handle that the accessibility port gives for it.
    static WindowElementRef element(int number) { return std::make_shared<Element>(number); }
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
    std::vector<WindowAttributes> windows(ProcessIdentifier pid) override
    {
        std::vector<WindowAttributes> found;
        for (const InMemoryWindow &window : m_windows) {
            if (window.pid != pid || !trusted)
                continue;
            const WindowElementRef handle = element(window.number);
            const FrameReading frame = readFrame(handle);
            found.push_back({handle, frame.position, frame.size, window.title, window.isMinimized,
                             window.isFullScreen});
        }
        return found;
    }
    void apply(const WindowElementRef &element, std::optional<Point> position,
               std::optional<Size> size) override
    {
        if (duringMove)
            duringMove();
        InMemoryWindow *window = find(element);
        if (!window)
            return;
        if (window->vanishesWhenMoved)
            return close(window->number);
        window->hidesSize |= window->losesSizeWhenMoved;
        if (position)
            note("position", window->number);
        if (size)
            note("size", window->number);
        if (window->refusesMoves)
            return;
        Rect &frame = window->frame;
        if (position)
            frame = Rect::of({position->x + window->landsOff.x, position->y + window->landsOff.y},
                             frame.size());
        if (size)
            frame = Rect::of(frame.origin(), *size);
    }
    FrameReading readFrame(const WindowElementRef &element) override
    {
        FrameReading reading;
        const InMemoryWindow *window = find(element);
        if (window && !window->hidesPosition)
            reading.position = window->frame.origin();
        if (window && !window->hidesSize)
            reading.size = window->frame.size();
        return reading;
    }
    void raise(const std::vector<WindowElementRef> &backToFront) override
    {
        for (const WindowElementRef &element : backToFront) {
            if (const InMemoryWindow *window = find(element)) {
                note("raise", window->number);
                moveToFront(window->number);
            }
        }
    }
    WindowElementRef focusedWindow() override
    {
        const bool isOwn = focused && window(*focused).pid == ownPID;
        return focused && !isOwn ? element(*focused) : nullptr;
    }
    void focus(const WindowElementRef &element) override
    {
        const InMemoryWindow *window = find(element);
        if (!window || !window->isVisible())
            return;
        note("focus", window->number);
        focused = window->number;
    }

    // WindowListPort
    std::optional<std::vector<WindowListEntry>> onScreenWindows() override
    {
        if (duringReading)
            duringReading();
        if (!listReadable)
            return {};
        std::vector<WindowListEntry> entries;
        for (const InMemoryWindow &window : m_windows) {
            if (!window.isVisible() || !window.isOnScreen)
                continue;
            const Rect bounds =
                Rect::of({window.frame.x + window.boundsOff.x, window.frame.y + window.boundsOff.y},
                         window.frame.size());
            entries.push_back({window.layer, window.pid, bounds, window.alpha});
        }
        return entries;
    }

    // WorkspacePort
    std::vector<RunningApplication> runningApplications() override
    {
        // A window that the user has brought back shows that the application isn't hidden any more.
        for (const InMemoryWindow &window : m_windows) {
            if (RunningApplication *owner = findApplication(window.pid);
                owner && window.isVisible())
                owner->isHidden = false;
        }
        return m_applications;
    }
    ProcessIdentifier ownProcessIdentifier() const override { return ownPID; }
    void hide(ProcessIdentifier pid) override
    {
        note("hide", int(pid));
        RunningApplication *application = findApplication(pid);
        if (!application || refusingToHide.contains(pid))
            return;
        application->isHidden = true;
        for (InMemoryWindow &window : m_windows)
            window.isHidden |= window.pid == pid && !window.isMinimized;
        passFocusOn();
    }
    void unhide(ProcessIdentifier pid) override
    {
        note("unhide", int(pid));
        if (RunningApplication *application = findApplication(pid))
            application->isHidden = false;
        for (InMemoryWindow &window : m_windows)
            window.isHidden &= window.pid != pid;
    }
    void setLaunchCallback(std::function<void(const RunningApplication &)> launched) override
    {
        m_launched = std::move(launched);
    }

private:
    struct Element final : WindowElement {
        explicit Element(int window) : number(window) {}
        const int number;
    };

    /// Null where it is gone.
    InMemoryWindow *find(int number)
    {
        const auto found = std::ranges::find(m_windows, number, &InMemoryWindow::number);
        return found == m_windows.end() ? nullptr : &*found;
    }
    InMemoryWindow *find(const WindowElementRef &element)
    {
        return find(static_cast<const Element &>(*element).number);
    }
    RunningApplication *findApplication(ProcessIdentifier pid)
    {
        const auto found = std::ranges::find(m_applications, pid, &RunningApplication::pid);
        return found == m_applications.end() ? nullptr : &*found;
    }
    void moveToFront(int number)
    {
        m_windows.splice(m_windows.begin(), m_windows,
                         std::ranges::find(m_windows, number, &InMemoryWindow::number));
    }
    void note(const char *what, int whom)
    {
        journal.append(QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(whom));
    }
    /// The frontmost window that can have it gets the focus of one that can't keep it.
    void passFocusOn()
    {
        const auto canHaveIt = [](const InMemoryWindow &window) {
            return window.isVisible() && window.layer == 0;
        };
        const InMemoryWindow *holder = focused ? find(*focused) : nullptr;
        if (holder && canHaveIt(*holder))
            return;
        const auto next = std::ranges::find_if(m_windows, canHaveIt);
        focused = next == m_windows.end() ? std::nullopt : std::optional(next->number);
    }

    std::vector<RunningApplication> m_applications{{ownPID, ActivationPolicy::Accessory,
                                                    QStringLiteral("org.panorel.Panorel"),
                                                    QStringLiteral("Panorel"), false}};
    std::function<void(const RunningApplication &)> m_launched;
    std::list<InMemoryWindow> m_windows; ///< front to back
    int m_nextNumber = 1;
    ProcessIdentifier m_nextPID = 100;
};

} // namespace Panorel

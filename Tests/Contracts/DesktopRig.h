#pragma once

#include "PanorelPorts/AccessibilityPort.h"
#include "PanorelPorts/ScreensPort.h"
#include "PanorelPorts/WindowListPort.h"
#include "PanorelPorts/WorkspacePort.h"

#include <QString>
#include <QTest>

namespace Panorel {

/// A desktop that a contract suite can furnish: the in-memory one, or a real server with real
/// windows. Every act is complete, and visible through the ports, when it returns.
class DesktopRig {
public:
    virtual ~DesktopRig() = default;

    virtual AccessibilityPort &accessibility() = 0;
    virtual WindowListPort &windowList() = 0;
    virtual WorkspacePort &workspace() = 0;
    virtual ScreensPort &screens() = 0;

    /// Opens an ordinary window in front, of an application that is started if need be, and
    /// returns its title, which no other window has. `application` is any short name.
    virtual QString open(const QString &application, const Rect &frame) = 0;
    /// An application quits with its last window.
    virtual void close(const QString &title) = 0;
    virtual void minimize(const QString &title) = 0;
    /// The user brings a window that was minimised or hidden back; it may come to the front and
    /// take the focus.
    virtual void restore(const QString &title) = 0;
    /// Neither minimised nor hidden.
    virtual bool isOnScreen(const QString &title) = 0;
    virtual void makeFullScreen(const QString &title) = 0;
    /// The bundle identifier under which the application should be listed.
    virtual QString bundleID(const QString &application) const = 0;
    /// The title of the window with the keyboard focus; empty where none has it.
    virtual QString focused() = 0;

    /// One display of 1920 x 1080 is there from the start; this adds one of 1280 x 1024 to its
    /// right, and takes it away again.
    virtual void plugSecondDisplay() = 0;
    virtual void unplugSecondDisplay() = 0;
    /// Runs the event loop until the condition holds; false when it never does.
    virtual bool waitUntil(const std::function<bool()> &condition)
    {
        return QTest::qWaitFor(condition, 10'000);
    }
};

} // namespace Panorel

#pragma once

#include "Desktop/Support/DesktopProbe.h"
#include "Desktop/Support/TestClient.h"
#include "Desktop/Support/TestServer.h"
#include "Desktop/Support/TestWindowManager.h"
#include "PanorelCore/Stores/AppRuleStore.h"
#include "PanorelEngine/Displays/DisplayWatcher.h"
#include "PanorelEngine/Windows/RestoreEngine.h"
#include "PanorelEngine/Windows/WindowSnapshotter.h"
#include "PanorelPorts/Platform.h"
#include "Support/FakeScheduler.h"
#include "Support/TestDataDir.h"

namespace Panorel::Desktop {

/// "title at x,y widthxheight", exact.
QString described(const QString &title, const Rect &frame);

/// A whole X session, two displays side by side, with the engines on the real platform: what the
/// program would do on it, step by step.
class DesktopSession {
public:
    /// "openbox", "xfwm4", or empty for none.
    explicit DesktopSession(const QString &windowManager);

    /// Opens a window and puts its frame there, as far as the window allows.
    TestClient &open(ClientKind kind, const QString &title, const Rect &frame,
                     const QStringList &options = {});

    /// The desk as the program would learn it.
    Layout capture();
    RestoreReport restore(const Layout &layout);

    /// Every window with its frame as seen from outside the program, ordered by title.
    QStringList frames() const;

    void moveAndWait(const TestClient &client, const Rect &frame);
    void setStateAndWait(const TestClient &client, bool on, const char *first,
                         const char *second = nullptr);
    void activateAndWait(const TestClient &client);

    TestServer server;
    DesktopProbe probe;
    std::unique_ptr<TestWindowManager> manager;
    TestDataDir data;
    std::unique_ptr<Platform> platform;
    FakeScheduler scheduler{data.clock};
    std::list<TestClient> clients;

private:
    AppRuleStore m_rules;
    WindowSnapshotter m_snapshotter;
    RestoreEngine m_engine;
    DisplayWatcher m_watcher;
};

} // namespace Panorel::Desktop

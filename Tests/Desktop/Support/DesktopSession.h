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

#include <random>

namespace Panorel::Desktop {

/// "title at x,y widthxheight", exact.
QString described(const QString &title, const Rect &frame);

constexpr auto vertically = "_NET_WM_STATE_MAXIMIZED_VERT";
constexpr auto horizontally = "_NET_WM_STATE_MAXIMIZED_HORZ";
constexpr auto fullScreen = "_NET_WM_STATE_FULLSCREEN";

/// A whole X session with its windows, as their user sees it.
class DesktopSession {
public:
    /// One that managerKind() knows, or empty for none.
    explicit DesktopSession(const QString &windowManager = QStringLiteral("openbox"),
                            const std::vector<Plugged> &outputs = sideBySide());

    /// Opens a window and puts its frame there, as far as the window allows. A plain one may be of
    /// a named application.
    TestClient &open(ClientKind kind, const QByteArray &title, const Rect &frame,
                     const QString &application = {});
    void close(const QString &title);
    /// One window of each kind, over both displays, one across the border where windows may be.
    void openEveryKind();

    /// Every window with its frame as seen from outside the program, ordered by title.
    QStringList frames() const;
    bool isAt(const TestClient &client, const Rect &frame) const
    {
        return probe.frame(client.window()) == frame;
    }
    bool isMinimised(const TestClient &client) const
    {
        return probe.hasState(client.window(), "_NET_WM_STATE_HIDDEN");
    }

    /// Every window is somewhere else when this returns, each on one of the two displays. One of
    /// the first `maximisable` is maximised.
    void scatter(std::mt19937 &random, unsigned maximisable);
    void moveAndWait(const TestClient &client, const Rect &frame);
    void setStateAndWait(const TestClient &client, bool on, const char *first,
                         const char *second = nullptr);
    void minimiseAndWait(const TestClient &client);
    void activateAndWait(const TestClient &client);
    void sendToDesktopAndWait(const TestClient &client, std::uint32_t desktop);

    TestServer server;
    DesktopProbe probe;
    std::unique_ptr<TestWindowManager> manager;
    std::list<TestClient> clients;
};

/// The same with the engines on the real platform: what the program would do on it, step by step.
class EngineSession : public DesktopSession {
public:
    using DesktopSession::DesktopSession;

    /// The desk as the program would learn it.
    Layout capture();
    RestoreReport restore(const Layout &layout) { return m_engine.apply(layout, true); }

    TestDataDir data;
    std::unique_ptr<Platform> platform = makePlatform(data.log, data.clock);

private:
    FakeScheduler m_scheduler{data.clock};
    AppRuleStore m_rules{data.log, data.clock};
    WindowSnapshotter m_snapshotter{platform->accessibility(), platform->windowList(),
                                    platform->workspace()};
    RestoreEngine m_engine{m_rules, m_snapshotter, platform->accessibility(), data.log, data.clock};
    DisplayWatcher m_watcher{platform->screens(), m_scheduler, data.log};
};

} // namespace Panorel::Desktop

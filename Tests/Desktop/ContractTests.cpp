#include "Contracts/AccessibilityContract.h"
#include "Contracts/ScreensContract.h"
#include "Contracts/UserDefaultsContract.h"
#include "Contracts/WorkspaceContract.h"
#include "Desktop/Support/DesktopProbe.h"
#include "Desktop/Support/TestClient.h"
#include "Desktop/Support/TestServer.h"
#include "Desktop/Support/TestWindowManager.h"
#include "PanorelPorts/Platform.h"
#include "Support/TestDataDir.h"

#include <QTest>

#include <map>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

/// The contract suites' desktop on a real server.
class RealRig final : public DesktopRig {
public:
    explicit RealRig(const QString &windowManager) : manager(windowManager) {}

    AccessibilityPort &accessibility() override { return platform->accessibility(); }
    WindowListPort &windowList() override { return platform->windowList(); }
    WorkspacePort &workspace() override { return platform->workspace(); }
    ScreensPort &screens() override { return platform->screens(); }

    QString open(const QString &application, const Rect &frame) override
    {
        const QString title = QStringLiteral("%1 %2").arg(application).arg(++m_opened);
        TestClient &client = m_clients
                                 .try_emplace(title, ClientKind::Plain, title,
                                              QStringList{QStringLiteral("--class"), application})
                                 .first->second;
        m_probe.move(client.window(), frame);
        m_probe.activate(client.window());
        require(
            [&] {
                return m_probe.frame(client.window()) == frame
                       && m_probe.activeWindow() == client.window()
                       && m_probe.stacking().back() == client.window();
            },
            "an open window");
        return title;
    }
    void close(const QString &title) override
    {
        m_clients.erase(title);
        require([&] { return !m_probe.find(title); }, "a closed window");
    }
    void minimize(const QString &title) override
    {
        m_probe.minimise(window(title));
        awaitState(title, "_NET_WM_STATE_HIDDEN");
    }
    void restore(const QString &title) override
    {
        m_probe.activate(window(title));
        require([&] { return isOnScreen(title); }, "a restored window");
    }
    bool isOnScreen(const QString &title) override
    {
        return !m_probe.hasState(window(title), "_NET_WM_STATE_HIDDEN");
    }
    void makeFullScreen(const QString &title) override
    {
        m_probe.setState(window(title), true, "_NET_WM_STATE_FULLSCREEN");
        awaitState(title, "_NET_WM_STATE_FULLSCREEN");
    }
    QString bundleID(const QString &application) const override
    {
        return QStringLiteral("wmclass:") + application;
    }
    QString focused() override
    {
        const std::optional<xcb_window_t> active = m_probe.activeWindow();
        return active ? m_probe.title(*active) : QString();
    }
    void plugSecondDisplay() override
    {
        server.plug({{.output = 0}, {.output = 1, .x = 1920, .width = 1280, .height = 1024}});
    }
    void unplugSecondDisplay() override { server.plug({{.output = 0}}); }
    bool waitUntil(const std::function<bool()> &condition) override
    {
        return Desktop::waitUntil(condition);
    }

    TestServer server;
    TestWindowManager manager;
    TestDataDir data;
    std::unique_ptr<Platform> platform = makePlatform(data.log, data.clock);

private:
    xcb_window_t window(const QString &title) const { return m_clients.at(title).window(); }
    void awaitState(const QString &title, const char *state)
    {
        require([&] { return m_probe.hasState(window(title), state); }, state);
    }

    DesktopProbe m_probe;
    std::map<QString, TestClient> m_clients;
    int m_opened = 0;
};

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    int failures = 0;
    for (const char *windowManager : {"openbox", "xfwm4"}) {
        qInfo("under %s", windowManager);
        RealRig rig(QString::fromLatin1(windowManager));
        AccessibilityContract windows(rig);
        WorkspaceContract workspace(rig);
        ScreensContract screens(rig);
        UserDefaultsContract defaults(rig.platform->userDefaults());
        for (QObject *contract :
             std::initializer_list<QObject *>{&windows, &workspace, &screens, &defaults})
            failures += QTest::qExec(contract);
    }
    return failures;
}

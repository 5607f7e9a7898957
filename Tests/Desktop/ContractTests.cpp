#include "Contracts/AccessibilityContract.h"
#include "Contracts/ScreensContract.h"
#include "Contracts/UserDefaultsContract.h"
#include "Contracts/WorkspaceContract.h"
#include "Desktop/Support/DesktopSession.h"

#include <QTest>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

/// The contract suites' desktop on a real server.
class RealRig final : public DesktopRig {
public:
    explicit RealRig(const QString &windowManager) : session(windowManager, {Plugged{}}) {}

    AccessibilityPort &accessibility() override { return session.platform->accessibility(); }
    WindowListPort &windowList() override { return session.platform->windowList(); }
    WorkspacePort &workspace() override { return session.platform->workspace(); }
    ScreensPort &screens() override { return session.platform->screens(); }

    QString open(const QString &application, const Rect &frame) override
    {
        const QString title = QStringLiteral("%1 %2").arg(application).arg(++m_opened);
        const TestClient &client =
            session.open(ClientKind::Plain, title.toUtf8(), frame, application);
        session.activateAndWait(client);
        require([&] { return session.isAt(client, frame); }, "an open window");
        return title;
    }
    void close(const QString &title) override { session.close(title); }
    void minimize(const QString &title) override { session.minimiseAndWait(client(title)); }
    void restore(const QString &title) override
    {
        session.probe.activate(client(title).window());
        require([&] { return isOnScreen(title); }, "a restored window");
    }
    bool isOnScreen(const QString &title) override { return !session.isMinimised(client(title)); }
    void makeFullScreen(const QString &title) override
    {
        session.setStateAndWait(client(title), true, fullScreen);
    }
    QString bundleID(const QString &application) const override
    {
        return QStringLiteral("wmclass:") + application;
    }
    QString focused() override
    {
        const std::optional<xcb_window_t> active = session.probe.activeWindow();
        return active ? session.probe.title(*active) : QString();
    }
    void plugSecondDisplay() override
    {
        session.server.plug(
            {{.output = 0}, {.output = 1, .x = 1920, .width = 1280, .height = 1024}});
    }
    void unplugSecondDisplay() override { session.server.plug({{.output = 0}}); }

    EngineSession session;

private:
    const TestClient &client(const QString &title) const
    {
        return *std::ranges::find_if(session.clients, [&](const TestClient &open) {
            return session.probe.title(open.window()) == title;
        });
    }

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
        UserDefaultsContract defaults(rig.session.platform->userDefaults());
        for (QObject *contract :
             std::initializer_list<QObject *>{&windows, &workspace, &screens, &defaults})
            failures += QTest::qExec(contract);
    }
    return failures;
}

#include "Desktop/Support/DesktopSession.h"

#include <QTest>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

class Desk : public EngineSession {
public:
    Desk() : EngineSession(managerOfThisRun()) {}

    std::vector<RunningApplication> applications()
    {
        return platform->workspace().runningApplications();
    }
    void setAllHidden(bool areHidden)
    {
        WorkspacePort &workspace = platform->workspace();
        for (const RunningApplication &application : applications())
            areHidden ? workspace.hide(application.pid) : workspace.unhide(application.pid);
    }
    /// Bottom to top, of those that are not minimised.
    QStringList shown() const
    {
        QStringList titles;
        for (const xcb_window_t window : probe.stacking()) {
            if (!probe.hasState(window, "_NET_WM_STATE_HIDDEN"))
                titles << probe.title(window);
        }
        return titles;
    }
};

} // namespace

/// Hiding, focus and launches on real window managers with real programs.
class HidingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { forEachManager(); }

    void aDeskOfManyProgramsComesBackAsItWas();
    void aChangeOfMindIsFollowed();
    void onlyRealLaunchesAreAnnounced();
};

void HidingTest::aDeskOfManyProgramsComesBackAsItWas()
{
    Desk desk;
    desk.probe.setDesktopCount(2);
    desk.openEveryKind();
    const TestClient &there = desk.open(ClientKind::Plain, "there", {400, 500, 500, 400});
    desk.sendToDesktopAndWait(there, 1);
    const auto client = [&](int i) -> TestClient & { return *std::next(desk.clients.begin(), i); };
    for (const int i : {3, 7})
        desk.minimiseAndWait(client(i));
    for (const int i : {2, 5, 1, 4, 0, 6})
        desk.activateAndWait(client(i));
    const QStringList frames = desk.frames();
    const QStringList order = desk.shown();

    const auto listed = [&] {
        std::vector<Rect> bounds;
        const auto list = desk.platform->windowList().onScreenWindows();
        for (const WindowListEntry &entry : list.value())
            bounds.push_back(entry.bounds.value());
        return bounds;
    };
    const std::vector<Rect> before = listed();
    const WindowElementRef focused = desk.platform->accessibility().focusedWindow();
    desk.setAllHidden(true);
    QTRY_COMPARE(desk.shown().size(), 0);
    desk.setAllHidden(false);
    // Never a frame of an animation.
    QStringList strange;
    QVERIFY(Desktop::waitUntil([&] {
        for (const Rect &bounds : listed()) {
            if (std::ranges::find(before, bounds) == before.end())
                strange << described(QStringLiteral("something"), bounds);
        }
        return listed() == before;
    }));
    QVERIFY2(strange.isEmpty(), qPrintable(strange.join(u' ')));
    desk.platform->accessibility().focus(focused);
    QCOMPARE(desk.probe.activeWindow(), std::optional(client(6).window()));
    QCOMPARE(desk.shown(), order);
    QCOMPARE(desk.frames(), frames);
    QCOMPARE(desk.probe.desktopOf(there.window()), std::optional(1U));
    QCOMPARE(desk.probe.currentDesktop(), std::optional(0U));
}

void HidingTest::aChangeOfMindIsFollowed()
{
    Desk desk;
    const TestClient &first =
        desk.open(ClientKind::GtkDecorated, "first.tar", {100, 100, 600, 400});
    const TestClient &second = desk.open(ClientKind::Plain, "second", {400, 300, 600, 400});
    desk.activateAndWait(second);
    const Layout learned = desk.capture();
    const QStringList frames = desk.frames();

    desk.setAllHidden(true);
    desk.setAllHidden(false); // before anything was hidden
    QCOMPARE(desk.restore(learned).restored, 2);
    QTRY_COMPARE(desk.shown().size(), 2);
    QCOMPARE(desk.frames(), frames);

    desk.setAllHidden(true);
    QTRY_COMPARE(desk.shown().size(), 0);
    desk.setAllHidden(false);
    desk.setAllHidden(true); // before anything was back
    desk.restore(learned);
    QTRY_COMPARE(desk.applications().front().isHidden, true);
    QTRY_COMPARE(desk.shown().size(), 0);
    desk.manager.reset();
    desk.manager = std::make_unique<TestWindowManager>(managerOfThisRun()); // takes the hidden over
    desk.moveAndWait(first, {900, 500, 600, 400}); // somebody moves what is not to be seen
    desk.setAllHidden(false);
    QTRY_COMPARE(desk.shown().size(), 2);
    desk.restore(learned);
    QCOMPARE(desk.frames(), frames);
}

void HidingTest::onlyRealLaunchesAreAnnounced()
{
    Desk desk;
    desk.open(ClientKind::Plain, "old", {100, 100, 400, 300});
    QStringList launched; // classes of the applications that were announced
    desk.platform->workspace().setLaunchCallback([&](const RunningApplication &application) {
        launched << application.bundleID.value().section(u':', 1);
    });
    const auto launch = [&](const char *name) {
        desk.clients.emplace_back(ClientKind::Plain, name,
                                  QStringList{u"--class"_qs, QLatin1String(name)});
    };
    launch("New");
    QTRY_COMPARE(launched, QStringList{u"New"_qs});

    // A window manager that starts finds every window anew.
    desk.manager.reset();
    launch("Between");
    desk.manager = std::make_unique<TestWindowManager>(managerOfThisRun());
    QTRY_COMPARE(desk.probe.stacking().size(), 3U);
    // Its arrival has been sent to everybody; in the second round the timer is over.
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    launch("Last");
    QTRY_COMPARE(launched, QStringList({u"New"_qs, u"Last"_qs}));
}

QTEST_GUILESS_MAIN(HidingTest)
#include "HidingTest.moc"

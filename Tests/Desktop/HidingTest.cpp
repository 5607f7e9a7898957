#include "Desktop/Support/DesktopSession.h"

#include <QTest>

#include <array>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

constexpr char skipped[] = "_NET_WM_STATE_SKIP_TASKBAR";

class Desk : public EngineSession {
public:
    Desk() : EngineSession(managerOfThisRun()) {}

    WorkspacePort &workspace() { return platform->workspace(); }

    std::vector<RunningApplication> applications() { return workspace().runningApplications(); }
    void hideAll()
    {
        for (const RunningApplication &application : applications())
            workspace().hide(application.pid);
    }
    void unhideAll()
    {
        for (const RunningApplication &application : applications())
            workspace().unhide(application.pid);
    }
    WindowElementRef element(const TestClient &client)
    {
        for (const RunningApplication &application : applications()) {
            for (const WindowAttributes &window :
                 platform->accessibility().windows(application.pid)) {
                if (window.title == probe.title(client.window()))
                    return window.element;
            }
        }
        return nullptr;
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
    bool awaitShown(qsizetype count)
    {
        return Desktop::waitUntil([&] { return shown().size() == count; });
    }
};

/// A window of an application of that name, which has such an atom or does what the option says.
TestClient odd(const char *name, const QStringList &options = {})
{
    return {ClientKind::Plain, name,
            QStringList{QStringLiteral("--class"), QLatin1String(name)} + options};
}

} // namespace

/// Hiding, focus and launches on real window managers with real programs.
class HidingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { forEachManager(); }

    void aDeskOfManyProgramsComesBackAsItWas();
    void aChangeOfMindIsFollowed();
    void windowsOfOtherDesktopsComeBackWithoutASwitch();
    void aProgramThatTakesTheFocusItselfIsOfferedIt();
    void onlyRealLaunchesAreAnnounced();
};

void HidingTest::aDeskOfManyProgramsComesBackAsItWas()
{
    Desk desk;
    const std::array kinds{ClientKind::Plain,      ClientKind::GtkDecorated,  ClientKind::Qt,
                           ClientKind::Increments, ClientKind::StaticGravity, ClientKind::SouthEast,
                           ClientKind::Plain,      ClientKind::Plain};
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        desk.open(kinds[i], "window " + QByteArray::number(i) + ".tar",
                  {50.0 + 210 * double(i), 60.0 + 40 * double(i), 500, 400},
                  kinds[i] != ClientKind::Plain ? QString()
                  : i == 0                      ? QStringLiteral("One")
                                                : QStringLiteral("Other"));
    }
    const auto client = [&](int i) -> TestClient & { return *std::next(desk.clients.begin(), i); };
    for (const int i : {3, 6})
        desk.minimiseAndWait(client(i));
    for (const int i : {2, 5, 1, 4, 0})
        desk.activateAndWait(client(i));
    const QStringList frames = desk.frames();
    const QStringList order = desk.shown();
    QCOMPARE(order.size(), 6);

    const auto listed = [&] {
        std::vector<Rect> bounds;
        const auto list = desk.platform->windowList().onScreenWindows();
        for (const WindowListEntry &entry : list.value())
            bounds.push_back(entry.bounds.value());
        return bounds;
    };
    const std::vector<Rect> before = listed();
    const WindowElementRef focused = desk.platform->accessibility().focusedWindow();
    desk.hideAll();
    QVERIFY(desk.awaitShown(0));
    desk.unhideAll();
    // Never a frame of an animation.
    QStringList strange;
    QVERIFY(Desktop::waitUntil([&] {
        for (const Rect &bounds : listed()) {
            if (std::ranges::find(before, bounds) == before.end())
                strange << described(QStringLiteral("something"), bounds);
        }
        return listed() == before;
    }));
    QCOMPARE(strange, QStringList());
    desk.platform->accessibility().focus(focused);
    QCOMPARE(desk.probe.activeWindow(), std::optional(client(0).window()));
    QCOMPARE(desk.shown(), order);
    QCOMPARE(desk.frames(), frames);
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

    desk.hideAll();
    desk.unhideAll(); // before anything was hidden
    QCOMPARE(desk.restore(learned).restored, 2);
    QVERIFY(desk.awaitShown(2));
    QCOMPARE(desk.frames(), frames);

    desk.hideAll();
    QVERIFY(desk.awaitShown(0));
    desk.unhideAll();
    desk.hideAll(); // before anything was back
    desk.restore(learned);
    QTRY_COMPARE(desk.applications().front().isHidden, true);
    QVERIFY(desk.awaitShown(0));
    for (const TestClient *client : {&first, &second})
        QVERIFY(desk.element(*client));
    desk.manager.reset();
    desk.manager = std::make_unique<TestWindowManager>(managerOfThisRun()); // takes the hidden over
    desk.moveAndWait(first, {900, 500, 600, 400}); // somebody moves what is not to be seen
    desk.unhideAll();
    QVERIFY(desk.awaitShown(2));
    desk.restore(learned);
    QCOMPARE(desk.frames(), frames);
}

void HidingTest::windowsOfOtherDesktopsComeBackWithoutASwitch()
{
    Desk desk;
    desk.probe.setDesktopCount(2);
    const auto open = [&](const char *title, const Rect &frame) -> const TestClient & {
        return desk.open(ClientKind::Plain, title, frame, QString::fromLatin1(title));
    };
    const TestClient &there = open("there", {100, 100, 400, 300});
    const TestClient &here = open("here", {600, 100, 400, 300});
    desk.sendToDesktopAndWait(there, 1);
    desk.activateAndWait(here);
    desk.hideAll();
    QVERIFY(desk.awaitShown(0));
    desk.unhideAll();
    desk.platform->accessibility().focus(desk.element(there));
    desk.platform->accessibility().raise({desk.element(there)});
    QVERIFY(desk.awaitShown(2));
    QCOMPARE(desk.probe.currentDesktop(), std::optional(0U));
    QCOMPARE(desk.probe.desktopOf(there.window()), std::optional(1U));
    QVERIFY(desk.probe.activeWindow() != there.window());
}

void HidingTest::aProgramThatTakesTheFocusItselfIsOfferedIt()
{
    Desk desk;
    const TestClient taker = odd("Odd", {QStringLiteral("--takes-focus")});
    desk.activateAndWait(desk.open(ClientKind::Plain, "other", {600, 100, 400, 300}));
    const auto order = desk.probe.stacking();
    desk.platform->accessibility().focus(desk.element(taker));
    QCOMPARE(desk.probe.activeWindow(), std::optional(taker.window()));
    QCOMPARE(desk.probe.stacking(), order);
}

void HidingTest::onlyRealLaunchesAreAnnounced()
{
    Desk desk;
    desk.open(ClientKind::Plain, "old", {100, 100, 400, 300});
    QStringList launched; // classes of the applications that were announced
    desk.workspace().setLaunchCallback([&](const RunningApplication &application) {
        launched << application.bundleID.value().section(u':', 1);
    });
    const auto atom = [](const char *property, const char *value) {
        return QStringList{QStringLiteral("--atom"),
                           QLatin1String(property) + u'=' + QLatin1String(value)};
    };
    const TestClient splash =
        odd("Splash", atom("_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_SPLASH"));
    const TestClient tool = odd("Tool", atom("_NET_WM_STATE", skipped));
    const TestClient added = odd("New");
    QTRY_COMPARE(launched, QStringList{QStringLiteral("New")});

    // What another call takes in on the way is announced all the same, but not from within it.
    desk.probe.setState(tool.window(), false, skipped);
    while (desk.probe.hasState(tool.window(), skipped))
        continue;
    QVERIFY(desk.platform->accessibility().isTrusted());
    QCOMPARE(launched.size(), 1);
    QTRY_COMPARE(launched.mid(1), QStringList{QStringLiteral("Tool")});

    // A window manager that starts finds every window anew.
    desk.manager.reset();
    const TestClient between = odd("Between");
    desk.manager = std::make_unique<TestWindowManager>(managerOfThisRun());
    QTRY_COMPARE(desk.probe.stacking().size(), 5U);
    // Its arrival has been sent to everybody; in the second round the timer is over.
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    const TestClient last = odd("Last");
    QTRY_COMPARE(launched.mid(2), QStringList{QStringLiteral("Last")});
}

QTEST_GUILESS_MAIN(HidingTest)
#include "HidingTest.moc"

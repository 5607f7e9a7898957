#include "Desktop/Support/DesktopSession.h"

#include <QTest>

#include <xcb/xcb_icccm.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <thread>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

constexpr char minimised[] = "_NET_WM_STATE_HIDDEN";
constexpr char skipped[] = "_NET_WM_STATE_SKIP_TASKBAR";

/// A window that the test itself owns, for what no well-behaved program does.
class OddWindow {
public:
    explicit OddWindow(const char *name) : m_connection(xcb_connect(nullptr, nullptr))
    {
        const auto *screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection.get())).data;
        m_id = xcb_generate_id(m_connection.get());
        xcb_create_window(m_connection.get(), XCB_COPY_FROM_PARENT, m_id, screen->root, 0, 0, 300,
                          200, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, screen->root_visual, 0, nullptr);
        const QByteArray wmClass = QByteArray(name) + '\0' + name + '\0';
        xcb_icccm_set_wm_class(m_connection.get(), m_id, std::uint32_t(wmClass.size()), wmClass);
        xcb_icccm_set_wm_name(m_connection.get(), m_id, XCB_ATOM_STRING, 8,
                              std::uint32_t(std::strlen(name)), name);
    }

    xcb_window_t id() const { return m_id; }
    void setAtom(const char *property, const char *value)
    {
        const xcb_atom_t wanted = atom(value);
        xcb_change_property(m_connection.get(), XCB_PROP_MODE_REPLACE, m_id, atom(property),
                            XCB_ATOM_ATOM, 32, 1, &wanted);
        xcb_flush(m_connection.get());
    }
    void show()
    {
        xcb_map_window(m_connection.get(), m_id);
        xcb_flush(m_connection.get());
    }
    /// It says that it takes the focus itself when asked to.
    void askForFocus()
    {
        xcb_icccm_wm_hints_t hints{};
        xcb_icccm_wm_hints_set_input(&hints, 0);
        xcb_icccm_set_wm_hints(m_connection.get(), m_id, &hints);
        setAtom("WM_PROTOCOLS", "WM_TAKE_FOCUS");
    }
    /// And does so; the server refuses a time that is none.
    int answerOffers()
    {
        int offers = 0;
        while (xcb_generic_event_t *event = xcb_poll_for_event(m_connection.get())) {
            const auto *message = reinterpret_cast<xcb_client_message_event_t *>(event);
            if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE
                && message->data.data32[0] == atom("WM_TAKE_FOCUS")) {
                ++offers;
                xcb_set_input_focus(m_connection.get(), XCB_INPUT_FOCUS_PARENT, m_id,
                                    message->data.data32[1]);
            }
            std::free(event);
        }
        xcb_flush(m_connection.get());
        return offers;
    }

private:
    xcb_atom_t atom(const char *name)
    {
        auto *reply = xcb_intern_atom_reply(
            m_connection.get(),
            xcb_intern_atom(m_connection.get(), 0, std::uint16_t(std::strlen(name)), name),
            nullptr);
        const xcb_atom_t value = reply->atom;
        std::free(reply);
        return value;
    }

    ServerConnection m_connection;
    xcb_window_t m_id = XCB_WINDOW_NONE;
};

class Desk : public DesktopSession {
public:
    using DesktopSession::DesktopSession;

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
            if (!probe.hasState(window, minimised))
                titles << probe.title(window);
        }
        return titles;
    }
    bool awaitShown(qsizetype count)
    {
        return Desktop::waitUntil([&] { return shown().size() == count; });
    }
    /// Classes of the applications that were announced.
    void listen()
    {
        workspace().setLaunchCallback([this](const RunningApplication &application) {
            launched << application.bundleID.value().section(u':', 1);
        });
    }

    QStringList launched;
};

QStringList withClass(const char *name)
{
    return {QStringLiteral("--class"), QString::fromLatin1(name)};
}

} // namespace

/// Hiding, focus and launches on real window managers with real programs.
class HidingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aDeskOfManyProgramsComesBackAsItWas_data() { forEachManager(); }
    void aDeskOfManyProgramsComesBackAsItWas();
    void aChangeOfMindIsFollowed_data() { forEachManager(); }
    void aChangeOfMindIsFollowed();
    void windowsOfOtherDesktopsComeBackWithoutASwitch_data() { forEachManager(); }
    void windowsOfOtherDesktopsComeBackWithoutASwitch();
    void aProgramThatTakesTheFocusItselfIsOfferedIt_data() { forEachManager(); }
    void aProgramThatTakesTheFocusItselfIsOfferedIt();
    void onlyRealLaunchesAreAnnounced_data() { forEachManager(); }
    void onlyRealLaunchesAreAnnounced();
};

void HidingTest::aDeskOfManyProgramsComesBackAsItWas()
{
    QFETCH(QString, manager);
    Desk desk(manager);
    const std::array kinds{ClientKind::Plain,      ClientKind::GtkDecorated,  ClientKind::Qt,
                           ClientKind::Increments, ClientKind::StaticGravity, ClientKind::SouthEast,
                           ClientKind::Plain,      ClientKind::Plain};
    for (std::size_t i = 0; i < kinds.size(); ++i) {
        const QString title = QStringLiteral("window %1.tar").arg(i);
        desk.open(kinds[i], title, {50.0 + 210 * double(i), 60.0 + 40 * double(i), 500, 400},
                  kinds[i] == ClientKind::Plain ? withClass(i ? "Other" : "One") : QStringList());
    }
    const auto client = [&](int i) -> TestClient & { return *std::next(desk.clients.begin(), i); };
    for (const int i : {3, 6}) {
        desk.probe.minimise(client(i).window());
        require([&] { return desk.probe.hasState(client(i).window(), minimised); }, "minimised");
    }
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
    QFETCH(QString, manager);
    Desk desk(manager);
    const TestClient &first =
        desk.open(ClientKind::GtkDecorated, QStringLiteral("first.tar"), {100, 100, 600, 400});
    const TestClient &second = desk.open(ClientKind::Plain, QStringLiteral("second"),
                                         {400, 300, 600, 400}, withClass("Second"));
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
    desk.manager = std::make_unique<TestWindowManager>(manager); // takes over what is hidden
    desk.moveAndWait(first, {900, 500, 600, 400}); // somebody moves what is not to be seen
    desk.unhideAll();
    QVERIFY(desk.awaitShown(2));
    desk.restore(learned);
    QCOMPARE(desk.frames(), frames);
}

void HidingTest::windowsOfOtherDesktopsComeBackWithoutASwitch()
{
    QFETCH(QString, manager);
    Desk desk(manager);
    desk.probe.setDesktopCount(2);
    const TestClient &there = desk.open(ClientKind::Plain, QStringLiteral("there"),
                                        {100, 100, 400, 300}, withClass("There"));
    const TestClient &here = desk.open(ClientKind::Plain, QStringLiteral("here"),
                                       {600, 100, 400, 300}, withClass("Here"));
    desk.probe.sendToDesktop(there.window(), 1);
    require([&] { return desk.probe.desktopOf(there.window()) == 1U; }, "the other desktop");
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
    QFETCH(QString, manager);
    Desk desk(manager);
    OddWindow odd("Odd");
    odd.askForFocus();
    odd.show();
    require([&] { return desk.probe.find(QStringLiteral("Odd")).has_value(); }, "the odd window");
    const TestClient &other = desk.open(ClientKind::Plain, QStringLiteral("other"),
                                        {600, 100, 400, 300}, withClass("Other"));
    desk.activateAndWait(other);
    odd.answerOffers();
    const auto order = desk.probe.stacking();
    const WindowElementRef element = [&] {
        for (const RunningApplication &application : desk.applications()) {
            const auto windows = desk.platform->accessibility().windows(application.pid);
            if (windows.front().title == QStringLiteral("Odd"))
                return windows.front().element;
        }
        return WindowElementRef();
    }();

    std::jthread program([&](const std::stop_token &stop) {
        while (!stop.stop_requested() && odd.answerOffers() == 0)
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
    });
    desk.platform->accessibility().focus(element);
    QCOMPARE(desk.probe.activeWindow(), std::optional(odd.id()));
    QCOMPARE(desk.probe.stacking(), order);
}

void HidingTest::onlyRealLaunchesAreAnnounced()
{
    QFETCH(QString, manager);
    Desk desk(manager);
    desk.open(ClientKind::Plain, QStringLiteral("old"), {100, 100, 400, 300}, withClass("Old"));
    desk.listen();
    OddWindow splash("Splash");
    splash.setAtom("_NET_WM_WINDOW_TYPE", "_NET_WM_WINDOW_TYPE_SPLASH");
    splash.show();
    OddWindow tool("Tool");
    tool.setAtom("_NET_WM_STATE", skipped);
    tool.show();
    OddWindow added("New");
    added.show();
    QTRY_COMPARE(desk.launched, QStringList{QStringLiteral("New")});

    // What another call takes in on the way is announced all the same, but not from within it.
    desk.probe.setState(tool.id(), false, skipped);
    while (desk.probe.hasState(tool.id(), skipped))
        continue;
    QVERIFY(desk.platform->accessibility().isTrusted());
    QCOMPARE(desk.launched.size(), 1);
    QTRY_COMPARE(desk.launched.mid(1), QStringList{QStringLiteral("Tool")});

    // A window manager that starts finds every window anew.
    desk.manager.reset();
    OddWindow between("Between");
    between.show();
    desk.manager = std::make_unique<TestWindowManager>(manager);
    QTRY_COMPARE(desk.probe.stacking().size(), 5U);
    // Its arrival has been sent to everybody; in the second round the timer is over.
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
    OddWindow last("Last");
    last.show();
    QTRY_COMPARE(desk.launched.mid(2), QStringList{QStringLiteral("Last")});
}

QTEST_GUILESS_MAIN(HidingTest)
#include "HidingTest.moc"

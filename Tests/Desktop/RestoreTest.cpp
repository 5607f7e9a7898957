#include "Desktop/Support/DesktopSession.h"
#include "PanorelCore/Stores/LayoutStore.h"

#include <QRegularExpression>
#include <QTest>

#include <cstdlib>
#include <map>
#include <thread>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

/// Listens to what window managers are asked.
class MessagesToManager {
public:
    MessagesToManager()
    {
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        const auto *setup = xcb_get_setup(m_connection.get());
        xcb_change_window_attributes(m_connection.get(), xcb_setup_roots_iterator(setup).data->root,
                                     XCB_CW_EVENT_MASK, &events);
        sync();
    }

    int countFor(xcb_window_t window)
    {
        sync();
        while (auto *event = xcb_poll_for_event(m_connection.get())) {
            const auto *message = reinterpret_cast<xcb_client_message_event_t *>(event);
            if ((event->response_type & 0x7f) == XCB_CLIENT_MESSAGE)
                m_counts[message->window] += 1;
            std::free(event);
        }
        return m_counts[window];
    }

private:
    void sync() const
    {
        xcb_connection_t *c = m_connection.get();
        std::free(xcb_get_input_focus_reply(c, xcb_get_input_focus(c), nullptr));
    }

    ServerConnection m_connection{xcb_connect(nullptr, nullptr)};
    std::map<xcb_window_t, int> m_counts;
};

} // namespace

class RestoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { forEachManager(); }

    void besideAPanelMaximisedAndNormalWindowsChangeBack();
    void everyStateAndDesktopIsLeftAsItIs();
    void aWindowThatDiesOnTheWayHoldsUpNoOther();
    void aCrowdIsInPlaceAndInOrderWhenTheRestoreIsOver();
    void whatHasJustMovedIsLearnedAsItIsNow();
    void whatNoticesLateThatItIsNoLongerMaximisedStaysInPlace();
    void aBusyManagerIsAskedOnce();
    void aManagerBehindAChangeOfTheDisplaysIsWaitedFor();
    void aLateAnswerToASecondRequestMovesNoWindow();
    void hostileTitlesAreKeptAndMatched();
    void withoutAWindowManagerNothingIsTouched();
};

void RestoreTest::besideAPanelMaximisedAndNormalWindowsChangeBack()
{
    EngineSession session(managerOfThisRun());
    // Along the top of the left display only.
    session.clients.emplace_back(
        ClientKind::Plain, "panel",
        QStringLiteral("--atom _NET_WM_WINDOW_TYPE=_NET_WM_WINDOW_TYPE_DOCK "
                       "--strut 0,0,32,0,0,0,0,0,0,1919,0,0 --geometry 0,0,1920,32")
            .split(u' '));
    TestClient &big = session.open(ClientKind::Qt, "big", {2100, 200, 600, 500});
    TestClient &bigGtk = session.open(ClientKind::GtkDecorated, "big.tar", {200, 200, 700, 500});
    TestClient &small = session.open(ClientKind::Plain, "small", {300, 250, 500, 300});
    session.setStateAndWait(big, true, vertically, horizontally);
    session.setStateAndWait(bigGtk, true, vertically, horizontally);
    const QStringList before = session.frames();
    const Layout learned = session.capture();
    QVERIFY((learned.displays.at(0).visibleFrame == Rect{0, 32, 1920, 1048}));
    QVERIFY((learned.displays.at(1).visibleFrame == Rect{1920, 0, 1920, 1080}));
    QCOMPARE(learned.windows.size(), 3u); // the panel is no window of the user's

    for (int round = 0; round < 3; ++round) {
        session.setStateAndWait(big, false, vertically, horizontally);
        session.setStateAndWait(bigGtk, false, vertically, horizontally);
        session.moveAndWait(big, {100, 100, 500, 400});
        session.moveAndWait(bigGtk, {2200, 100, 600, 400});
        session.setStateAndWait(small, true, vertically, horizontally);
        session.restore(learned);
        QCOMPARE(session.frames(), before);
        QVERIFY(session.probe.hasState(big.window(), vertically));
        QVERIFY(session.probe.hasState(bigGtk.window(), horizontally));
        QVERIFY(!session.probe.hasState(small.window(), vertically));
    }
}

void RestoreTest::everyStateAndDesktopIsLeftAsItIs()
{
    EngineSession session(managerOfThisRun());
    const DesktopProbe &probe = session.probe;
    session.probe.setDesktopCount(2);
    const auto open = [&](const char *title, const Rect &frame) -> TestClient & {
        return session.open(ClientKind::Plain, title, frame);
    };
    TestClient &film = open("film", {2200, 200, 600, 400});
    TestClient &away = open("away", {100, 600, 400, 300});
    TestClient &here = open("here", {100, 100, 400, 300});
    TestClient &there = open("there", {2300, 500, 600, 400});
    session.sendToDesktopAndWait(there, 1);
    session.activateAndWait(here);
    const Layout learned = session.capture();
    QCOMPARE(learned.windows.size(), 4u);

    session.setStateAndWait(film, true, fullScreen);
    session.minimiseAndWait(away);
    session.probe.activate(here.window()); // the full-screen window may stay above it
    require([&] { return probe.activeWindow() == here.window(); }, "the focus");
    QCOMPARE(session.capture().windows.size(), 2u);
    session.moveAndWait(there, {700, 300, 500, 380});
    session.moveAndWait(here, {900, 400, 420, 310});
    const RestoreReport report = session.restore(learned);
    QVERIFY2(report.restored == 2, qPrintable(report.summary()));
    QCOMPARE(probe.restingFrame(here.window()), (Rect{100, 100, 400, 300}));
    QCOMPARE(probe.restingFrame(there.window()), (Rect{2300, 500, 600, 400}));
    QCOMPARE(probe.restingFrame(film.window()), (Rect{1920, 0, 1920, 1080}));
    QVERIFY(probe.hasState(film.window(), fullScreen));
    QVERIFY(session.isMinimised(away));
    QCOMPARE(probe.desktopOf(there.window()), std::optional(1U));
    QCOMPARE(probe.currentDesktop(), std::optional(0U));
    QCOMPARE(probe.activeWindow(), std::optional(here.window()));
}

void RestoreTest::aWindowThatDiesOnTheWayHoldsUpNoOther()
{
    EngineSession session(managerOfThisRun());
    TestClient &doomed = session.open(ClientKind::Plain, "doomed", {300, 300, 400, 300});
    session.open(ClientKind::Plain, "left", {100, 100, 400, 300});
    session.open(ClientKind::Plain, "right", {2200, 200, 600, 400});
    const QStringList before =
        session.frames().filter(QRegularExpression(QStringLiteral("^(?!doomed)")));
    const Layout learned = session.capture();
    for (const TestClient &client : session.clients)
        session.moveAndWait(client, {1000, 500, 500, 400});

    doomed.dieWhenMoved();
    const RestoreReport report = session.restore(learned);
    QVERIFY2(report.restored >= 2 && report.restored + report.failed == 3,
             qPrintable(report.summary()));
    require([&] { return session.probe.stacking().size() == 2; }, "the death of the doomed window");
    QCOMPARE(session.frames(), before);
    QCOMPARE(session.capture().windows.size(), 2u);
}

void RestoreTest::aCrowdIsInPlaceAndInOrderWhenTheRestoreIsOver()
{
    EngineSession session(managerOfThisRun());
    DesktopProbe &probe = session.probe;
    const TestCrowd crowd(200, 10);
    for (int i = 0; i < 200; ++i) // no two in one place
        probe.move(crowd.windows()[std::size_t(i)],
                   {20.0 + 30 * (i % 40), 20.0 + 90 * (i / 40), 400, 300});
    TestClient &focused = session.open(ClientKind::Plain, "focused", {300, 300, 500, 400});
    const QStringList before = session.frames();
    const Layout learned = session.capture();
    const std::vector<xcb_window_t> order = probe.stacking();
    QCOMPARE(learned.windows.size(), 201u);

    for (const xcb_window_t window : crowd.windows())
        probe.move(window, {2200, 200, 600, 450});
    for (auto window = order.rbegin(); window != order.rend(); ++window)
        probe.activate(*window);
    require([&] { return probe.stacking().back() == order.front(); }, "the reverse order");
    session.activateAndWait(focused);
    session.frames(); // at rest
    const RestoreReport report = session.restore(learned);
    QVERIFY2(report.restored == 201, qPrintable(report.summary()));
    QCOMPARE(probe.stacking(), order); // already now
    QCOMPARE(session.frames(), before);
    // Not with one whose turn came only after the focus had been given back.
    QCOMPARE(probe.activeWindow(), std::optional(focused.window()));
}

void RestoreTest::whatHasJustMovedIsLearnedAsItIsNow()
{
    EngineSession session(managerOfThisRun());
    const TestClient &client = session.open(ClientKind::Plain, "restless", {100, 100, 400, 300});
    for (double step = 1; step <= 10; ++step) {
        const Rect place{100 + 50 * step, 100, 400 + step, 300};
        session.capture(); // what was read here may serve again only while it is true
        session.probe.move(client.window(), place);
        require([&] { return session.isAt(client, place); }, "a moved window");
        QCOMPARE(session.capture().windows.at(0).frame, place);
    }
}

void RestoreTest::whatNoticesLateThatItIsNoLongerMaximisedStaysInPlace()
{
    EngineSession session(managerOfThisRun());
    TestClient &client = session.open(ClientKind::Plain, "slow", {300, 200, 500, 400});
    const TestClient &marker = session.open(ClientKind::Plain, "marker", {100, 600, 400, 300});
    DesktopProbe &probe = session.probe;
    probe.setShadow(client.window(), 20);
    const Layout layout = session.capture();
    const Rect learned = probe.restingFrame(client.window());

    session.setStateAndWait(client, true, vertically, horizontally);
    QCOMPARE(session.restore(layout).restored, 2);
    for (const std::uint32_t width : {23, 26}) {
        probe.setShadow(client.window(), width);
        QTRY_COMPARE(probe.frame(client.window()), std::optional(learned));
    }
    probe.move(client.window(), {learned.x, learned.y, 434, 453});
    session.moveAndWait(marker, {100, 300, 400, 300}); // by then the other was resized
    QTRY_COMPARE(probe.frame(client.window()), std::optional(learned));
    // Whom the user has moved meanwhile is left alone.
    session.moveAndWait(client, {900, 500, 450, 350});
    const Rect moved = probe.restingFrame(client.window());
    probe.setShadow(client.window(), 20);
    QCOMPARE(probe.restingFrame(client.window()),
             (Rect{moved.x - 6, moved.y - 6, moved.width + 12, moved.height + 12}));
}

void RestoreTest::aBusyManagerIsAskedOnce()
{
    using namespace std::chrono_literals;
    EngineSession session(managerOfThisRun());
    TestClient &client = session.open(ClientKind::Plain, "client", {2300, 100, 640, 420});
    const Layout learned = session.capture();
    session.moveAndWait(client, {700, 450, 450, 350});
    MessagesToManager messages;
    std::jthread drawing = session.manager->stopUntil([&] {
        require([&] { return messages.countFor(client.window()) > 0; }, "a request");
        std::this_thread::sleep_for(300ms);
    });
    QCOMPARE(session.restore(learned).restored, 1);
    drawing.join();
    QCOMPARE(messages.countFor(client.window()), 1);
}

void RestoreTest::aLateAnswerToASecondRequestMovesNoWindow()
{
    using namespace std::chrono_literals;
    EngineSession session(managerOfThisRun());
    DesktopProbe &probe = session.probe;
    TestClient &client = session.open(ClientKind::Increments, "terminal", {2300, 100, 640, 420});
    const TestClient &marker = session.open(ClientKind::Plain, "marker", {100, 600, 400, 300});
    const Layout learned = session.capture();
    const Rect home = probe.restingFrame(client.window());
    session.moveAndWait(client, {700, 450, 450, 350});
    // Meanwhile it is asked again and again.
    std::jthread hanging = session.manager->stopUntil([] { std::this_thread::sleep_for(3s); });
    QCOMPARE(session.restore(learned).restored, 2);
    hanging.join();
    QCOMPARE(probe.frame(client.window()), std::optional(home));
    // As openbox answers one of the wordings for a terminal. When the marker has moved, it has.
    probe.move(client.window(), {home.x + 1, home.y + 1, home.width, home.height});
    session.moveAndWait(marker, {100, 300, 400, 300});
    QTRY_COMPARE(probe.frame(client.window()), std::optional(home));
    // Whoever moves it further means it.
    session.moveAndWait(client, {700, 450, 450, 350});
    QVERIFY(probe.restingFrame(client.window()) != home);
}

void RestoreTest::aManagerBehindAChangeOfTheDisplaysIsWaitedFor()
{
    using namespace std::chrono_literals;
    EngineSession session(managerOfThisRun());
    const TestClient &client = session.open(ClientKind::Plain, "client", {2300, 100, 640, 420});
    const TestClient &marker = session.open(ClientKind::Plain, "marker", {100, 600, 400, 300});
    const Layout learned = session.capture();
    const QStringList before = session.frames();
    std::vector<Plugged> three = sideBySide();
    three.push_back({.output = 2, .x = 3840});
    session.server.plug(three);
    std::jthread late = session.manager->stopUntil([] { std::this_thread::sleep_for(300ms); });
    session.probe.move(client.window(), {380, 100, 640, 420}); // as if it were for the displays
    QCOMPARE(session.restore(learned).restored, 2);
    late.join();
    session.moveAndWait(marker, {100, 300, 400, 300}); // the manager has come to all
    session.moveAndWait(marker, {100, 600, 400, 300});
    QTRY_COMPARE(session.frames(), before);
}

void RestoreTest::hostileTitlesAreKeptAndMatched()
{
    const QByteArray titles[] = {
        "",
        "caf\xE9 \xC0\xAF \xED\xA0\x80 \xFF", // not UTF-8
        "snow \xE2\x98",                      // cut off in a character
        QByteArray("a\0b\0\0", 5),
        "one\ntwo\r\x1B[2J\x7F\"\\/",
        "\xF0\x9F\x97\x94 \xE2\x80\xAE tfel", // beyond the first plane, and back
        QByteArray(100'000, 'x'),
    };
    EngineSession session(managerOfThisRun());
    double x = 0;
    for (const QByteArray &title : titles)
        session.open(ClientKind::Plain, title, {x += 100, 200, 400, 300});
    const Layout learned = session.capture();
    QCOMPARE(learned.windows.size(), std::size(titles));
    LayoutStore(session.data.log, session.data.clock).saveLearned(learned);
    const LayoutStore again(session.data.log, session.data.clock);
    const Layout *stored = again.layoutFor(learned.configID);
    QVERIFY(stored && stored->windows == learned.windows);

    for (const TestClient &client : session.clients)
        session.moveAndWait(client, {900, 500, 450, 350});
    session.restore(*stored);
    // Not the frames they were opened with: laying out a long title takes openbox its time.
    const Layout after = session.capture();
    QCOMPARE(after.windows.size(), std::size(titles));
    for (std::size_t i = 0; i < after.windows.size(); ++i)
        QVERIFY2(after.windows[i] == learned.windows[i], qPrintable(after.windows[i].title));
}

void RestoreTest::withoutAWindowManagerNothingIsTouched()
{
    EngineSession session{QString()};
    QVERIFY(!session.platform->accessibility().isTrusted());
    QVERIFY(session.capture().windows.empty());
    QCOMPARE(session.capture().displays.size(), 2u);
}

QTEST_GUILESS_MAIN(RestoreTest)
#include "RestoreTest.moc"

#include "Desktop/Support/DesktopSession.h"
#include "PanorelCore/Stores/LayoutStore.h"

#include <QTest>

#include <random>

using namespace Panorel;
using namespace Panorel::Desktop;

namespace {

constexpr auto vertically = "_NET_WM_STATE_MAXIMIZED_VERT";
constexpr auto horizontally = "_NET_WM_STATE_MAXIMIZED_HORZ";
constexpr auto fullScreen = "_NET_WM_STATE_FULLSCREEN";

void forEachManager()
{
    QTest::addColumn<QString>("manager");
    QTest::newRow("openbox") << QStringLiteral("openbox");
    QTest::newRow("xfwm4") << QStringLiteral("xfwm4");
}

QString described(const Rect &frame)
{
    return QStringLiteral("%1,%2 %3x%4")
        .arg(frame.x)
        .arg(frame.y)
        .arg(frame.width)
        .arg(frame.height);
}

/// The differences, in words that name the window.
QStringList differences(const std::map<QString, Rect> &expected,
                        const std::map<QString, Rect> &found)
{
    QStringList result;
    for (const auto &[title, frame] : expected) {
        const auto other = found.find(title);
        if (other == found.end())
            result << title + QStringLiteral(" is gone");
        else if (other->second != frame)
            result << QStringLiteral("%1: %2, was %3")
                          .arg(title, described(other->second), described(frame));
    }
    return result;
}

/// Windows of every kind, over both displays, one of them across the border.
void furnish(DesktopSession &session)
{
    session.open(ClientKind::Plain, QStringLiteral("plain"), {60, 80, 500, 400});
    session.open(ClientKind::StaticGravity, QStringLiteral("static"), {620, 90, 480, 410});
    session.open(ClientKind::SouthEast, QStringLiteral("south east"), {1760, 300, 420, 380});
    session.open(ClientKind::Increments, QStringLiteral("terminal"), {2300, 100, 640, 420});
    session.open(ClientKind::Qt, QStringLiteral("Qt window"), {2990, 140, 500, 430});
    session.open(ClientKind::GtkDecorated, QStringLiteral("archive.tar"), {2380, 560, 700, 460});
}

} // namespace

class RestoreTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void twentyRoundTripsLoseNoPixel_data() { forEachManager(); }
    void twentyRoundTripsLoseNoPixel();
    void maximisedAndNormalWindowsChangeBack_data() { forEachManager(); }
    void maximisedAndNormalWindowsChangeBack();
    void aFullScreenWindowIsLeftAlone_data() { forEachManager(); }
    void aFullScreenWindowIsLeftAlone();
    void aWindowStaysOnItsDesktopAndSoDoesTheUser_data() { forEachManager(); }
    void aWindowStaysOnItsDesktopAndSoDoesTheUser();
    void aPanelKeepsItsSpace_data() { forEachManager(); }
    void aPanelKeepsItsSpace();
    void aMinimisedWindowStaysMinimised_data() { forEachManager(); }
    void aMinimisedWindowStaysMinimised();
    void aWindowThatDiesOnTheWayHoldsUpNoOther_data() { forEachManager(); }
    void aWindowThatDiesOnTheWayHoldsUpNoOther();
    void hostileTitlesAreKeptAndMatched_data();
    void hostileTitlesAreKeptAndMatched();
    void withoutAWindowManagerNothingIsTouched();
};

void RestoreTest::twentyRoundTripsLoseNoPixel()
{
    QFETCH(QString, manager);
    DesktopSession session(manager);
    furnish(session);
    session.activateAndWait(session.clients.front());
    const std::map<QString, Rect> before = session.frames();
    const std::vector<QString> order = session.probe.stackedTitles();
    const Layout learned = session.capture();
    QCOMPARE(learned.windows.size(), session.clients.size());
    for (const WindowRecord &record : learned.windows)
        QCOMPARE(described(record.frame), described(before.at(record.title)));

    std::mt19937 random(1); // the same scatter in every run
    for (int round = 0; round < 20; ++round) {
        for (const TestClient &client : session.clients) {
            const Rect anywhere{double(random() % 3000), double(random() % 500),
                                double(300 + random() % 300), double(250 + random() % 250)};
            session.moveAndWait(client, anywhere);
        }
        TestClient &focused = *std::next(session.clients.begin(), round % 5);
        session.activateAndWait(focused);

        const RestoreReport report = session.restore(learned);
        QVERIFY2(report.restored == 6 && report.failed == 0, qPrintable(report.summary()));
        const QStringList wrong = differences(before, session.frames());
        QVERIFY2(wrong.isEmpty(),
                 qPrintable(QStringLiteral("round %1: ").arg(round) + wrong.join(u"; ")));
        QTRY_COMPARE(session.probe.stackedTitles(), order);
        QCOMPARE(session.probe.activeWindow(), std::optional(focused.window()));
        QVERIFY(session.capture().windows == learned.windows);
    }
}

void RestoreTest::maximisedAndNormalWindowsChangeBack()
{
    QFETCH(QString, manager);
    DesktopSession session(manager);
    TestClient &big = session.open(ClientKind::Qt, QStringLiteral("big"), {2100, 200, 600, 500});
    TestClient &bigGtk =
        session.open(ClientKind::GtkDecorated, QStringLiteral("big.tar"), {200, 200, 700, 500});
    TestClient &small =
        session.open(ClientKind::Plain, QStringLiteral("small"), {300, 250, 500, 300});
    session.setStateAndWait(big, true, vertically, horizontally);
    session.setStateAndWait(bigGtk, true, vertically, horizontally);
    session.activateAndWait(small);
    const std::map<QString, Rect> before = session.frames();
    const Layout learned = session.capture();

    for (int round = 0; round < 3; ++round) {
        session.setStateAndWait(big, false, vertically, horizontally);
        session.setStateAndWait(bigGtk, false, vertically, horizontally);
        session.moveAndWait(big, {100, 100, 500, 400});
        session.moveAndWait(bigGtk, {2200, 100, 600, 400});
        session.setStateAndWait(small, true, vertically, horizontally);
        session.restore(learned);
        const QStringList wrong = differences(before, session.frames());
        QVERIFY2(wrong.isEmpty(), qPrintable(wrong.join(u"; ")));
        QVERIFY(session.probe.hasState(big.window(), vertically));
        QVERIFY(session.probe.hasState(bigGtk.window(), horizontally));
        QVERIFY(!session.probe.hasState(small.window(), vertically));
    }
}

void RestoreTest::aFullScreenWindowIsLeftAlone()
{
    QFETCH(QString, manager);
    DesktopSession session(manager);
    TestClient &film =
        session.open(ClientKind::Plain, QStringLiteral("film"), {2200, 200, 600, 400});
    TestClient &other =
        session.open(ClientKind::Plain, QStringLiteral("other"), {100, 100, 400, 300});
    const Layout learned = session.capture();
    session.setStateAndWait(film, true, fullScreen);
    session.moveAndWait(other, {500, 500, 450, 350});
    session.restore(learned);
    QVERIFY(session.probe.hasState(film.window(), fullScreen));
    QCOMPARE(described(session.probe.restingFrame(film.window())),
             QStringLiteral("1920,0 1920x1080"));
    QCOMPARE(described(session.probe.restingFrame(other.window())),
             QStringLiteral("100,100 400x300"));
    QCOMPARE(session.capture().windows.size(), 1u);
}

void RestoreTest::aWindowStaysOnItsDesktopAndSoDoesTheUser()
{
    QFETCH(QString, manager);
    DesktopSession session(manager);
    session.probe.setDesktopCount(2);
    TestClient &here =
        session.open(ClientKind::Plain, QStringLiteral("here"), {100, 100, 400, 300});
    TestClient &there =
        session.open(ClientKind::Plain, QStringLiteral("there"), {2200, 200, 600, 400});
    session.probe.sendToDesktop(there.window(), 1);
    require([&] { return session.probe.desktopOf(there.window()) == 1; }, "the other desktop");
    session.activateAndWait(here);
    const std::map<QString, Rect> before = session.frames();
    const Layout learned = session.capture();
    QCOMPARE(learned.windows.size(), 2u);

    session.moveAndWait(there, {700, 300, 500, 380});
    session.moveAndWait(here, {900, 400, 420, 310});
    const RestoreReport report = session.restore(learned);
    QVERIFY2(report.restored == 2, qPrintable(report.summary()));
    QCOMPARE(differences(before, session.frames()), QStringList());
    QCOMPARE(session.probe.desktopOf(there.window()), std::optional(1U));
    QCOMPARE(session.probe.currentDesktop(), std::optional(0U));
    QCOMPARE(session.probe.activeWindow(), std::optional(here.window()));
}

void RestoreTest::aPanelKeepsItsSpace()
{
    QFETCH(QString, manager);
    DesktopSession session(manager);
    // Along the top of the left display only.
    session.clients.emplace_back(
        QStringLiteral("panel"),
        QStringList{QStringLiteral("--strut"), QStringLiteral("0,0,32,0,0,0,0,0,0,1919,0,0"),
                    QStringLiteral("--geometry"), QStringLiteral("0,0,1920,32")});
    TestClient &left =
        session.open(ClientKind::Plain, QStringLiteral("left"), {100, 100, 400, 300});
    TestClient &right =
        session.open(ClientKind::Plain, QStringLiteral("right"), {2200, 200, 600, 400});
    session.setStateAndWait(left, true, vertically, horizontally);
    session.setStateAndWait(right, true, vertically, horizontally);
    const std::map<QString, Rect> before = session.frames();
    const Layout learned = session.capture();
    QCOMPARE(described(learned.displays.at(0).visibleFrame), QStringLiteral("0,32 1920x1048"));
    QCOMPARE(described(learned.displays.at(1).visibleFrame), QStringLiteral("1920,0 1920x1080"));
    QCOMPARE(learned.windows.size(), 2u); // the panel is no window of the user's

    for (TestClient *client : {&left, &right}) {
        session.setStateAndWait(*client, false, vertically, horizontally);
        session.moveAndWait(*client, {1000, 300, 500, 400});
    }
    session.restore(learned);
    QCOMPARE(differences(before, session.frames()), QStringList());
    QVERIFY(session.probe.hasState(left.window(), vertically));
    QVERIFY(session.probe.hasState(right.window(), vertically));
}

void RestoreTest::aMinimisedWindowStaysMinimised()
{
    QFETCH(QString, manager);
    DesktopSession session(manager);
    TestClient &away =
        session.open(ClientKind::Plain, QStringLiteral("away"), {100, 100, 400, 300});
    session.open(ClientKind::Plain, QStringLiteral("other"), {700, 100, 400, 300});
    const Layout learned = session.capture();
    session.probe.minimise(away.window());
    require([&] { return session.probe.hasState(away.window(), "_NET_WM_STATE_HIDDEN"); },
            "minimised");
    QCOMPARE(session.capture().windows.size(), 1u);
    const RestoreReport report = session.restore(learned);
    QVERIFY2(report.restored == 1 && report.skipped == 1, qPrintable(report.summary()));
    QVERIFY(session.probe.hasState(away.window(), "_NET_WM_STATE_HIDDEN"));
}

void RestoreTest::aWindowThatDiesOnTheWayHoldsUpNoOther()
{
    QFETCH(QString, manager);
    DesktopSession session(manager);
    TestClient &doomed = session.open(QStringLiteral("doomed"), {}, {300, 300, 400, 300});
    session.open(ClientKind::Plain, QStringLiteral("left"), {100, 100, 400, 300});
    session.open(ClientKind::Plain, QStringLiteral("right"), {2200, 200, 600, 400});
    std::map<QString, Rect> before = session.frames();
    before.erase(QStringLiteral("doomed"));
    const Layout learned = session.capture();
    for (const TestClient &client : session.clients)
        session.moveAndWait(client, {1000, 500, 500, 400});

    doomed.dieWhenMoved();
    const RestoreReport report = session.restore(learned);
    QVERIFY2(report.restored >= 2 && report.restored + report.failed == 3,
             qPrintable(report.summary()));
    const auto isListed = [&](xcb_window_t window) {
        const auto listed = session.probe.stacking();
        return std::ranges::find(listed, window) != listed.end();
    };
    require([&] { return !isListed(doomed.window()); }, "the death of the doomed window");
    QCOMPARE(differences(before, session.frames()), QStringList());
    QCOMPARE(session.capture().windows.size(), 2u);
}

void RestoreTest::hostileTitlesAreKeptAndMatched_data()
{
    QTest::addColumn<QByteArray>("title");
    QTest::addColumn<int>("repeats");
    QTest::newRow("empty") << QByteArray() << 1;
    QTest::newRow("not UTF-8") << QByteArray("caf\xE9 \xC0\xAF \xED\xA0\x80 \xFF") << 1;
    QTest::newRow("cut off in a character") << QByteArray("snow \xE2\x98") << 1;
    QTest::newRow("zero bytes") << QByteArray("a\0b\0\0", 5) << 1;
    QTest::newRow("control characters") << QByteArray("one\ntwo\r\x1B[2J\x7F\"\\/") << 1;
    QTest::newRow("beyond the first plane")
        << QByteArray("\xF0\x9F\x97\x94 \xE2\x80\xAE tfel") << 1;
    QTest::newRow("long") << QByteArray(1000, 'x') << 100;
}

void RestoreTest::hostileTitlesAreKeptAndMatched()
{
    QFETCH(QByteArray, title);
    QFETCH(int, repeats);
    DesktopSession session(QStringLiteral("openbox"));
    TestClient &hostile =
        session.open(QStringLiteral("hostile"),
                     {QStringLiteral("--raw-title"), QString::fromLatin1(title.toBase64()),
                      QStringLiteral("--repeats"), QString::number(repeats)},
                     {300, 300, 400, 300});
    Layout learned = session.capture();
    QCOMPARE(learned.windows.size(), 1u);

    LayoutStore store(session.data.log, session.data.clock);
    store.saveLearned(learned);
    LayoutStore again(session.data.log, session.data.clock);
    const Layout *stored = again.layoutFor(learned.configID);
    QVERIFY(stored != nullptr);
    QVERIFY(stored->windows == learned.windows);

    session.moveAndWait(hostile, {900, 500, 450, 350});
    session.restore(*stored);
    // Not the frame it was opened with: laying out a long title takes openbox its time.
    QCOMPARE(described(session.probe.restingFrame(hostile.window())),
             described(learned.windows[0].frame));
}

void RestoreTest::withoutAWindowManagerNothingIsTouched()
{
    DesktopSession session{QString()};
    QVERIFY(!session.platform->accessibility().isTrusted());
    QVERIFY(session.capture().windows.empty());
    QCOMPARE(session.capture().displays.size(), 2u);
}

QTEST_GUILESS_MAIN(RestoreTest)
#include "RestoreTest.moc"

#include "PanorelCore/Stores/AppRuleStore.h"
#include "PanorelCore/Stores/LayoutStore.h"
#include "PanorelCore/Stores/PlacementMemory.h"
#include "PanorelEngine/Launch/LaunchPlacement.h"
#include "Support/FakeScheduler.h"
#include "Support/InMemoryDesktop.h"

#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

const QString home = QStringLiteral("home");
const QString editorID = QStringLiteral("editor");
const QString mailID = QStringLiteral("mail");

struct Desk {
    TestDataDir dir;
    FakeScheduler scheduler{dir.clock};
    InMemoryDesktop desktop;
    LayoutStore layouts{dir.log, dir.clock};
    AppRuleStore rules{dir.log, dir.clock};
    PlacementMemory memory{dir.log, dir.clock};
    QString current = home;
    bool isWanted = true;
    std::unique_ptr<LaunchPlacement> placement = std::make_unique<LaunchPlacement>(
        layouts, rules, memory, desktop, desktop, scheduler, dir.log, [this] { return current; },
        [this] { return isWanted; });

    Desk()
    {
        learn(home, {record(editorID, QStringLiteral("Plan"), planFrame),
                     record(mailID, QStringLiteral("Inbox"), mailFrame),
                     record(editorID, QStringLiteral("Notes"), notesFrame)});
        placement->start();
    }

    static constexpr Rect planFrame{10, 20, 310, 210};
    static constexpr Rect notesFrame{400, 20, 320, 220};
    static constexpr Rect mailFrame{800, 20, 330, 230};
    static constexpr Rect fresh{5, 5, 300, 200};

    static WindowRecord record(const QString &bundleID, const QString &title, const Rect &frame)
    {
        return {bundleID.toUpper(), bundleID, title, {}, frame, 0};
    }
    void learn(const QString &configID, const std::vector<WindowRecord> &windows)
    {
        Layout layout;
        layout.configID = configID;
        layout.windows = windows;
        layouts.saveLearned(layout);
        dir.logged();
    }
    /// A launch with its windows there already, as on X11.
    std::vector<int> start(const QString &bundleID, const QStringList &titles)
    {
        const auto pid = desktop.add(bundleID, {});
        std::vector<int> numbers;
        for (const QString &title : titles)
            numbers.push_back(desktop.open(pid, title, fresh));
        desktop.announceLaunch(pid);
        return numbers;
    }
    Rect frame(int number) { return desktop.window(number).frame; }
};

} // namespace

class LaunchPlacementTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void aLaunchedApplicationsWindowsGoToTheirPlacesOnce()
    {
        Desk desk;
        const auto pid = desk.desktop.launch(editorID, {});
        std::vector<int> windows;
        for (const auto &title : {"Notes", "Plan", "Draft"})
            windows.push_back(desk.desktop.open(pid, QLatin1String(title), Desk::fresh));
        desk.desktop.announceLaunch(pid); // again: the look that was to come is dropped
        QVERIFY(desk.frame(windows[0]) == Desk::notesFrame);
        QVERIFY(desk.frame(windows[1]) == Desk::planFrame);
        QVERIFY(desk.frame(windows[2]) == Desk::fresh); // no record is left for it
        QCOMPARE(desk.dir.logged().filter(QStringLiteral("launch placement")),
                 QStringList{QStringLiteral("launch placement: moved 2 windows for EDITOR")});
        desk.desktop.window(windows[0]).frame = Desk::fresh; // the user moves it
        desk.scheduler.advance(1min);
        QVERIFY(desk.frame(windows[0]) == Desk::fresh);
    }

    void slowApplicationsArePlacedSideBySide()
    {
        Desk desk;
        const auto editor = desk.desktop.launch(editorID, {});
        desk.scheduler.advance(200ms);
        const auto mail = desk.desktop.launch(mailID, {});
        const int inbox = desk.desktop.open(mail, QStringLiteral("Inbox"), Desk::fresh);
        desk.desktop.minimize(inbox); // as good as not there
        const int plan = desk.desktop.open(editor, QStringLiteral("Plan"), Desk::fresh);
        desk.scheduler.advance(300ms); // 0.5 s after the editor's launch
        QVERIFY(desk.frame(plan) == Desk::planFrame && desk.frame(inbox) == Desk::fresh);
        desk.desktop.activate(inbox);
        desk.scheduler.advance(200ms);
        QVERIFY(desk.frame(inbox) == Desk::mailFrame);
    }

    void ruleDeskAndLayoutAreThoseOfTheMoment()
    {
        const QString plan = QStringLiteral("Plan");
        const std::vector<std::pair<std::function<void(Desk &)>, Rect>> changes{
            {[](Desk &desk) { desk.isWanted = false; }, Desk::planFrame}, // asked at the launch
            {[](Desk &desk) {
                 desk.rules.set({editorID, true, false});
             },
             Desk::fresh},
            {[](Desk &desk) { desk.current = QStringLiteral("office"); }, Desk::mailFrame},
            {[&](Desk &desk) {
                 desk.learn(home, {Desk::record(editorID, plan, Desk::notesFrame)});
             },
             Desk::notesFrame},
            {[](Desk &desk) { desk.placement.reset(); }, Desk::fresh}};
        for (const auto &[change, expected] : changes) {
            Desk desk;
            desk.learn(QStringLiteral("office"), {Desk::record(editorID, plan, Desk::mailFrame)});
            const auto pid = desk.desktop.launch(editorID, {});
            change(desk);
            const int window = desk.desktop.open(pid, plan, Desk::fresh);
            desk.scheduler.advance(1h);
            QVERIFY(desk.frame(window) == expected);
        }
    }

    void whatIsNotForPlacingStays()
    {
        Desk desk;
        desk.rules.set({editorID, true, false});
        std::vector<int> windows = desk.start(editorID, {QStringLiteral("Plan")});
        desk.desktop.announceLaunch(desk.desktop.add({}, {}));
        desk.isWanted = false;
        windows.push_back(desk.start(mailID, {QStringLiteral("Inbox")})[0]);
        desk.isWanted = true;
        const auto late = desk.desktop.launch(mailID, {});
        desk.scheduler.advance(1h); // longer than anybody waits for a window
        windows.push_back(desk.desktop.open(late, QStringLiteral("Inbox"), Desk::fresh));
        desk.scheduler.advance(1h);
        for (const int window : windows)
            QVERIFY(desk.frame(window) == Desk::fresh);
    }

    void anApplicationThatRanEarlierIsRemembered()
    {
        Desk desk;
        const QString clockID = QStringLiteral("clock");
        desk.memory.remember(home, {Desk::record(clockID, {}, Desk::notesFrame),
                                    Desk::record(mailID, {}, Desk::notesFrame)});
        QVERIFY(desk.frame(desk.start(clockID, {QString()})[0]) == Desk::notesFrame);
        // What was learned last counts for more.
        QVERIFY(desk.frame(desk.start(mailID, {QString()})[0]) == Desk::mailFrame);
    }
};

QTEST_GUILESS_MAIN(LaunchPlacementTests)
#include "LaunchPlacementTests.moc"

#include "EngineDesk.h"
#include "PanorelEngine/Stash/StashController.h"
#include "Support/FakeScheduler.h"

#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

const QString home = QStringLiteral("home");
const QString office = QStringLiteral("office");

/// Two terminals of one title and a mail program, the mail in front and with the focus.
struct Desk : EngineDesk {
    FakeScheduler scheduler{dir.clock};
    std::map<QString, Layout> learned;
    std::unique_ptr<StashController> stash = std::make_unique<StashController>(
        engine, usage, snapshotter, desktop, desktop, scheduler, dir.log, dir.clock,
        [this](const QString &configID) {
            const auto found = learned.find(configID);
            return found == learned.end() ? nullptr : &found->second;
        });

    ProcessIdentifier terminal = desktop.add(QStringLiteral("terminal"), QStringLiteral("Term"));
    ProcessIdentifier mail = desktop.add(QStringLiteral("mail"), QStringLiteral("Mail"));
    int shell = desktop.open(terminal, QStringLiteral("sh"), {0, 0, 400, 300});
    int inbox = desktop.open(mail, QStringLiteral("Inbox"), {900, 0, 500, 400});
    int shell2 = desktop.open(terminal, QStringLiteral("sh"), {0, 500, 400, 300});
    int draft = desktop.open(mail, QStringLiteral("Draft"), {900, 500, 500, 400});
    std::vector<WindowRecord> before = onScreen();

    void toggle(const QString &configID = home) { stash->toggle({}, configID, true); }
    bool isHidden(ProcessIdentifier pid)
    {
        const auto all = desktop.runningApplications();
        return std::ranges::find(all, pid, &RunningApplication::pid)->isHidden;
    }
    Rect frame(int number) { return desktop.window(number).frame; }
    /// What a display change does to windows, hidden or not.
    void scatter()
    {
        for (const int number : {shell, inbox, shell2, draft})
            desktop.window(number).frame = {10.0 * number, 50, 333, 222};
    }
};

} // namespace

class StashTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theDeskComesBackAsItWas()
    {
        Desk desk;
        desk.toggle();
        QVERIFY(desk.stash->isStashed() && desk.stash->isDeskAway());
        QVERIFY(desk.onScreen().empty());
        desk.scatter();
        desk.toggle();
        QVERIFY(!desk.stash->isStashed() && desk.stash->isDeskAway());
        desk.scheduler.advance(399ms);
        QCOMPARE(desk.frame(desk.inbox).width, 333);
        desk.scheduler.advance(1ms);
        QVERIFY(desk.onScreen() == desk.before);
        QCOMPARE(desk.desktop.focused, desk.draft);
        QVERIFY(!desk.stash->isDeskAway());
        QCOMPARE(desk.engine.lastUndo()->name, QStringLiteral("Stash"));
    }

    void onlyOrdinaryApplicationsThatAreVisibleAreTouched()
    {
        Desk desk;
        const auto applet =
            desk.desktop.add(QStringLiteral("applet"), {}, ActivationPolicy::Accessory);
        const auto music = desk.desktop.add(QStringLiteral("music"), {});
        const auto nameless = desk.desktop.add({}, {});
        desk.desktop.hide(music);
        desk.desktop.applications().front().policy = ActivationPolicy::Regular; // this program
        desk.toggle();
        QVERIFY(!desk.isHidden(applet) && !desk.isHidden(InMemoryDesktop::ownPID));
        QVERIFY(desk.isHidden(nameless));
        desk.toggle();
        desk.scheduler.advance(400ms);
        QVERIFY(desk.isHidden(music)); // the user's own doing
        QVERIFY(desk.isHidden(nameless));
        QVERIFY(!desk.stash->isDeskAway()); // nor does that keep the desk from being learned
    }

    void whatHappensToTheDeskMeanwhileIsRespected()
    {
        Desk desk;
        desk.desktop.window(desk.shell2).isFullScreen = true; // and so not captured
        desk.desktop.activate(desk.shell);
        desk.toggle();
        QVERIFY(desk.desktop.window(desk.shell2).isHidden);
        desk.scatter();
        desk.desktop.quit(desk.mail);
        const auto game = desk.desktop.launch(QStringLiteral("game"), {});
        const int board = desk.desktop.open(game, QStringLiteral("Board"), {50, 50, 600, 600});
        desk.stash->toggle({}, home, false);
        desk.scheduler.advance(400ms);
        QVERIFY(desk.frame(desk.shell) == (Rect{0, 0, 333, 222})); // sizes were not asked for
        QVERIFY(!desk.desktop.window(desk.shell2).isHidden);
        QCOMPARE(desk.desktop.focused, board); // the user went on working there
    }

    void onAnotherDeskItsLearnedLayoutHolds()
    {
        Desk desk;
        desk.learned[office].windows = {desk.before.front()};
        desk.learned[office].windows.front().frame = {70, 80, 410, 310};
        desk.toggle(home);
        desk.scatter();
        desk.toggle(office);
        desk.learned.clear(); // the layout of that moment holds
        desk.scheduler.advance(400ms);
        QVERIFY(!desk.isHidden(desk.mail) && !desk.isHidden(desk.terminal));
        QVERIFY(desk.frame(desk.inbox) == (Rect{20, 50, 333, 222}));
        QVERIFY(desk.frame(desk.draft) == (Rect{70, 80, 410, 310}));
        QCOMPARE(desk.desktop.focused, desk.draft);
    }

    void stashingAgainAtOnceKeepsTheArrangement()
    {
        Desk desk;
        desk.toggle();
        desk.scatter();
        desk.toggle();
        desk.desktop.hide(desk.mail); // has not come back yet
        desk.scheduler.advance(399ms);
        desk.toggle();
        desk.scheduler.advance(1h); // nothing is restored behind the user's back
        QVERIFY(desk.isHidden(desk.mail) && desk.isHidden(desk.terminal));
        QCOMPARE(desk.frame(desk.inbox).width, 333);
        desk.toggle();
        desk.scheduler.advance(400ms);
        QVERIFY(desk.onScreen() == desk.before);
        QCOMPARE(desk.desktop.focused, desk.draft);
    }

    void theDeskIsAwayUntilTheUserHasBroughtItBack()
    {
        Desk desk;
        desk.desktop.refusingToHide = {desk.mail, desk.terminal};
        desk.toggle();
        QVERIFY(desk.stash->isDeskAway()); // hiding may take its time
        desk.desktop.refusingToHide = {desk.mail};
        desk.desktop.hide(desk.terminal);
        desk.scheduler.advance(1h);
        QVERIFY(desk.stash->isDeskAway());
        desk.desktop.activate(desk.shell);
        QVERIFY(!desk.stash->isDeskAway());
        QVERIFY(desk.stash->isStashed());
    }
};

QTEST_GUILESS_MAIN(StashTests)
#include "StashTests.moc"

#include "Contracts/InMemoryRig.h"
#include "Contracts/ScreensContract.h"
#include "Contracts/WorkspaceContract.h"
#include "MacDoubles/MacTests.h"
#include "PanorelMac/Applications/MacWorkspace.h"
#include "PanorelMac/Calendar/MacCalendar.h"
#include "PanorelMac/Displays/MacScreens.h"
#include "PanorelMac/Support/NsText.h"

using namespace Panorel;
using namespace Panorel::Mac;
using namespace Panorel::MacDoubles;
using namespace std::chrono_literals;

namespace {

/// The in-memory desktop, with the applications and screens as the port tells of them.
class MacRig final : public InMemoryRig {
public:
    MacRig() : InMemoryRig(desktop().platform) {}

    WorkspacePort &workspace() override { return m_workspace; }
    ScreensPort &screens() override { return m_screens; }

private:
    MacWorkspace m_workspace;
    MacScreens m_screens;
};

} // namespace

class MacObjCTests : public MacTests {
    Q_OBJECT

private Q_SLOTS:
    void textIsValidWhateverTheSystemGives()
    {
        const QString text = QStringLiteral("Bürö „A“ 🖥 \n");
        QCOMPARE(textOf(nsText(text)), text);
        QCOMPARE(textOf(nsText(QChar(0xD83D))), QStringLiteral("\uFFFD"));
        QVERIFY(!textOf(nil) && !textOf([NSNumber numberWithInt:3]));
    }

    void applicationsAreDescribedAsFarAsTheSystemSays()
    {
        InMemoryDesktop &mac = desktop().platform.desktop;
        mac.add({}, {}, ActivationPolicy::Prohibited);
        mac.add(QStringLiteral("org.example.editor"), QStringLiteral("Editor"));
        MacWorkspace workspace;
        const auto facts = [](const RunningApplication &running) {
            return std::tuple(running.pid, running.policy, running.bundleID, running.localizedName);
        };
        QVERIFY(std::ranges::equal(workspace.runningApplications(), mac.runningApplications(), {},
                                   facts, facts));
        QCOMPARE(workspace.ownProcessIdentifier(), InMemoryDesktop::ownPID);
    }

    void aLaunchThatIsOnItsWayIsNotToldToWhoStoppedListening()
    {
        InMemoryDesktop &mac = desktop().platform.desktop;
        std::optional<MacWorkspace> workspace(std::in_place);
        QStringList told;
        const auto listener = [&](const char *name) {
            return [&told, name](const RunningApplication &application) {
                told << QString::fromLatin1(name) + application.bundleID.value();
            };
        };
        workspace->setLaunchCallback(listener("1"));
        mac.launch(QStringLiteral("a"), {});
        QTRY_COMPARE(told, QStringList{QStringLiteral("1a")});
        mac.launch(QStringLiteral("b"), {});
        workspace->setLaunchCallback(listener("2"));
        mac.quit(mac.launch(QStringLiteral("c"), {})); // gone before it is told
        QTRY_COMPARE(told.last(), QStringLiteral("2c"));
        mac.launch(QStringLiteral("d"), {});
        workspace.reset();
        mac.launch(QStringLiteral("e"), {});
        QCoreApplication::processEvents();
        QCOMPARE(told.size(), 2);
    }

    void aScreenThatDoesNotTellItsDisplayHasNoNumber()
    {
        InMemoryScreens &displays = desktop().platform.display;
        QVERIFY(MacScreens().screens().empty());
        displays.plug(QStringLiteral("A"), {0, 0, 1440, 900}, 0);
        displays.plug(QStringLiteral("B"), {-1920, -180, 1920, 1080}, 7);
        displays.displays[0].screen.displayNumber.reset();
        displays.displays[1].screen.displayNumber = 0xFFFFFFFE;
        const auto screens = MacScreens().screens();
        QVERIFY(!screens[0].displayNumber && screens[1].displayNumber == 0xFFFFFFFE);
        QVERIFY(screens[1].frame == displays.displays[1].screen.frame);
        QVERIFY(screens[1].visibleFrame == displays.displays[1].screen.visibleFrame);
    }

    void theUserIsAskedForTheCalendarsAndAnswersOnTheMainThread()
    {
        InMemoryCalendar &calendar = desktop().platform.events;
        std::optional<MacCalendar> port(std::in_place);
        for (int status = 0; status <= 4; ++status) {
            calendar.status = CalendarAuthorization(status);
            QVERIFY(port->authorization() == calendar.status);
        }

        for (const bool grants : {false, true}) {
            calendar.status =
                grants ? CalendarAuthorization::FullAccess : CalendarAuthorization::Denied;
            std::optional<bool> granted;
            port->requestAccess([&](bool isGranted) {
                QCOMPARE(QThread::currentThread(), qApp->thread());
                granted = isGranted;
            });
            QTRY_COMPARE(granted, grants);
        }
        bool isTold = false;
        port->requestAccess([&](bool) { isTold = true; });
        port.reset();
        QCoreApplication::processEvents();
        QVERIFY(!isTold);
    }

    void everyOccurrenceIsNamedAndCancelledOnesAreNot()
    {
        InMemoryCalendar &calendar = desktop().platform.events;
        const auto series = QStringLiteral("series");
        const auto title = QStringLiteral("Stand-up „täglich“");
        const QString link = QStringLiteral("https://meet.example.org/a?b=1");
        const auto room = QStringLiteral("Room 1"), notes = QStringLiteral("notes");
        CalendarEvent full{series, title, room, notes, link, Instant(90'001ms)};
        CalendarEvent later{series, title, {}, {}, {}, Instant(150'007ms)};
        CalendarEvent bare;
        const CalendarEvent cancelled{series, QStringLiteral("Off"), {}, {}, {}, Instant(60'000ms)};
        calendar.all = {full, later, bare, cancelled};
        desktop().cancelledEvents = {QStringLiteral("Off")};
        MacCalendar port;
        using Answers = std::vector<CalendarPort::Events>;
        const auto ask = [&] {
            Answers answers;
            port.events(Instant(30s), Instant(600s),
                        [&](const CalendarPort::Events &events) { answers.push_back(events); });
            return answers;
        };
        full.identifier = QStringLiteral("series/90001");
        later.identifier = QStringLiteral("series/150007");
        QVERIFY(ask() == (Answers{{full, later, bare}}));

        calendar.status = CalendarAuthorization::Denied; // taken back while running
        QVERIFY(ask() == Answers(1));
    }
};

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    @autoreleasepool {
        MacObjCTests tests;
        return runOnTheMac<WorkspaceContract, MacRig>() + runOnTheMac<ScreensContract, MacRig>()
               + QTest::qExec(&tests);
    }
}

#include "MacObjCTests.moc"

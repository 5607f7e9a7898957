#include "Contracts/InMemoryRig.h"
#include "Contracts/ScreensContract.h"
#include "Contracts/WorkspaceContract.h"
#include "MacDoubles/MacTests.h"
#include "MacDoubles/ObjC/StatusBar.h"
#include "MacDoubles/RunContract.h"
#include "PanorelMac/Applications/MacLauncher.h"
#include "PanorelMac/Applications/MacWorkspace.h"
#include "PanorelMac/Calendar/MacCalendar.h"
#include "PanorelMac/DesktopPicture/MacDesktopPicture.h"
#include "PanorelMac/Displays/MacScreens.h"
#include "PanorelMac/Settings/MacActivationPolicy.h"
#include "PanorelMac/Settings/MacLoginItem.h"
#include "PanorelMac/Settings/MacSystemPreferences.h"
#include "PanorelMac/Shell/MacShell.h"
#include "PanorelMac/Shell/MacStatusItem.h"
#include "PanorelMac/Support/NsText.h"
#include "PanorelMac/Support/Retained.h"
#include "PanorelMac/Updates/SparkleUpdater.h"

#import <EventKit/EventKit.h>

#include <QProcess>
#include <QTemporaryFile>
#include <QTest>

#include <Block.h>
#include <thread>

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

/// Text with half a character, which the library here does not make itself.
@interface HalfText : NSString
@end

@implementation HalfText

- (NSUInteger)length
{
    return 2;
}

- (unichar)characterAtIndex:(NSUInteger)index
{
    return index == 0 ? 'a' : 0xD83D;
}

@end

class MacObjCTests : public MacTests {
    Q_OBJECT

private Q_SLOTS:
    void textIsValidWhateverTheSystemGives()
    {
        const QString text = QStringLiteral("Bürö „A“ 🖥 \n");
        QCOMPARE(textOf(nsText(text)), text);
        QCOMPARE(textOf([[[HalfText alloc] init] autorelease]), QStringLiteral("a\uFFFD"));
        QCOMPARE(textOf(nsText(QChar(0xD83D))), QStringLiteral("\uFFFD"));
        QVERIFY(!textOf(nil) && !textOf([NSNumber numberWithInt:3]));
    }

    void applicationsAreDescribedAsFarAsTheSystemSays()
    {
        InMemoryDesktop &mac = desktop().platform.desktop;
        const auto helper = mac.add({}, {}, ActivationPolicy::Prohibited);
        const auto editor = mac.add(QStringLiteral("org.example.editor"), QStringLiteral("Editor"));
        MacWorkspace workspace;
        const auto running = workspace.runningApplications();
        QCOMPARE(running.size(), 3u);
        QCOMPARE(running[0].pid, workspace.ownProcessIdentifier());
        QVERIFY(running[0].policy == ActivationPolicy::Accessory);
        QCOMPARE(running[1].pid, helper);
        QVERIFY(running[1].policy == ActivationPolicy::Prohibited);
        QVERIFY(!running[1].bundleID && !running[1].localizedName);
        QCOMPARE(running[2].pid, editor);
        QCOMPARE(running[2].localizedName, QStringLiteral("Editor"));
    }

    void aLaunchThatIsOnItsWayIsNotToldToWhoStoppedListening()
    {
        InMemoryDesktop &mac = desktop().platform.desktop;
        std::optional<MacWorkspace> workspace(std::in_place);
        QStringList told;
        const auto listener = [&](const char *name) {
            return [&told, name](const RunningApplication &application) {
                QVERIFY(isMainThread());
                told << QString::fromLatin1(name) + application.bundleID.value();
            };
        };
        workspace->setLaunchCallback(listener("1"));
        mac.launch(QStringLiteral("a"), {});
        QCOMPARE(told, QStringList()); // from the event loop only
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

    void applicationsAreFoundAndOpened()
    {
        desktop().platform.installed = {QStringLiteral("org.example.ä b")};
        MacLauncher launcher;
        const auto location = launcher.locate(QStringLiteral("org.example.ä b"));
        QCOMPARE(location, QStringLiteral("/apps/org.example.ä b"));
        QVERIFY(!launcher.locate(QStringLiteral("org.example.gone")));
        launcher.open(*location);
        launcher.open({});
        QCOMPARE(desktop().platform.opened, QStringList{QStringLiteral("org.example.ä b")});
    }

    void everyScreenGetsThePictureThatCan()
    {
        InMemoryScreens &displays = desktop().platform.display;
        for (int i = 0; i < 3; ++i)
            displays.plug(QString::number(i), {i * 1000., 0, 1000, 800}, 0);
        desktop().services.keepingTheirPicture = {1};
        QTemporaryFile picture(QStringLiteral("/tmp/ä b XXXXXX.png"));
        QVERIFY(picture.open());
        MacDesktopPicture port;
        port.setDesktopPicture(picture.fileName());
        const std::map<DisplayNumber, QString> expected{{2, picture.fileName()},
                                                        {3, picture.fileName()}};
        QVERIFY(desktop().services.pictures == expected);
        for (const QString &none : {QStringLiteral("/gone.png"), QStringLiteral("/tmp"), QString()})
            port.setDesktopPicture(none);
        QVERIFY(desktop().services.pictures == expected);
    }

    void aScreenThatDoesNotTellItsDisplayHasNoNumber()
    {
        InMemoryScreens &displays = desktop().platform.display;
        MacScreens port;
        QVERIFY(port.screens().empty());
        displays.plug(QStringLiteral("A"), {0, 0, 1440, 900}, 0);
        displays.plug(QStringLiteral("B"), {-1920, -180, 1920, 1080}, 7);
        displays.displays[1].screen.displayNumber = 0xFFFFFFFE;
        const auto screens = port.screens();
        QCOMPARE(screens[1].displayNumber, 0xFFFFFFFEu);
        QVERIFY(screens[1].frame == displays.displays[1].screen.frame);
        QVERIFY(screens[1].visibleFrame == displays.displays[1].screen.visibleFrame);
        QCOMPARE(screens[1].localizedName, QStringLiteral("B"));

        displays.displays[0].screen.displayNumber.reset();
        QVERIFY(!port.screens()[0].displayNumber);
        desktop().services.screenNumbersAreTexts = true;
        QVERIFY(!port.screens()[1].displayNumber);
    }

    void theUserIsAskedForTheCalendarsAndAnswersOnTheMainThread()
    {
        InMemoryCalendar &calendar = desktop().platform.events;
        std::optional<MacCalendar> port(std::in_place);
        for (int status = 0; status <= 4; ++status) {
            calendar.status = CalendarAuthorization(status);
            QVERIFY(port->authorization() == calendar.status);
        }
        QCOMPARE(desktop().services.eventStores, 0);

        for (const bool grants : {false, true}) {
            calendar.status = CalendarAuthorization::NotDetermined;
            desktop().services.grantsCalendarAccess = grants;
            std::optional<bool> granted;
            port->requestAccess([&](bool isGranted) {
                QVERIFY(isMainThread());
                granted = isGranted;
            });
            QVERIFY(!granted);
            QTRY_COMPARE(granted, grants);
            QCOMPARE(port->authorization() == CalendarAuthorization::FullAccess, grants);
        }
        QCOMPARE(desktop().services.eventStores, 1);

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
        CalendarEvent full{series,
                           title,
                           QStringLiteral("Room 1"),
                           QStringLiteral("notes"),
                           QStringLiteral("https://meet.example.org/a?b=1"),
                           Instant(90'001ms)};
        CalendarEvent later{series, title, {}, {}, {}, Instant(150'007ms)};
        CalendarEvent bare;
        const CalendarEvent cancelled{series, QStringLiteral("Off"), {}, {}, {}, Instant(60'000ms)};
        const CalendarEvent outside{series, title, {}, {}, {}, Instant(1'000'000ms)};
        calendar.all = {full, later, bare, cancelled, outside};
        desktop().services.cancelledEvents = {QStringLiteral("Off")};
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

    void settingsReachTheirServices()
    {
        MacDesktop &mac = desktop();
        for (const bool isWanted : {true, false}) {
            MacLoginItem().setRegistered(isWanted);
            QCOMPARE(mac.platform.registeredAtLogin, isWanted);
        }
        MacActivationPolicy policies;
        for (const auto policy : {ActivationPolicy::Regular, ActivationPolicy::Accessory,
                                  ActivationPolicy::Prohibited}) {
            policies.setActivationPolicy(policy);
            QVERIFY(mac.platform.policy == policy);
        }

        MacSystemPreferences preferences;
        mac.platform.preferences[QStringLiteral("com.apple.spaces spans-displays")] = true;
        const auto spans =
            preferences.value(QStringLiteral("com.apple.spaces"), QStringLiteral("spans-displays"));
        QVERIFY(spans == PreferenceValue(true));
        preferences.openDesktopSettings();
        QCOMPARE(mac.services.openedURLs,
                 QStringList{QStringLiteral(
                     "x-apple.systempreferences:com.apple.Desktop-Settings.extension")});
    }

    void theUpdaterStartsAtOnceAndKeepsItsSetting()
    {
        MacDesktop &mac = desktop();
        SparkleUpdater updater;
        QVERIFY(mac.services.updaterRuns && mac.platform.updateChecks == 0);
        for (const bool checks : {false, true}) {
            updater.setAutomaticallyChecksForUpdates(checks);
            QCOMPARE(mac.platform.checksForUpdates, checks);
            QCOMPARE(updater.automaticallyChecksForUpdates(), checks);
        }
        updater.checkForUpdates();
        QCOMPARE(mac.platform.updateChecks, 1);
    }

    void thePanelFloatsWithoutActivating()
    {
        MacShell shell;
        for (Class kind : {NSPanel.class, NSWindow.class}) {
            NSWindow *window =
                [[[kind alloc] initWithContentRect:NSMakeRect(0, 0, 300, 400)
                                         styleMask:NSWindowStyleMaskTitled] autorelease];
            shell.showOnAllDesktops(std::uintptr_t(window.contentView));
            const bool isPanel = kind == NSPanel.class;
            QCOMPARE(window.styleMask, NSUInteger(isPanel ? 1 << 7 | 1 : 1));
            QCOMPARE(window.level, 25);
            QCOMPARE(window.collectionBehavior, NSUInteger(1 << 0 | 1 << 8));
            QVERIFY(!window.hidesOnDeactivate && !window.isReleasedWhenClosed);
        }
        shell.showOnAllDesktops(0);
    }

    void theStatusItemShowsWhereItIsAndIsPressed()
    {
        InMemoryScreens &displays = desktop().platform.display;
        displays.plug(QStringLiteral("Primary"), {0, 0, 1440, 900}, 0);
        displays.plug(QStringLiteral("Right"), {1440, -180, 1920, 1080}, 1);
        std::swap(displays.displays[0], displays.displays[1]); // the list need not begin with it
        desktop().services.statusItemFrame = Rect{3000, 1055, 24, 25};
        NSStatusBar *bar = NSStatusBar.systemStatusBar;

        std::optional<MacStatusItem> port(std::in_place);
        port->setToolTip(QStringLiteral("Panorel: Office"));
        QVERIFY(!port->buttonFrame() && !bar.shownItem);
        int presses = 0;
        port->show([&] {
            if (++presses == 2)
                port->hide();
        });
        NSStatusBarButton *button = bar.shownItem.button;
        QVERIFY(button.image && [button.image isTemplate]);
        QCOMPARE(textOf(button.toolTip), QStringLiteral("Panorel: Office"));
        port->setToolTip(QStringLiteral("Panorel: Home"));
        QCOMPARE(textOf(button.toolTip), QStringLiteral("Panorel: Home"));
        QVERIFY(port->buttonFrame() == (Rect{3000, -180, 24, 25}));

        [button performClick:nil];
        QTRY_COMPARE(presses, 1);
        [button performClick:nil];
        QTRY_COMPARE(presses, 2);
        QVERIFY(!bar.shownItem && !port->buttonFrame());

        displays.displays.clear();
        port->show([&] { ++presses; });
        QVERIFY(!port->buttonFrame());
        [bar.shownItem.button performClick:nil];
        port.reset(); // with a press on its way
        QVERIFY(!bar.shownItem);
        QCoreApplication::processEvents();
        QCOMPARE(presses, 2);
    }

    // Faults made on purpose, so that a detector that finds none is known to work.

    void callsOffTheMainThreadAndWrongQueuesAreFound()
    {
        std::thread([] { MacScreens().screens(); }).join();
        QVERIFY(takeFaults().join(u' ').contains(u"[NSScreen screens] called off the main thread"));
        bool ranOnMain = true;
        bool *told = &ranOnMain;
        NSNotificationCenter *centre = NSWorkspace.sharedWorkspace.notificationCenter;
        id token = [centre addObserverForName:NSWorkspaceDidLaunchApplicationNotification
                                       object:nil
                                        queue:nil
                                   usingBlock:^(NSNotification *) {
                                     *told = isMainThread();
                                   }];
        desktop().platform.desktop.launch(QStringLiteral("a"), {});
        QVERIFY(!ranOnMain);
        [centre removeObserver:token];
    }

    void aLeakAndASecondReleaseFailTheProgram()
    {
        for (const auto &[fault, report] : {std::pair("--leak", "LeakSanitizer"),
                                            {"--leak-block", "LeakSanitizer"},
                                            {"--release-twice", "AddressSanitizer"}}) {
            QProcess child;
            child.start(QCoreApplication::applicationFilePath(), {QLatin1String(fault)});
            QVERIFY(child.waitForFinished());
            QVERIFY2(child.exitCode() != 0, fault);
            QVERIFY2(child.readAllStandardError().contains(report), fault);
        }
    }
};

namespace {

int commit(const QByteArray &fault)
{
    @autoreleasepool {
        EKEventStore *store = [[EKEventStore alloc] init];
        if (fault == "--leak-block")
            Block_copy(^{
              (void)fault;
            });
        if (fault != "--leak")
            [store release];
        if (fault == "--release-twice")
            [store release];
    }
    return 0;
}

} // namespace

int main(int argc, char **argv)
{
    if (argc > 1)
        return commit(argv[1]);
    const QCoreApplication application(argc, argv);
    int failures = 0;
    @autoreleasepool {
        MacObjCTests tests;
        failures = runOnTheMac<WorkspaceContract, MacRig>() + runOnTheMac<ScreensContract, MacRig>()
                   + QTest::qExec(&tests);
    }
    return failures + int(takeRemains().size()); // of what the pool released
}

#include "MacObjCTests.moc"

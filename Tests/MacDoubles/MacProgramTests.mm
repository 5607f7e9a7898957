#include "MacDoubles/LedgerTests.h"
#include "Panorel/AppController.h"
#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "PanorelMac/MacPlatform.h"
#include "Support/FakeScheduler.h"

#include <QTest>

using namespace Panorel;
using namespace Panorel::MacDoubles;
using namespace std::chrono_literals;

namespace {

constexpr Rect leftPlace{100, 100, 400, 300};
constexpr Rect rightPlace{2000, 200, 500, 400};
constexpr Rect clampedPlace{900, 200, 500, 400};
const QString layoutsFile = QStringLiteral("layouts.json");

/// Two displays, an editor on the left one and a mail program on the right one; then the program.
struct Desk {
    InMemoryPlatform &mac = desktop().platform;
    ProcessIdentifier mailPID = 0;
    int editor = 0;
    int mail = 0;

    Desk()
    {
        mac.display.plug(QStringLiteral("Built-in"), {0, 0, 1440, 900}, 0);
        plugDock();
        const auto editorPID =
            mac.desktop.launch(QStringLiteral("editor"), QStringLiteral("Editor"));
        mailPID = mac.desktop.launch(QStringLiteral("mail"), QStringLiteral("Mail"));
        editor = mac.desktop.open(editorPID, QStringLiteral("Notes"), leftPlace);
        mail = mac.desktop.open(mailPID, QStringLiteral("Inbox"), rightPlace);
    }
    void plugDock() { mac.display.plug(QStringLiteral("Dock"), {1440, 0, 1920, 1080}, 9); }
    Rect &mailFrame() { return mac.desktop.window(mail).frame; }
};

struct Program : Desk {
    TestDataDir dir;
    FakeScheduler scheduler{dir.clock};
    std::unique_ptr<Platform> platform = makePlatform(dir.log, dir.clock);
    PanelModel panel;
    Prefs prefs{platform->userDefaults(), platform->activationPolicy(), platform->loginItem()};
    DisplayWatcher watcher{platform->screens(), scheduler, dir.log};
    HotKeyCenter hotKeys{platform->hotKeys()};
    std::unique_ptr<AppController> controller = std::make_unique<AppController>(
        panel, AppServices{*platform, watcher, hotKeys, prefs, scheduler, dir.log, dir.clock});

    /// The system tells the change on a thread of its own; then all is quiet for that long.
    bool settle(std::chrono::milliseconds quiet)
    {
        mac.display.announceChange();
        const bool isSettling = QTest::qWaitFor([this] { return watcher.isSettling(); });
        scheduler.advance(quiet);
        return isSettling;
    }
    /// The system pushes the dock's window onto what is left.
    bool undock()
    {
        mac.display.unplug(QStringLiteral("Dock"));
        mailFrame() = clampedPlace;
        return settle(10min);
    }
    bool dock()
    {
        plugDock();
        return settle(1500ms);
    }
    std::vector<Layout> layouts() { return LayoutStore(dir.log, dir.clock).allLayouts(); }
    QByteArray learned() { return dir.read(layoutsFile); }
};

} // namespace

/// The whole program on the macOS port.
class MacProgramTests : public LedgerTests {
    Q_OBJECT

private Q_SLOTS:
    void theDeskComesBackAfterUndockingAndDocking()
    {
        Program program;
        QCOMPARE(program.panel.windowCount(), 2);
        QCOMPARE(program.panel.displayNames(), QStringLiteral("Built-in + Dock"));
        program.scheduler.advance(10min);
        QVERIFY(program.undock()); // and learns the laptop on its own
        QCOMPARE(program.layouts().size(), 2u);
        QVERIFY(program.mailFrame() == clampedPlace);
        QVERIFY(program.dock());
        QVERIFY(program.mailFrame() == rightPlace);
        QVERIFY(program.mac.desktop.window(program.editor).frame == leftPlace);
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Put back 2 windows"));
        QCOMPARE(program.layouts().size(), 2u);
    }

    /// At the lock screen no application lists a window, while the window server still shows them.
    void nothingLearnedIsLostAtTheLockScreen()
    {
        for (const bool isServerBlank : {false, true}) {
            resetDesktop();
            Program program;
            const QByteArray learned = program.learned();
            QVERIFY(!learned.isEmpty());
            desktop().manners.isBlank = true;
            for (const int window : {program.editor, program.mail})
                program.mac.desktop.window(window).isOnScreen = !isServerBlank;
            program.scheduler.advance(1h);
            program.controller->saveLayoutNow();
            QCOMPARE(program.learned(), learned);

            // The displays woke up first.
            QVERIFY(program.settle(1h));
            QCOMPARE(program.learned(), learned);
            desktop().manners.isBlank = false;
            for (const int window : {program.editor, program.mail})
                program.mac.desktop.window(window).isOnScreen = true;
            program.mailFrame() = clampedPlace;
            program.controller->restoreNow();
            QVERIFY(program.mailFrame() == rightPlace);
        }
    }

    void aPermissionTakenAwayCostsNothingButTheWait()
    {
        Program program;
        program.panel.onStash();
        QVERIFY(!program.mac.desktop.window(program.mail).isVisible());
        program.panel.onStash();
        QVERIFY(program.mac.desktop.window(program.mail).isVisible());
        program.scheduler.advance(1min);
        const QByteArray learned = program.learned();
        program.mac.desktop.trusted = false;
        program.mailFrame() = clampedPlace;
        program.scheduler.advance(1h);
        program.controller->saveLayoutNow();
        QVERIFY(program.settle(1h));
        program.controller->restoreNow();
        QVERIFY(program.mailFrame() == clampedPlace);
        QCOMPARE(program.learned(), learned);
        QVERIFY(!program.panel.hasPermission());

        program.mac.desktop.trusted = true;
        program.controller->restoreNow();
        QVERIFY(program.mailFrame() == rightPlace);
        QVERIFY(program.panel.hasPermission());
    }

    void anApplicationThatHangsDoesNotKeepTheOthersFromTheirPlaces()
    {
        Program program;
        const QByteArray learned = program.learned();
        program.mailFrame() = clampedPlace;
        program.mac.desktop.window(program.editor).frame = clampedPlace;
        desktop().manners.hung = {program.mailPID};
        program.controller->restoreNow();
        QVERIFY(program.mac.desktop.window(program.editor).frame == leftPlace);
        QCOMPARE(program.panel.lastAction(), QStringLiteral("Put back 1 of 2 windows"));
        QCOMPARE(program.learned(), learned);
        desktop().manners.hung.clear();
        program.controller->restoreNow();
        QVERIFY(program.mailFrame() == rightPlace);
    }

    void aStartedProgramOpensWhereItLives()
    {
        Program program;
        program.mac.desktop.quit(program.mailPID);
        program.scheduler.advance(10min);
        const auto pid = program.mac.desktop.add(QStringLiteral("mail"), QStringLiteral("Mail"));
        const int window = program.mac.desktop.open(pid, QStringLiteral("Inbox"), clampedPlace);
        program.mac.desktop.announceLaunch(pid);
        QVERIFY(QTest::qWaitFor([&] {
            program.scheduler.advance(250ms);
            return program.mac.desktop.window(window).frame == rightPlace;
        }));
    }
};

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    int failures = 0;
    for (const bool isSecondPass : {false, true}) {
        LedgerTests::isSecondPass = isSecondPass;
        MacProgramTests tests;
        failures += QTest::qExec(&tests, argc, argv);
    }
    return failures;
}

#include "MacProgramTests.moc"

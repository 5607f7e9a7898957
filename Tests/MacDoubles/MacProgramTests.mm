#include "MacDoubles/MacTests.h"
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
    int editor = open(QStringLiteral("editor"), leftPlace);
    int mail = open(QStringLiteral("mail"), rightPlace);

    Desk()
    {
        mac.display.plug(QStringLiteral("Built-in"), {0, 0, 1440, 900}, 0);
        plugDock();
    }
    int open(const QString &application, const Rect &place)
    {
        return mac.desktop.open(mac.desktop.launch(application, {}), application, place);
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
class MacProgramTests : public MacTests {
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
        Program program;
        const QByteArray learned = program.learned();
        QVERIFY(!learned.isEmpty());
        desktop().manners.isBlank = true;
        program.scheduler.advance(1h);
        program.controller->saveLayoutNow();
        QVERIFY(program.settle(1h)); // the displays woke up first
        QCOMPARE(program.learned(), learned);

        desktop().manners.isBlank = false;
        program.mailFrame() = clampedPlace;
        program.controller->restoreNow();
        QVERIFY(program.mailFrame() == rightPlace);
    }
};

QTEST_GUILESS_MAIN(MacProgramTests)
#include "MacProgramTests.moc"

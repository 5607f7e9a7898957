#include "MacDoubles/MacTests.h"
#include "Panorel/AppController.h"
#include "Panorel/PanelModel.h"
#include "Panorel/Prefs.h"
#include "PanorelMac/MacPlatform.h"
#include "Support/FakeScheduler.h"

using namespace Panorel;
using namespace Panorel::MacDoubles;
using namespace std::chrono_literals;

/// The whole program on the macOS port.
class MacProgramTests : public MacTests {
    Q_OBJECT

private Q_SLOTS:
    void theDeskComesBackAfterUndockingAndDocking()
    {
        const Rect left{100, 100, 400, 300}, right{2000, 200, 500, 400},
            clamped{900, 200, 500, 400};
        InMemoryPlatform &mac = desktop().platform;
        const auto plug = [&](const char *name, const Rect &frame, std::uint32_t serial) {
            mac.display.plug(QString::fromLatin1(name), frame, serial);
        };
        const auto open = [&](const QString &name, const Rect &frame) -> InMemoryWindow & {
            const auto pid = mac.desktop.launch(name, {});
            return mac.desktop.window(mac.desktop.open(pid, name, frame));
        };
        plug("Built-in", {0, 0, 1440, 900}, 0);
        plug("Dock", {1440, 0, 1920, 1080}, 9);
        const InMemoryWindow &editor = open(QStringLiteral("editor"), left);
        InMemoryWindow &mail = open(QStringLiteral("mail"), right);

        TestDataDir dir;
        FakeScheduler scheduler{dir.clock};
        const std::unique_ptr<Platform> platform = makePlatform(dir.log, dir.clock);
        PanelModel panel;
        Prefs prefs{platform->userDefaults(), platform->activationPolicy(), platform->loginItem()};
        DisplayWatcher watcher{platform->screens(), scheduler, dir.log};
        HotKeyCenter hotKeys{platform->hotKeys()};
        AppController controller(
            panel, AppServices{*platform, watcher, hotKeys, prefs, scheduler, dir.log, dir.clock});
        QCOMPARE(panel.windowCount(), 2);
        QCOMPARE(panel.displayNames(), QStringLiteral("Built-in + Dock"));
        scheduler.advance(10min);

        mac.display.unplug(QStringLiteral("Dock"));
        mail.frame = clamped; // by the system, onto what is left
        mac.display.announceChange();
        QTRY_VERIFY(watcher.isSettling());
        scheduler.advance(10min); // and learns the laptop on its own
        QVERIFY(mail.frame == clamped);
        plug("Dock", {1440, 0, 1920, 1080}, 9);
        mac.display.announceChange();
        QTRY_VERIFY(watcher.isSettling());
        scheduler.advance(1500ms);
        QVERIFY(mail.frame == right && editor.frame == left);
        QCOMPARE(panel.lastAction(), QStringLiteral("Put back 2 windows"));
        QCOMPARE(LayoutStore(dir.log, dir.clock).allLayouts().size(), 2u);
    }
};

QTEST_GUILESS_MAIN(MacProgramTests)
#include "MacProgramTests.moc"

#include "PanorelEngine/Displays/DisplayWatcher.h"

#include "PanorelCore/Desks/ConfigID.h"
#include "Support/FakeScheduler.h"
#include "Support/InMemoryPlatform.h"

#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

namespace {

struct Watch {
    TestDataDir dir;
    FakeScheduler scheduler{dir.clock};
    InMemoryScreens screens;
    DisplayWatcher watcher{screens, scheduler, dir.log};
    std::vector<QString> settled;

    Watch()
    {
        screens.plug(QStringLiteral("Built-in"), {0, 0, 1440, 900}, 0);
        watcher.setOnDeskSettled([this](const QString &configID, const auto &displays) {
            QVERIFY(!watcher.isSettling());
            QVERIFY(displays == watcher.displays());
            settled.push_back(configID);
        });
    }
};

} // namespace

class DisplayWatcherTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void startingReadsTheDisplaysAndAnnouncesNothing()
    {
        Watch watch;
        watch.watcher.start();
        QCOMPARE(watch.watcher.configID(),
                 ConfigID::compute({QStringLiteral("00000610-0000-0000-A050-00000000")}));
        watch.scheduler.advance(1h);
        QVERIFY(watch.settled.empty());
    }

    void framesAreTurnedToTheTopLeftSpace()
    {
        Watch watch;
        watch.screens.plug(QStringLiteral("Tall"), {1440, -700, 1200, 1920}, 0xBEEF);
        watch.watcher.start();
        const DisplayInfo tall = watch.watcher.displays().at(1);
        QVERIFY(tall.frame == (Rect{1440, -700, 1200, 1920}));
        QVERIFY(tall.visibleFrame == (Rect{1440, -675, 1200, 1895}));
        QCOMPARE(tall.edidUUID, QStringLiteral("00000610-0000-0000-A050-0000BEEF"));

        watch.screens.displays[0].screen.frame = {10, 20, 800, 600}; // none is at the origin now
        watch.watcher.refresh();
        QVERIFY(watch.watcher.displays().at(0).frame == (Rect{10, -20, 800, 600}));
    }

    void aScreenWithoutANumberIsLeftOut()
    {
        Watch watch;
        watch.screens.plug(QStringLiteral("Ghost"), {1440, 0, 100, 100}, 7);
        watch.screens.displays[1].screen.displayNumber.reset();
        watch.screens.displays[0].identity.uuid.reset();
        watch.watcher.start();
        QCOMPARE(watch.watcher.displays().size(), 1u);
        QCOMPARE(watch.watcher.displays()[0].uuid, QString());
    }

    void aBurstOfChangesSettlesOnceAfterTheDelay()
    {
        Watch watch;
        watch.watcher.start();
        watch.screens.plug(QStringLiteral("Desk"), {1440, 0, 1920, 1080}, 1);
        for (int event = 0; event < 10; ++event) {
            watch.screens.announceChange();
            QVERIFY(watch.watcher.isSettling());
            watch.scheduler.advance(200ms);
        }
        watch.watcher.setSettleSeconds(0); // from the next change on
        watch.scheduler.advance(1299ms);
        QVERIFY(watch.settled.empty());
        QCOMPARE(watch.watcher.displays().size(), 1u);
        watch.scheduler.advance(1ms);
        QCOMPARE(watch.settled, std::vector{watch.watcher.configID()});
        QCOMPARE(watch.watcher.displays().size(), 2u);
        watch.scheduler.advance(1h);
        QCOMPARE(watch.settled.size(), 1u);
        watch.screens.announceChange();
        watch.scheduler.advance(0ms);
        QCOMPARE(watch.settled.size(), 2u); // announced again though nothing has changed
    }
};

QTEST_GUILESS_MAIN(DisplayWatcherTests)
#include "DisplayWatcherTests.moc"

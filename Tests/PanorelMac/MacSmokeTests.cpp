#include "PanorelEngine/Displays/DisplayWatcher.h"
#include "PanorelPorts/Platform.h"
#include "Support/FakeScheduler.h"

#include <QTest>

using namespace Panorel;
using namespace std::chrono_literals;

/// The real interfaces of macOS, as far as a session without any granted permission lets the port
/// at them. Changes nothing that outlasts it.
class MacSmokeTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void init() { m_platform = makePlatform(m_dir.log, m_dir.clock); }
    void cleanup() { m_platform.reset(); }

    void theDisplaysMakeADesk()
    {
        FakeScheduler scheduler(m_dir.clock);
        DisplayWatcher watcher(m_platform->screens(), scheduler, m_dir.log);
        watcher.refresh();
        const DisplayInfo primary = watcher.currentDisplays().at(0);
        QCOMPARE(primary.frame.x, 0.0);
        QCOMPARE(primary.frame.y, 0.0);
        QVERIFY(!primary.uuid.isEmpty());
    }

    void theFinderRunsAndCanBeFound()
    {
        const QString finder = QStringLiteral("com.apple.finder");
        const auto applications = m_platform->workspace().runningApplications();
        const auto found = std::ranges::find(applications, finder, &RunningApplication::bundleID);
        QVERIFY(found != applications.end() && found->policy == ActivationPolicy::Regular);
        QVERIFY(m_platform->launcher().locate(finder).has_value());
    }

    void windowsAreListed()
    {
        const auto listed = m_platform->windowList().onScreenWindows();
        QVERIFY(listed.has_value());
        for (const WindowListEntry &entry : *listed)
            QVERIFY(entry.layer && entry.ownerPID && entry.bounds && entry.alpha);
    }

    void aHotKeyIsTakenAndGivenBack()
    {
        HotKeyPort &keys = m_platform->hotKeys();
        keys.setPressedCallback([](HotKeyNumber) {});
        const HotKeyCombo f19{80, HotKeyCombo::shift | HotKeyCombo::command | HotKeyCombo::option};
        for (int i = 0; i < 2; ++i)
            QVERIFY(keys.registerHotKey(f19, 1));
    }

    void anAlarmRings()
    {
        bool hasRung = false;
        const auto alarm = m_platform->alarm().runAt(
            std::chrono::time_point_cast<Instant::duration>(std::chrono::system_clock::now()),
            [&] { hasRung = true; });
        QVERIFY(QTest::qWaitFor([&] { return hasRung; }));
    }

    void theStatusItemShowsInTheMenuBar()
    {
        StatusItemPort &item = *m_platform->statusItem();
        item.setToolTip(QStringLiteral("Panorel"));
        item.show([] {});
        QVERIFY(QTest::qWaitFor([&] { return item.buttonFrame().has_value(); }));
        item.hide();
        QVERIFY(!item.buttonFrame());
    }

private:
    TestDataDir m_dir;
    std::unique_ptr<Platform> m_platform;
};

QTEST_MAIN(MacSmokeTests)
#include "MacSmokeTests.moc"

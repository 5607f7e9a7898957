#include "Contracts/ScreensContract.h"

#include <QTest>

namespace Panorel {

void ScreensContract::thePrimaryScreenIsTheOriginOfTheBottomLeftSpace()
{
    m_rig.plugSecondDisplay();
    const auto screens = m_rig.screens().screens();
    QCOMPARE(screens.size(), 2u);
    QVERIFY(screens[0].frame == (Rect{0, 0, 1920, 1080}));
    // The tops are level, so the lower screen begins above the primary's bottom.
    QVERIFY(screens[1].frame == (Rect{1920, 56, 1280, 1024}));
    for (const Screen &screen : screens) {
        QVERIFY(screen.displayNumber.has_value());
        QVERIFY(!screen.localizedName.isEmpty());
        QVERIFY(screen.frame.intersection(screen.visibleFrame) == screen.visibleFrame);
    }
    m_rig.unplugSecondDisplay();
}

void ScreensContract::plugAndUnplugAreAnnouncedAndShow()
{
    int announced = 0;
    m_rig.screens().setChangeCallback([&] { ++announced; });
    m_rig.plugSecondDisplay();
    QVERIFY(m_rig.waitUntil([&] { return announced > 0; }));
    QCOMPARE(m_rig.screens().screens().size(), 2u);

    announced = 0;
    m_rig.unplugSecondDisplay();
    QVERIFY(m_rig.waitUntil([&] { return announced > 0; }));
    QCOMPARE(m_rig.screens().screens().size(), 1u);
    m_rig.screens().setChangeCallback({});
}

void ScreensContract::aDisplayKeepsItsIdentityAcrossAnUnplug()
{
    const auto identityOfSecond = [this] {
        return m_rig.screens().identity(m_rig.screens().screens().at(1).displayNumber.value());
    };
    m_rig.plugSecondDisplay();
    const DisplayIdentity before = identityOfSecond();
    const auto first =
        m_rig.screens().identity(m_rig.screens().screens().at(0).displayNumber.value());
    QVERIFY(before.uuid.has_value());
    QVERIFY(before.uuid != first.uuid);
    m_rig.unplugSecondDisplay();
    m_rig.plugSecondDisplay();
    const DisplayIdentity after = identityOfSecond();
    QCOMPARE(after.uuid, before.uuid);
    QCOMPARE(after.serialNumber, before.serialNumber);
    m_rig.unplugSecondDisplay();

    const DisplayIdentity gone = m_rig.screens().identity(4711);
    QVERIFY(!gone.uuid);
    QCOMPARE(gone.serialNumber, 0u);
}

} // namespace Panorel

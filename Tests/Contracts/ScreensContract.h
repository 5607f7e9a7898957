#pragma once

#include "Contracts/DesktopRig.h"

namespace Panorel {

/// What DisplayWatcher relies on in every platform's screens.
class ScreensContract : public QObject {
    Q_OBJECT

public:
    explicit ScreensContract(DesktopRig &rig) : m_rig(rig) {}

private Q_SLOTS:
    void aDisplayIsAnnouncedPlacedAndKnownAgain()
    {
        int announced = 0;
        m_rig.screens().setChangeCallback([&] { ++announced; });
        m_rig.plugSecondDisplay();
        QVERIFY(m_rig.waitUntil([&] { return announced > 0; }));
        const auto screens = m_rig.screens().screens();
        QCOMPARE(screens.size(), 2u);
        // From the primary's bottom left. The tops are level, so the lower screen begins above it.
        QVERIFY(screens[0].frame == (Rect{0, 0, 1920, 1080}));
        QVERIFY(screens[1].frame == (Rect{1920, 56, 1280, 1024}));
        for (const Screen &screen : screens)
            QVERIFY(screen.frame.intersection(screen.visibleFrame) == screen.visibleFrame);
        const auto uuid = identity(1).uuid;
        QVERIFY(uuid.has_value() && uuid != identity(0).uuid);

        announced = 0;
        m_rig.unplugSecondDisplay();
        QVERIFY(m_rig.waitUntil([&] { return announced > 0; }));
        m_rig.screens().setChangeCallback({});
        m_rig.plugSecondDisplay();
        QCOMPARE(identity(1).uuid, uuid);
        m_rig.unplugSecondDisplay();
    }

private:
    DisplayIdentity identity(std::size_t place)
    {
        return m_rig.screens().identity(m_rig.screens().screens().at(place).displayNumber.value());
    }

    DesktopRig &m_rig;
};

} // namespace Panorel

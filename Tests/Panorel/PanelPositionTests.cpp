#include "Panorel/Panel/PanelPosition.h"
#include "Panorel/Panel/VisibleFrame.h"

#include <QTest>

using namespace Panorel;

class PanelPositionTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thePanelOpensOnTheInnerSideOfTheBar_data()
    {
        QTest::addColumn<PanelAnchor>("anchor");
        QTest::addColumn<QRect>("expected");
        const auto row = [](const char *name, const PanelAnchor &anchor, const QRect &expected) {
            QTest::newRow(name) << anchor << expected;
        };
        const QRect belowBar(0, 24, 1920, 1056);
        const QRect aboveBar(0, 0, 1920, 1050);
        const QRect whole(0, 0, 1920, 1080);
        // A panel of 320 x 400.
        row("centred under the button", {QRect(900, 0, 30, 24), belowBar, {}}, {755, 30, 320, 400});
        row("near the right edge", {QRect(1880, 0, 24, 24), belowBar, {}}, {1592, 30, 320, 400});
        row("a step before it", {QRect(1739, 0, 24, 24), belowBar, {}}, {1591, 30, 320, 400});
        row("near the left edge", {QRect(0, 0, 24, 24), belowBar, {}}, {8, 30, 320, 400});
        row("smaller than its bar", {QRect(900, 4, 30, 16), belowBar, {}}, {755, 30, 320, 400});
        row("a bar that takes no space", {QRect(900, 0, 30, 24), whole, {}}, {755, 30, 320, 400});
        row("at the bottom", {QRect(900, 1052, 30, 24), aboveBar, {}}, {755, 644, 320, 400});
        row("there, no space", {QRect(1896, 1056, 24, 24), whole, {}}, {1592, 650, 320, 400});
        row("a bar at the left", {QRect(4, 1040, 40, 30), QRect(48, 0, 1872, 1080), {}},
            {54, 672, 320, 400});
        row("a bar at the right", {QRect(1876, 10, 40, 30), QRect(0, 0, 1872, 1080), {}},
            {1546, 8, 320, 400});
        row("a display left of the primary",
            {QRect(-60, -1080, 24, 24), QRect(-1920, -1056, 1920, 1056), {}},
            {-328, -1050, 320, 400});
        row("higher than the screen", {QRect(900, 0, 30, 24), QRect(0, 24, 1920, 300), {}},
            {755, 30, 320, 284});
        row("pointer in a bar above", {{}, belowBar, QPoint(1900, 12)}, {1592, 32, 320, 400});
        row("pointer in a bar below", {{}, aboveBar, QPoint(220, 1065)}, {60, 642, 320, 400});
        row("pointer far from any edge", {{}, belowBar, QPoint(900, 700)}, {740, 672, 320, 400});
        row("neither button nor pointer", {{}, belowBar, {}}, {1592, 32, 320, 400});
        row("smaller than the panel", {{}, QRect(0, 0, 200, 100), {}}, {8, 8, 320, 84});
    }

    void thePanelOpensOnTheInnerSideOfTheBar()
    {
        QFETCH(PanelAnchor, anchor);
        QTEST(panelFrame(anchor, {320, 400}), "expected");
    }

    void theVisibleFrameIsInQtsUnits()
    {
        DisplayInfo left;
        left.frame = {0, 0, 1920, 1080};
        left.visibleFrame = {0, 32, 1920, 1048};
        DisplayInfo right; // drawn at twice the size
        right.frame = {1920, 0, 3840, 2160};
        right.visibleFrame = {1920, 40, 3840, 2120};
        const auto visible = [&](const QRect &screen) {
            return visibleFrameOf(screen, {left, right});
        };
        QCOMPARE(visible({0, 0, 1920, 1080}), QRect(0, 32, 1920, 1048));
        QCOMPARE(visible({1920, 0, 1920, 1080}), QRect(1920, 20, 1920, 1060));
        QCOMPARE(visible({5760, 0, 800, 600}), QRect(5760, 0, 800, 600)); // not read yet
    }
};

QTEST_GUILESS_MAIN(PanelPositionTests)
#include "PanelPositionTests.moc"

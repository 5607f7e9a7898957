#include "Panorel/Panel/PanelPosition.h"
#include "Panorel/Panel/VisibleFrame.h"

#include <QTest>

using namespace Panorel;

class PanelPositionTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void thePanelOpensOnTheInnerSideOfTheBar_data();
    void thePanelOpensOnTheInnerSideOfTheBar();
    void theVisibleFrameIsInQtsUnits_data();
    void theVisibleFrameIsInQtsUnits();
};

void PanelPositionTests::thePanelOpensOnTheInnerSideOfTheBar_data()
{
    using Button = std::optional<QRect>;
    using Pointer = std::optional<QPoint>;
    QTest::addColumn<Button>("button");
    QTest::addColumn<QRect>("visible");
    QTest::addColumn<Pointer>("pointer");
    QTest::addColumn<QRect>("expected");
    const QRect belowBar(0, 24, 1920, 1056);
    const QRect aboveBar(0, 0, 1920, 1050);
    const Button none;
    const Pointer nobody;
    // A panel of 320 x 400.
    QTest::newRow("centred under the button")
        << Button(QRect(900, 0, 30, 24)) << belowBar << nobody << QRect(755, 30, 320, 400);
    QTest::newRow("near the right edge")
        << Button(QRect(1880, 0, 24, 24)) << belowBar << nobody << QRect(1592, 30, 320, 400);
    QTest::newRow("a step before the right edge")
        << Button(QRect(1739, 0, 24, 24)) << belowBar << nobody << QRect(1591, 30, 320, 400);
    QTest::newRow("near the left edge")
        << Button(QRect(0, 0, 24, 24)) << belowBar << nobody << QRect(8, 30, 320, 400);
    QTest::newRow("a button smaller than its bar")
        << Button(QRect(900, 4, 30, 16)) << belowBar << nobody << QRect(755, 30, 320, 400);
    QTest::newRow("a bar that takes no space")
        << Button(QRect(900, 0, 30, 24)) << QRect(0, 0, 1920, 1080) << nobody
        << QRect(755, 30, 320, 400);
    QTest::newRow("a bar at the bottom")
        << Button(QRect(900, 1052, 30, 24)) << aboveBar << nobody << QRect(755, 644, 320, 400);
    QTest::newRow("at the bottom, taking no space")
        << Button(QRect(1896, 1056, 24, 24)) << QRect(0, 0, 1920, 1080) << nobody
        << QRect(1592, 650, 320, 400);
    QTest::newRow("a bar at the left") << Button(QRect(4, 1040, 40, 30)) << QRect(48, 0, 1872, 1080)
                                       << nobody << QRect(54, 672, 320, 400);
    QTest::newRow("a bar at the right")
        << Button(QRect(1876, 10, 40, 30)) << QRect(0, 0, 1872, 1080) << nobody
        << QRect(1546, 8, 320, 400);
    QTest::newRow("a display left of the primary")
        << Button(QRect(-60, -1080, 24, 24)) << QRect(-1920, -1056, 1920, 1056) << nobody
        << QRect(-328, -1050, 320, 400);
    QTest::newRow("higher than the screen")
        << Button(QRect(900, 0, 30, 24)) << QRect(0, 24, 1920, 300) << nobody
        << QRect(755, 30, 320, 284);
    QTest::newRow("pointer in a bar at the top")
        << none << belowBar << Pointer(QPoint(1900, 12)) << QRect(1592, 32, 320, 400);
    QTest::newRow("pointer in a bar at the bottom")
        << none << aboveBar << Pointer(QPoint(220, 1065)) << QRect(60, 642, 320, 400);
    QTest::newRow("pointer far from any edge")
        << none << belowBar << Pointer(QPoint(900, 700)) << QRect(740, 672, 320, 400);
    QTest::newRow("neither button nor pointer")
        << none << belowBar << nobody << QRect(1592, 32, 320, 400);
    QTest::newRow("a screen smaller than the panel")
        << none << QRect(0, 0, 200, 100) << nobody << QRect(8, 8, 320, 84);
}

void PanelPositionTests::thePanelOpensOnTheInnerSideOfTheBar()
{
    QFETCH(std::optional<QRect>, button);
    QFETCH(QRect, visible);
    QFETCH(std::optional<QPoint>, pointer);
    QFETCH(QRect, expected);
    QCOMPARE(panelFrame({button, visible, pointer}, {320, 400}), expected);
}

void PanelPositionTests::theVisibleFrameIsInQtsUnits_data()
{
    QTest::addColumn<QRect>("screen");
    QTest::addColumn<QRect>("expected");
    QTest::newRow("one to one") << QRect(0, 0, 1920, 1080) << QRect(0, 32, 1920, 1048);
    QTest::newRow("drawn at twice the size")
        << QRect(1920, 0, 1920, 1080) << QRect(1920, 20, 1920, 1060);
    QTest::newRow("a display not read yet") << QRect(5760, 0, 800, 600) << QRect(5760, 0, 800, 600);
}

void PanelPositionTests::theVisibleFrameIsInQtsUnits()
{
    QFETCH(QRect, screen);
    QFETCH(QRect, expected);
    DisplayInfo left;
    left.frame = {0, 0, 1920, 1080};
    left.visibleFrame = {0, 32, 1920, 1048};
    DisplayInfo right;
    right.frame = {1920, 0, 3840, 2160};
    right.visibleFrame = {1920, 40, 3840, 2120};
    QCOMPARE(visibleFrameOf(screen, {left, right}), expected);
}

QTEST_GUILESS_MAIN(PanelPositionTests)
#include "PanelPositionTests.moc"

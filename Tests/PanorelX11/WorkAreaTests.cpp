#include "PanorelX11/Displays/WorkArea.h"

#include <QObject>
#include <QTest>

using namespace Panorel;
using namespace Panorel::X11;

class WorkAreaTests : public QObject {
    Q_OBJECT

    using Values = std::vector<std::uint32_t>;

    // Two monitors side by side, the second one lower than the root window.
    const Rect m_left{0, 0, 1920, 1200};
    const Rect m_right{1920, 0, 1280, 1024};
    const Size m_root{3200, 1200};

private Q_SLOTS:
    void panelTakesSpaceFromItsOwnMonitorOnly()
    {
        // The values: left, right, top, bottom; where each begins and ends.
        const auto row = [this](const char *name, const Values &values, Rect left, Rect right) {
            const auto struts = strutsFromValues(values);
            QVERIFY2(workArea(m_left, struts, m_root) == left, name);
            QVERIFY2(workArea(m_right, struts, m_root) == right, name);
        };
        row("ends one pixel before the right one", {0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 0, 1919},
            {0, 0, 1920, 1160}, m_right);
        row("reaches one pixel into the right one", {0, 0, 30, 0, 0, 0, 0, 0, 0, 1920, 0, 0},
            {0, 30, 1920, 1170}, {1920, 30, 1280, 994});
        row("bottom of the lower one, counted from the root's edge",
            {0, 0, 0, 176 + 24, 0, 0, 0, 0, 0, 0, 1920, 3199}, m_left, {1920, 0, 1280, 1000});
        row("between the monitors, on the right one's left side",
            {1920 + 48, 0, 0, 0, 0, 1023, 0, 0, 0, 0, 0, 0}, m_left, {1968, 0, 1232, 1024});
        row("between the monitors, on the left one's right side",
            {0, 1280 + 48, 0, 0, 0, 0, 0, 1199, 0, 0, 0, 0}, {0, 0, 1872, 1200}, m_right);
        row("below the right one only", {0, 100, 0, 0, 0, 0, 1024, 1199, 0, 0, 0, 0}, m_left,
            m_right);
        row("larger than the root", {0, 0, 0xffffffff, 0, 0, 0, 0, 0, 0, 0xffffffff, 0, 0}, m_left,
            m_right);
        row("cut short", Values(11, 7), m_left, m_right);
        row("of three", {1, 2, 3}, m_left, m_right);
    }

    void panelsAddUpUntilNothingIsLeft()
    {
        auto struts = strutsFromValues({40, 0, 30, 0});
        QCOMPARE(workArea(m_left, struts, m_root), (Rect{40, 30, 1880, 1170}));
        struts.push_back({Strut::Edge::Top, 20, 0, 5000});
        QCOMPARE(workArea(m_left, struts, m_root), (Rect{40, 30, 1880, 1170}));
        struts.push_back({Strut::Edge::Bottom, 1175, 0, 5000});
        QCOMPARE(workArea(m_left, struts, m_root), m_left);
    }
};

QTEST_GUILESS_MAIN(WorkAreaTests)
#include "WorkAreaTests.moc"

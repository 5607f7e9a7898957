#include "PanorelX11/Displays/WorkArea.h"

#include <QObject>
#include <QTest>

using namespace Panorel;
using namespace Panorel::X11;

class WorkAreaTests : public QObject {
    Q_OBJECT

private:
    // Two monitors side by side, the second one lower than the root window.
    const Rect m_left{0, 0, 1920, 1200};
    const Rect m_right{1920, 0, 1280, 1024};
    const Size m_root{3200, 1200};

    static std::vector<Strut> partial(Strut::Edge edge, std::uint32_t thickness,
                                      std::uint32_t first, std::uint32_t last)
    {
        std::vector<std::uint32_t> values(12, 0);
        values[std::size_t(edge)] = thickness;
        values[4 + 2 * std::size_t(edge)] = first;
        values[5 + 2 * std::size_t(edge)] = last;
        return strutsFromValues(values);
    }

private Q_SLOTS:
    void panelTakesSpaceFromItsOwnMonitorOnly_data()
    {
        QTest::addColumn<Strut::Edge>("edge");
        QTest::addColumn<std::uint32_t>("thickness");
        QTest::addColumn<std::uint32_t>("first");
        QTest::addColumn<std::uint32_t>("last");
        QTest::addColumn<Rect>("left");
        QTest::addColumn<Rect>("right");

        using enum Strut::Edge;
        const auto row = [](const char *name, Strut::Edge edge, std::uint32_t thickness,
                            std::uint32_t first, std::uint32_t last, Rect left, Rect right) {
            QTest::newRow(name) << edge << thickness << first << last << left << right;
        };
        row("top of the left one", Top, 30, 0, 1919, {0, 30, 1920, 1170}, m_right);
        row("ends one pixel before the right one", Bottom, 40, 0, 1919, {0, 0, 1920, 1160},
            m_right);
        row("reaches one pixel into the right one", Top, 30, 0, 1920, {0, 30, 1920, 1170},
            {1920, 30, 1280, 994});
        row("bottom of the lower one, counted from the root's edge", Bottom, 176 + 24, 1920, 3199,
            m_left, {1920, 0, 1280, 1000});
        row("between the monitors, on the right one's left side", Left, 1920 + 48, 0, 1023, m_left,
            {1968, 0, 1232, 1024});
        row("between the monitors, on the left one's right side", Right, 1280 + 48, 0, 1199,
            {0, 0, 1872, 1200}, m_right);
        row("below the right one only", Right, 100, 1024, 1199, m_left, m_right);
        row("larger than the root", Top, 0xffffffff, 0, 0xffffffff, m_left, m_right);
    }

    void panelTakesSpaceFromItsOwnMonitorOnly()
    {
        QFETCH(Strut::Edge, edge);
        QFETCH(std::uint32_t, thickness);
        QFETCH(std::uint32_t, first);
        QFETCH(std::uint32_t, last);
        const auto struts = partial(edge, thickness, first, last);
        QTEST(workArea(m_left, struts, m_root), "left");
        QTEST(workArea(m_right, struts, m_root), "right");
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

    void propertyOfAWrongLengthReservesNothing()
    {
        QVERIFY(strutsFromValues({}).empty());
        QVERIFY(strutsFromValues({1, 2, 3}).empty());
        QVERIFY(strutsFromValues(std::vector<std::uint32_t>(11, 7)).empty());
    }
};

QTEST_GUILESS_MAIN(WorkAreaTests)
#include "WorkAreaTests.moc"

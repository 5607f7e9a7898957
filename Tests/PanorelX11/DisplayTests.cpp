#include "PanorelEngine/Displays/DisplayWatcher.h"
#include "PanorelX11/Displays/ConnectedOutput.h"
#include "PanorelX11/Displays/ScreenList.h"
#include "PanorelX11/Displays/WorkArea.h"
#include "Support/FakeScheduler.h"
#include "Support/InMemoryPlatform.h"

#include <QTest>

#include <numeric>

namespace Panorel::X11 {

namespace {

/// A base block as a display sends it, with one descriptor of the given tag.
QByteArray edidBlock(const QByteArray &descriptorText, char tag = char(0xFC), qsizetype slot = 1)
{
    QByteArray block(128, '\0');
    block.replace(0, 8, QByteArray("\0\xFF\xFF\xFF\xFF\xFF\xFF\0", 8));
    block.replace(8, 8, QByteArray("\x1E\x6D\x09\x5B\x40\xE2\x01\x00", 8));
    QByteArray descriptor("\0\0\0\0\0", 5);
    descriptor[3] = tag;
    descriptor += descriptorText.leftJustified(13, ' ', true);
    block.replace(54 + 18 * slot, 18, descriptor);
    block[127] = char(-std::accumulate(block.begin(), block.end(), 0));
    return block;
}

ConnectedOutput output(const char *connector, const QByteArray &edid = {})
{
    return {1, QString::fromLatin1(connector), Edid::parse(edid)};
}

Monitor monitor(DisplayNumber number, Rect frame, const char *connector, bool isPrimary = false)
{
    Rect visible = frame;
    visible.height -= 40; // a panel at the lower edge
    return {frame, visible, isPrimary, number, QString::fromLatin1(connector), QString()};
}

} // namespace

class DisplayTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void anEdidIsReadOrRefusedAsAWhole()
    {
        const QByteArray good = edidBlock("LG ULTRAFINE\n");
        const std::pair<QByteArray, QString> accepted[] = {
            {edidBlock("Last\n", char(0xFC), 3), QStringLiteral("Last")}, // the last descriptor
            {edidBlock("S/N 7\n", char(0xFF)), {}},                       // serial text is no name
            {edidBlock("A\xFF\x1b\n"), QStringLiteral("A\uFFFD\uFFFD")},
            {good + QByteArray(20, 'x'), QStringLiteral("LG ULTRAFINE")}, // extension cut off
        };
        for (const auto &[bytes, name] : accepted) {
            const auto edid = Edid::parse(bytes);
            QVERIFY2(edid.has_value(), qPrintable(name));
            QCOMPARE(edid->vendor, 0x1E6D);
            QCOMPARE(edid->model, 0x5B09);
            QCOMPARE(edid->serial, 123456U);
            QCOMPARE(edid->name, name);
        }
        QByteArray wrongChecksum = good;
        wrongChecksum[20] = 7;
        for (const QByteArray &refused : {QByteArray(), good.left(127), wrongChecksum})
            QVERIFY(!Edid::parse(refused));
    }

    void aDisplayKeepsItsIdentity()
    {
        const QByteArray edid = edidBlock("Desk\n");
        const auto uuid = [](const ConnectedOutput &display) { return *display.identity().uuid; };

        // Stored with the layouts, so it must never change from one release to the next.
        QCOMPARE(uuid(output("DP-1", edid)),
                 QStringLiteral("375A993D-F0C9-5335-B3A2-C6130B9A99CB"));
        QCOMPARE(output("DP-1").identity().serialNumber, 0x2F01DD26U);

        QVERIFY(uuid(output("DP-1", edid)) != uuid(output("DP-2", edid)));
        QVERIFY(uuid(output("DP-1", edid)) != uuid(output("DP-1")));
        QCOMPARE(output("DP-2", edid).identity().serialNumber, 123456U);
    }

    void everyScreenComesBackAtItsRootPlace()
    {
        const Rect left{0, 0, 1920, 1080};
        const Rect right{1920, 0, 2560, 1440};
        struct Row {
            const char *name;
            std::vector<Monitor> monitors;
            QList<DisplayNumber> order;
        };
        const Row rows[] = {
            {"order of switching on plays no part",
             {monitor(2, right, "DP-2"), monitor(1, left, "DP-1")},
             {1, 2}},
            {"primary right of the origin, taller",
             {monitor(1, left, "DP-1"), monitor(2, right, "DP-2", true)},
             {2, 1}},
            {"nothing at the origin, a lower edge where the origin would be",
             {monitor(1, {1920, 0, 1920, 1080}, "DP-1", true),
              monitor(2, {0, 80, 1920, 1000}, "DP-2")},
             {2, 1}},
            {"an overlapping one with its lower edge where the origin's is",
             {monitor(1, {0, 540, 960, 540}, "DP-1", true), monitor(2, left, "DP-2")},
             {2, 1}},
            {"mirrored displays are one screen",
             {monitor(1, left, "HDMI-1"), monitor(2, left, "eDP-1", true),
              monitor(3, right, "DP-1")},
             {2, 3}},
        };
        for (const Row &row : rows) {
            QList<DisplayNumber> order;
            for (const DisplayInfo &display : watched(screenList(row.monitors))) {
                order.append(display.uuid.toUInt());
                const auto original =
                    std::ranges::find(row.monitors, order.back(), &Monitor::display);
                QVERIFY2(display.frame == original->frame, row.name);
                QVERIFY2(display.visibleFrame == original->visibleFrame, row.name);
            }
            QVERIFY2(order == row.order, row.name);
        }
    }

    void panelTakesSpaceFromItsOwnMonitorOnly()
    {
        // Two monitors side by side, the second one lower than the root window.
        constexpr Rect left{0, 0, 1920, 1200};
        constexpr Rect right{1920, 0, 1280, 1024};
        // The values: left, right, top, bottom; where each begins and ends.
        const auto row = [&](const char *name, const std::vector<std::uint32_t> &values,
                             Rect leftArea, Rect rightArea) {
            const auto struts = strutsFromValues(values);
            QVERIFY2(workArea(left, struts, {3200, 1200}) == leftArea, name);
            QVERIFY2(workArea(right, struts, {3200, 1200}) == rightArea, name);
        };
        row("ends one pixel before the right one", {0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 0, 1919},
            {0, 0, 1920, 1160}, right);
        row("reaches one pixel into the right one", {0, 0, 30, 0, 0, 0, 0, 0, 0, 1920, 0, 0},
            {0, 30, 1920, 1170}, {1920, 30, 1280, 994});
        row("bottom of the lower one, counted from the root's edge",
            {0, 0, 0, 176 + 24, 0, 0, 0, 0, 0, 0, 1920, 3199}, left, {1920, 0, 1280, 1000});
        row("between the monitors, on the right one's left side",
            {1920 + 48, 0, 0, 0, 0, 1023, 0, 0, 0, 0, 0, 0}, left, {1968, 0, 1232, 1024});
        row("larger than the root", {0, 0, 0xffffffff, 0, 0, 0, 0, 0, 0, 0xffffffff, 0, 0}, left,
            right);
        row("cut short", {7, 7, 7, 7, 7, 7, 7, 7, 7, 7, 7}, left, right);
    }

private:
    /// As the watcher reads them; its number is the identity of each.
    static std::vector<DisplayInfo> watched(const std::vector<Screen> &list)
    {
        TestDataDir dataDir;
        InMemoryScreens screens;
        for (const Screen &screen : list)
            screens.displays.push_back(
                {screen, {QString::number(screen.displayNumber.value()), 0, 0, 0, false}});
        FakeScheduler scheduler(dataDir.clock);
        return DisplayWatcher(screens, scheduler, dataDir.log).currentDisplays();
    }
};

} // namespace Panorel::X11

QTEST_GUILESS_MAIN(Panorel::X11::DisplayTests)
#include "DisplayTests.moc"

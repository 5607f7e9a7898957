#include "PanorelEngine/Displays/DisplayWatcher.h"
#include "PanorelX11/Displays/ConnectedOutput.h"
#include "PanorelX11/Displays/ScreenList.h"
#include "Support/FakeScheduler.h"
#include "Support/InMemoryPlatform.h"

#include <QTest>

#include <numeric>

namespace Panorel::X11 {

namespace {

void putChecksum(QByteArray &block)
{
    const int sum = std::accumulate(block.begin(), block.begin() + 127, 0,
                                    [](int total, char byte) { return total + quint8(byte); });
    block[127] = char(256 - sum % 256);
}

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
    putChecksum(block);
    return block;
}

QByteArray withByte(QByteArray block, qsizetype index, char byte, bool mendChecksum)
{
    block[index] = byte;
    if (mendChecksum)
        putChecksum(block);
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
            {edidBlock("Last\n", char(0xFC), 3), QStringLiteral("Last")},  // the last descriptor
            {edidBlock("ABCDEFGHIJKLM"), QStringLiteral("ABCDEFGHIJKLM")}, // without line feed
            {edidBlock("\n"), {}},
            {edidBlock("S/N 7\n", char(0xFF)), {}}, // serial text is no name
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
        const QByteArray wrongChecksum = withByte(good, 20, 7, false);
        const QByteArray wrongHeader = withByte(good, 7, 1, true);
        for (const QByteArray &refused : {QByteArray(), good.left(127), wrongChecksum, wrongHeader})
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
        QVERIFY(uuid(output("DP-1", edid)) != uuid(output("DP-1", withByte(edid, 12, 1, true))));
        QCOMPARE(output("DP-2", edid).identity().serialNumber, 123456U);
        QCOMPARE(output("DP-1").identity().vendorNumber, 0U);
        QVERIFY(output("DP-1").identity().serialNumber != output("DP-2").identity().serialNumber);
    }

    void aDisplayIsCalledWhatTheUserKnows()
    {
        const QByteArray named = edidBlock("B140HAN\n");
        for (const char *connector : {"eDP-1", "eDP1", "LVDS-1", "DSI-1"}) {
            QCOMPARE(output(connector, named).name(), QStringLiteral("Built-in display"));
            QVERIFY(output(connector).identity().isBuiltin);
        }
        QVERIFY(!output("DP-1", named).identity().isBuiltin);
        QCOMPARE(output("DP-1", named).name(), QStringLiteral("B140HAN"));
        QCOMPARE(output("DP-1", edidBlock("\n")).name(), QStringLiteral("DP-1"));
        QCOMPARE(output("HDMI-2").name(), QStringLiteral("HDMI-2"));
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
            {"nothing at the origin",
             {monitor(1, {0, 200, 1920, 1080}, "DP-1"), monitor(2, right, "DP-2", true)},
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
            {"mirrored with another size are two",
             {monitor(1, {0, 0, 1920, 1200}, "eDP-1"), monitor(2, left, "HDMI-1")},
             {2, 1}},
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

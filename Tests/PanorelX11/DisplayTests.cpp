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
    void anEdidIsReadOrRefusedAsAWhole_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("accepted");
        QTest::addColumn<QString>("name");
        const QByteArray good = edidBlock("LG ULTRAFINE\n");
        const QString lg = QStringLiteral("LG ULTRAFINE");

        QTest::newRow("whole") << good << true << lg;
        QTest::newRow("name in the last descriptor")
            << edidBlock("Last\n", char(0xFC), 3) << true << QStringLiteral("Last");
        QTest::newRow("name of full length without line feed")
            << edidBlock("ABCDEFGHIJKLM") << true << QStringLiteral("ABCDEFGHIJKLM");
        QTest::newRow("blank name") << edidBlock("\n") << true << QString();
        QTest::newRow("serial text is no name")
            << edidBlock("S/N 7\n", char(0xFF)) << true << QString();
        QTest::newRow("name that is not text")
            << edidBlock("A\xFF\x1b\n") << true << QStringLiteral("A\uFFFD\uFFFD");
        QTest::newRow("extension block cut off") << good + QByteArray(20, 'x') << true << lg;
        QTest::newRow("empty") << QByteArray() << false << QString();
        QTest::newRow("one byte short") << good.left(127) << false << QString();
        QTest::newRow("wrong checksum") << withByte(good, 20, 7, false) << false << QString();
        QTest::newRow("wrong header, right checksum")
            << withByte(good, 7, 1, true) << false << QString();
    }

    void anEdidIsReadOrRefusedAsAWhole()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, accepted);
        const auto edid = Edid::parse(bytes);
        QCOMPARE(edid.has_value(), accepted);
        if (!edid)
            return;
        QCOMPARE(edid->vendor, 0x1E6D);
        QCOMPARE(edid->model, 0x5B09);
        QCOMPARE(edid->serial, 123456U);
        QTEST(edid->name, "name");
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

    void everyScreenComesBackAtItsRootPlace_data()
    {
        QTest::addColumn<std::vector<Monitor>>("monitors");
        QTest::addColumn<QList<DisplayNumber>>("order");
        using Monitors = std::vector<Monitor>;
        const Rect left{0, 0, 1920, 1080};

        QTest::newRow("order of switching on plays no part")
            << Monitors{monitor(2, {1920, 0, 1280, 800}, "DP-2"), monitor(1, left, "DP-1")}
            << QList<DisplayNumber>{1, 2};
        QTest::newRow("primary right of the origin, taller")
            << Monitors{monitor(1, left, "DP-1"), monitor(2, {1920, 0, 2560, 1440}, "DP-2", true)}
            << QList<DisplayNumber>{2, 1};
        QTest::newRow("nothing at the origin")
            << Monitors{monitor(1, {0, 200, 1920, 1080}, "DP-1"),
                        monitor(2, {1920, 0, 2560, 1440}, "DP-2", true)}
            << QList<DisplayNumber>{2, 1};
        QTest::newRow("nothing at the origin, a lower edge where the origin would be")
            << Monitors{monitor(1, {1920, 0, 1920, 1080}, "DP-1", true),
                        monitor(2, {0, 80, 1920, 1000}, "DP-2")}
            << QList<DisplayNumber>{2, 1};
        QTest::newRow("an overlapping one with its lower edge where the origin's is")
            << Monitors{monitor(1, {0, 540, 960, 540}, "DP-1", true), monitor(2, left, "DP-2")}
            << QList<DisplayNumber>{2, 1};
        QTest::newRow("mirrored displays are one screen")
            << Monitors{monitor(1, left, "HDMI-1"), monitor(2, left, "eDP-1", true),
                        monitor(3, {1920, 0, 1280, 800}, "DP-1")}
            << QList<DisplayNumber>{2, 3};
        QTest::newRow("mirrored with another size are two")
            << Monitors{monitor(1, {0, 0, 1920, 1200}, "eDP-1"), monitor(2, left, "HDMI-1")}
            << QList<DisplayNumber>{2, 1};
    }

    void everyScreenComesBackAtItsRootPlace()
    {
        QFETCH(std::vector<Monitor>, monitors);
        QFETCH(QList<DisplayNumber>, order);
        TestDataDir dataDir;
        InMemoryScreens screens;
        for (const Screen &screen : screenList(monitors))
            screens.displays.push_back(
                {screen, {QString::number(screen.displayNumber.value()), 0, 0, 0, false}});
        FakeScheduler scheduler(dataDir.clock);
        const auto displays = DisplayWatcher(screens, scheduler, dataDir.log).currentDisplays();

        QCOMPARE(qsizetype(displays.size()), order.size());
        for (qsizetype i = 0; i < order.size(); ++i) {
            QCOMPARE(displays[size_t(i)].uuid, QString::number(order[i]));
            const auto original = std::ranges::find(monitors, order[i], &Monitor::display);
            QVERIFY(displays[size_t(i)].frame == original->frame);
            QVERIFY(displays[size_t(i)].visibleFrame == original->visibleFrame);
        }
    }
};

} // namespace Panorel::X11

QTEST_GUILESS_MAIN(Panorel::X11::DisplayTests)
#include "DisplayTests.moc"

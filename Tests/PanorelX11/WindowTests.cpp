#include "PanorelX11/Windows/FrameGeometry.h"
#include "PanorelX11/Windows/SizeHints.h"
#include "PanorelX11/Windows/WindowTitle.h"

#include <QObject>
#include <QTest>

#include <array>
#include <limits>

using namespace Panorel;
using namespace Panorel::X11;

/// What the numbers and bytes that a client and the window manager set say of a window, and the
/// arithmetic between what the user sees and what the protocol speaks of.
class WindowTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void theFrameHasTheTitleBarButNotTheShadow()
    {
        const FrameGeometry decorated{{105, 220, 400, 300}, {5, 5, 20, 5}, std::nullopt};
        QVERIFY(decorated.visibleFrame() == (PixelRect{100, 200, 410, 325}));
        QVERIFY(decorated.clientFor({0, 0, 410, 325}) == (PixelRect{5, 20, 400, 300}));

        const FrameGeometry selfDecorated{{74, 177, 552, 452}, {}, Extents{26, 26, 23, 29}};
        QVERIFY(selfDecorated.visibleFrame() == (PixelRect{100, 200, 500, 400}));
        QVERIFY(selfDecorated.clientFor({100, 200, 500, 400}) == selfDecorated.client);
        QVERIFY(!extentsFromValues({1, 2, 0xffffffff, 4})); // no window has such borders
    }

    void aStoredFrameIsAskedForInPixelsTheProtocolCanSay()
    {
        QVERIFY(nearestPixels({10.4, -10.6, 300.5, 200.2}) == (PixelRect{10, -11, 301, 200}));
        QVERIFY(nearestPixels({1e300, -1e300, 0, 1e300}) == (PixelRect{32767, -32768, 1, 32767}));
        const double nan = std::numeric_limits<double>::quiet_NaN();
        QVERIFY(nearestPixels({nan, nan, nan, nan}) == (PixelRect{0, 0, 1, 1}));
    }

    void aRequestNamesThePointThatTheGravityMeans()
    {
        const std::pair<std::uint32_t, Point> expected[] = {
            {1, {96, 180}},  {2, {101, 180}},  {6, {106, 195}},
            {9, {106, 210}}, {10, {100, 200}}, {77, {96, 180}}, // no such gravity: north west
        };
        for (const auto &[gravity, origin] : expected)
            QCOMPARE(requestedOrigin({100, 200, 300, 150}, {4, 6, 20, 10}, gravity), origin);
    }

    void aWindowIsBroughtIntoAnAreaByTheShortestWay()
    {
        const Rect area{1920, 30, 1280, 994};
        QVERIFY(movedInto(area, {2000, 100, 500, 400}) == (PixelRect{2000, 100, 500, 400}));
        QVERIFY(movedInto(area, {100, 900, 500, 400}) == (PixelRect{1920, 624, 500, 400}));
        QVERIFY(movedInto(area, {0, 0, 5000, 400}) == (PixelRect{1920, 30, 1280, 400}));
    }

    void aClientsHintsTellWhichSizeItWillTake()
    {
        using Values = std::vector<std::uint32_t>;
        // Minimum, maximum and increment, then base: width and height each.
        const auto hints = [](std::uint32_t flags, const std::array<std::uint32_t, 8> &sizes) {
            Values values(18);
            values[0] = flags;
            std::copy_n(sizes.begin(), 6, values.begin() + 5);
            std::copy_n(sizes.begin() + 6, 2, values.begin() + 15);
            return values;
        };
        const std::uint32_t min = 1 << 4;
        const std::uint32_t max = 1 << 5;
        const std::uint32_t inc = 1 << 6;
        const std::uint32_t base = 1 << 8;
        constexpr PixelRect asked{0, 0, 500, 333};
        const std::tuple<const char *, Values, PixelRect> rows[] = {
            {"no hints", {}, asked},
            {"terminal", hints(min | inc | base, {10, 17, 0, 0, 6, 13, 4, 4}), {0, 0, 496, 329}},
            {"fixed", hints(min | max, {640, 480, 640, 480}), {0, 0, 640, 480}},
            {"contradiction", hints(min | max, {600, 400, 300, 200}), {0, 0, 600, 400}},
            {"absurd",
             hints(min | max | inc | base, {0, 0, 0xffffffff, 0, 0, 0xfffffff0, 0x80000000, 1}),
             asked},
        };
        for (const auto &[name, values, taken] : rows)
            QVERIFY2(SizeHints::fromValues(values).constrained(asked) == taken, name);
    }

    void everyTitleIsValidText()
    {
        const std::tuple<QByteArray, QString, QString> rows[] = {
            // As text in Latin-1 with escape sequences, and as UTF-8.
            {" a  b\n", u" a  b\n"_qs, u" a  b\n"_qs},
            {"\xfc", u"\u00fc"_qs, u"\uFFFD"_qs},
            {QByteArray("ab\0cd", 5), u"ab"_qs, u"ab"_qs},
            {"a\x1b%G\xc3\xbc\x1b%@\xfc", u"a\u00fc\u00fc"_qs, {}},
            {"a\x1b$(B0l\x1b(Bz", u"a\uFFFD\uFFFDz"_qs, {}}, // another character set
        };
        for (const auto &[bytes, compound, utf8] : rows) {
            QCOMPARE(titleFromCompoundText(bytes), compound);
            QVERIFY(utf8.isNull() || titleFromUtf8(bytes) == utf8);
        }
    }
};

QTEST_GUILESS_MAIN(WindowTests)
#include "WindowTests.moc"

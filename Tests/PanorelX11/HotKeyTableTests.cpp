#include "PanorelX11/HotKeys/HotKeyTable.h"

#include <QTest>

using namespace Panorel;
using namespace Panorel::X11;

namespace {

const HotKeyCombo altS{1, HotKeyCombo::option};
const HotKeyCombo altD{2, HotKeyCombo::option};
const HotKeyCombo superS{1, HotKeyCombo::command};

constexpr std::uint16_t shift = XCB_MOD_MASK_SHIFT;
constexpr std::uint16_t alt = XCB_MOD_MASK_1;
constexpr std::uint16_t num = XCB_MOD_MASK_2;
constexpr std::uint16_t super = XCB_MOD_MASK_4;

Keyboard keyboard(xcb_keycode_t s, xcb_keycode_t d)
{
    return {{{"AC02", s}, {"AC03", d}}, super, alt, num};
}

/// A server that notes what is grabbed.
struct Server {
    Server() { table.setKeyboard(keyboard(39, 40)); }

    std::set<KeyGrab> grabbed;
    int calls = 0;
    HotKeyTable table{[this](const KeyGrab &grab) {
                          ++calls;
                          return grabbed.insert(grab).second;
                      },
                      [this](const KeyGrab &grab) {
                          ++calls;
                          grabbed.erase(grab);
                      }};
};

} // namespace

class HotKeyTableTests : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void modifiersAreFoundByTheirKeys()
    {
        const std::pair<std::vector<ModifierKey>, QList<int>> rows[] = {
            {{{alt, 0xffe9}, {num, 0xff7f}, {super, 0xffeb}, {super, 0xffec}}, {super, alt, num}},
            {{{alt, 0xffec}, {super, 0xffea}}, {alt, super, 0}}, // right-hand keys only
            {{{super, 0xffeb}, {num, 0xffec}}, {num, 0, 0}},     // the lowest of several
            {{{shift, 0xffe1}}, {0, 0, 0}},
        };
        for (const auto &[modifierKeys, expected] : rows) {
            Keyboard board = keyboard(39, 40);
            board.setModifiers(modifierKeys);
            QCOMPARE((QList<int>{board.command, board.option, board.numLock}), expected);
            QCOMPARE(board.find(superS).has_value(), board.command != 0);
        }
    }

    void aKeymapChangeMovesOnlyWhatHasMoved()
    {
        Server server;
        server.table.add(1, altS);
        server.table.add(2, altD);
        server.calls = 0;
        server.table.setKeyboard(keyboard(39, 41));
        QCOMPARE(server.calls, 2);
        QCOMPARE(server.grabbed, (std::set<KeyGrab>{{39, alt, num}, {41, alt, num}}));
        server.table.setKeyboard(keyboard(41, 39)); // they change places
        QCOMPARE(server.grabbed.size(), 2u);
        QCOMPARE(server.table.pressed(41, alt), 1u);
        QCOMPARE(server.table.pressed(39, alt), 2u);
    }

    void aKeyThatIsGoneComesBackWithALaterKeymap()
    {
        Server server;
        server.table.add(1, altS);
        server.table.setKeyboard({});
        QVERIFY(server.grabbed.empty());
        QVERIFY(!server.table.add(2, altS));
        server.table.setKeyboard(keyboard(50, 40));
        QCOMPARE(server.table.pressed(50, alt), 1u);
    }
};

QTEST_GUILESS_MAIN(HotKeyTableTests)
#include "HotKeyTableTests.moc"

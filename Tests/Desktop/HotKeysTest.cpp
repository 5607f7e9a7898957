#include "Contracts/HotKeysContract.h"
#include "Desktop/Support/ChildProcess.h"
#include "Desktop/Support/TestKeyboard.h"
#include "Desktop/Support/TestServer.h"
#include "PanorelX11/HotKeys/X11HotKeys.h"

#include <QTest>

using namespace Panorel;
using namespace Panorel::Desktop;
using namespace Panorel::X11;

namespace {

/// The contract suite's keyboard on a real server.
class RealRig final : public HotKeysRig {
public:
    RealRig()
    {
        focused.takeFocus();
        events.addListener([this](const xcb_generic_event_t &event) {
            if (event.response_type == XCB_KEY_PRESS)
                ++m_pressesSeen;
        });
    }

    HotKeyPort &hotKeys() override { return port; }
    void press(const HotKeyCombo &combo) override { keyboard.press(combo); }
    void hold(const HotKeyCombo &combo) override
    {
        const int enough = m_pressesSeen + 5;
        keyboard.press(combo, [&] { return m_pressesSeen >= enough; });
    }
    bool takeByAnother(const HotKeyCombo &combo) override
    {
        other = std::make_unique<KeyboardUser>();
        return other->grab(combo);
    }
    void endTheOther() override { other.reset(); }
    void toggleCapsLock() override { keyboard.press(TestKeyboard::capsLock); }
    void toggleNumLock() override { keyboard.press(TestKeyboard::numLock); }
    void setLayout(const QString &layout) override
    {
        keyboard.setKeymap(QStringLiteral("-layout ") + layout);
    }
    bool waitUntil(const std::function<bool()> &condition) override
    {
        return Desktop::waitUntil(condition);
    }

    static constexpr HotKeyCombo altShiftS{1, HotKeyCombo::option | HotKeyCombo::shift};

    TestServer server;
    TestKeyboard keyboard;
    KeyboardUser focused;
    EventConnection events;
    X11HotKeys port{events};
    std::unique_ptr<KeyboardUser> other;

private:
    int m_pressesSeen = 0; ///< by the connection, repeated ones too
};

const HotKeyCombo controlUp{126, HotKeyCombo::control};
constexpr xcb_keycode_t s = 39;
constexpr xcb_keycode_t up = 111;
constexpr xcb_keycode_t upElsewhere = 98; ///< where older servers have it

} // namespace

class HotKeysTest : public QObject {
    Q_OBJECT

public:
    explicit HotKeysTest(RealRig &rig) : m_rig(rig)
    {
        m_rig.port.setPressedCallback([this](HotKeyNumber) { ++m_told; });
    }

private Q_SLOTS:
    void init() { m_told = 0; }

    void everyNamedKeyIsWhereAUSKeyboardHasIt()
    {
        const XConnection connection;
        const Keyboard keyboard = KeyboardReader(connection).read();
        int named = 0;
        for (quint32 code = 0; code < 128; ++code) {
            const QString name = HotKeyCombo{code, 0}.displayString();
            const std::optional<KeyGrab> grab = keyboard.find({code, 0});
            if (grab)
                QCOMPARE(keyboard.keyCodeOf(grab->key), code);
            if (name.size() == 1 && name != u"?" && name.at(0).unicode() < 0x80) {
                QVERIFY2(grab, qPrintable(name));
                QCOMPARE(keysym(connection, grab->key),
                         xcb_keysym_t(name.toLower().at(0).unicode()));
                ++named;
            }
        }
        QCOMPARE(named, 47);
        const std::pair<quint32, xcb_keysym_t> others[] = {
            {36, 0xff0d},  {48, 0xff09},  {49, 0x20},    {51, 0xff08},  {53, 0xff1b},
            {122, 0xffbe}, {120, 0xffbf}, {99, 0xffc0},  {118, 0xffc1}, {96, 0xffc2},
            {97, 0xffc3},  {98, 0xffc4},  {100, 0xffc5}, {101, 0xffc6}, {109, 0xffc7},
            {103, 0xffc8}, {111, 0xffc9}, {123, 0xff51}, {126, 0xff52}, {124, 0xff53},
            {125, 0xff54}, {115, 0xff50}, {119, 0xff57}, {116, 0xff55}, {121, 0xff56},
        };
        for (const auto &[code, expected] : others)
            QCOMPARE(keysym(connection, keyboard.find({code, 0}).value().key), expected);
    }

    void aRefusalLeavesNothingHalfGrabbed()
    {
        constexpr std::uint16_t altShift = XCB_MOD_MASK_1 | XCB_MOD_MASK_SHIFT;
        const std::uint16_t variants[] = {altShift, altShift | XCB_MOD_MASK_LOCK,
                                          altShift | XCB_MOD_MASK_2,
                                          altShift | XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};
        for (const std::uint16_t held : variants) {
            auto holder = std::make_unique<KeyboardUser>();
            QVERIFY(holder->grab(s, held));
            QVERIFY(!m_rig.port.registerHotKey(RealRig::altShiftS, 1));
            holder.reset();
            for (const std::uint16_t variant : variants)
                QVERIFY(KeyboardUser().grab(s, variant));
        }
        auto registration = m_rig.port.registerHotKey(RealRig::altShiftS, 1);
        for (const std::uint16_t variant : variants)
            QVERIFY(!KeyboardUser().grab(s, variant));
    }

    void theSecondLayoutOfTwoHasTheHotKeysToo()
    {
        m_rig.keyboard.setKeymap(QStringLiteral("-layout us,de -option grp:caps_toggle"));
        const auto registration = m_rig.port.registerHotKey(RealRig::altShiftS, 1);
        m_rig.keyboard.press(TestKeyboard::capsLock);
        m_rig.keyboard.press(RealRig::altShiftS);
        QTRY_COMPARE(m_told, 1);
        m_rig.keyboard.press(TestKeyboard::capsLock);
        m_rig.keyboard.setKeymap(QStringLiteral("-layout us"));
    }

    void aCombinationFollowsItsKeyToAnotherKeyCode()
    {
        const auto registration = m_rig.port.registerHotKey(controlUp, 1);
        m_rig.keyboard.press(up, HotKeyCombo::control);
        QTRY_COMPARE(m_told, 1);
        m_rig.keyboard.setKeymap(QStringLiteral("-layout us -keycodes xfree86"));
        pressUntilTold(upElsewhere);
        m_rig.keyboard.setKeymap(QStringLiteral("-layout us"));
        pressUntilTold(up);

        // The old place is free again.
        QVERIFY(KeyboardUser().grab(upElsewhere, XCB_MOD_MASK_CONTROL));
        QVERIFY(!KeyboardUser().grab(up, XCB_MOD_MASK_CONTROL));
    }

    void aKeyPressedWhileAnotherIsHeldIsToldToo()
    {
        const auto first = m_rig.port.registerHotKey(RealRig::altShiftS, 1);
        const auto second = m_rig.port.registerHotKey({6, RealRig::altShiftS.modifiers}, 2);
        m_rig.keyboard.chord(s, 52, RealRig::altShiftS.modifiers);
        QTRY_COMPARE(m_told, 2);
        m_rig.keyboard.press(RealRig::altShiftS);
        QTRY_COMPARE(m_told, 3);
    }

    void withoutAServerNothingIsRegistered()
    {
        auto before = m_rig.port.registerHotKey(RealRig::altShiftS, 1);
        m_rig.server.kill();
        QVERIFY(!m_rig.port.registerHotKey(controlUp, 2));
        before.reset();
    }

private:
    static xcb_keysym_t keysym(const XConnection &connection, xcb_keycode_t key)
    {
        const XOwned<xcb_get_keyboard_mapping_reply_t> reply(xcb_get_keyboard_mapping_reply(
            connection.get(), xcb_get_keyboard_mapping(connection.get(), key, 1), nullptr));
        return xcb_get_keyboard_mapping_keysyms(reply.get())[0];
    }

    /// The port reads the new keymap when it gets round to it.
    void pressUntilTold(xcb_keycode_t key)
    {
        const int before = m_told;
        QTRY_VERIFY((m_rig.keyboard.press(key, HotKeyCombo::control), m_told > before));
    }

    RealRig &m_rig;
    int m_told = 0;
};

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    RealRig rig;
    int failures = 0;
    {
        HotKeysContract contract(rig);
        failures += QTest::qExec(&contract);
    }
    HotKeysTest test(rig);
    return failures + QTest::qExec(&test);
}

#include "HotKeysTest.moc"

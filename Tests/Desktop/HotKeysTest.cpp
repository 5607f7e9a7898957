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
    TestServer server;
    TestKeyboard keyboard;
    EventConnection events;
    X11HotKeys port{events};
    std::unique_ptr<KeyboardUser> other;

private:
    int m_pressesSeen = 0; ///< by the connection, repeated ones too
};

const HotKeyCombo heldElsewhere{1, HotKeyCombo::option | HotKeyCombo::shift};
constexpr xcb_keycode_t s = 39;

} // namespace

/// What every platform's hot keys do, and X11's.
class HotKeysTest : public HotKeysContract {
    Q_OBJECT

public:
    explicit HotKeysTest(RealRig &rig) : HotKeysContract(rig), m_rig(rig) {}

private Q_SLOTS:
    void aRefusalLeavesNothingHalfGrabbed()
    {
        constexpr std::uint16_t altShift = XCB_MOD_MASK_1 | XCB_MOD_MASK_SHIFT;
        const std::uint16_t variants[] = {altShift, altShift | XCB_MOD_MASK_LOCK,
                                          altShift | XCB_MOD_MASK_2,
                                          altShift | XCB_MOD_MASK_LOCK | XCB_MOD_MASK_2};
        for (const std::uint16_t held : variants) {
            auto holder = std::make_unique<KeyboardUser>();
            QVERIFY(holder->grab(s, held));
            QVERIFY(!m_rig.port.registerHotKey(heldElsewhere, 1));
            holder.reset();
            for (const std::uint16_t variant : variants)
                QVERIFY(KeyboardUser().grab(s, variant));
        }
        auto registration = m_rig.port.registerHotKey(heldElsewhere, 1);
        for (const std::uint16_t variant : variants)
            QVERIFY(!KeyboardUser().grab(s, variant));
    }

private:
    RealRig &m_rig;
};

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    RealRig rig;
    HotKeysTest test(rig);
    return QTest::qExec(&test, argc, argv);
}

#include "HotKeysTest.moc"

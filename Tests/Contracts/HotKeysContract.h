#pragma once

#include "Contracts/HotKeysRig.h"

#include <utility>

namespace Panorel {

/// What HotKeyCenter relies on in every platform's hot keys.
class HotKeysContract : public QObject {
    Q_OBJECT

public:
    explicit HotKeysContract(HotKeysRig &rig) : m_rig(rig)
    {
        m_rig.hotKeys().setPressedCallback([this](HotKeyNumber number) { m_told.append(number); });
    }
    ~HotKeysContract() override { m_rig.hotKeys().setPressedCallback({}); }

private Q_SLOTS:
    void init()
    {
        m_last = take(lastCombo, lastNumber);
        QVERIFY(m_last);
    }

    void cleanup() { m_last.reset(); }

    void aPressIsToldToItsNumberOnly()
    {
        const auto first = take(altShiftS, 1);
        const auto second = take(superShiftS, 2);
        m_rig.press({altShiftS.keyCode, HotKeyCombo::option});
        m_rig.press({altShiftS.keyCode, altShiftS.modifiers | HotKeyCombo::control});
        QCOMPARE(told(), Numbers{});
        m_rig.press(superShiftS);
        m_rig.press(altShiftS);
        QCOMPARE(told(), (Numbers{2, 1}));
    }

    void locksMakeNoDifference()
    {
        const auto registration = take(altShiftS, 3);
        for (const auto toggle : {&HotKeysRig::toggleCapsLock, &HotKeysRig::toggleNumLock,
                                  &HotKeysRig::toggleCapsLock, &HotKeysRig::toggleNumLock}) {
            (m_rig.*toggle)();
            m_rig.press(altShiftS);
            QCOMPARE(told(), Numbers{3});
        }
    }

    void aHeldKeyIsToldOnce()
    {
        const auto registration = take(altShiftS, 4);
        m_rig.hold(altShiftS);
        m_rig.press(altShiftS);
        QCOMPARE(told(), (Numbers{4, 4}));
    }

    void aLayoutLeavesCombinationsOnTheirKeys()
    {
        const auto registration = take(superZ, 6);
        for (const char *layout : {"de", "us"}) {
            m_rig.setLayout(QString::fromLatin1(layout));
            m_rig.press(superZ);
            QCOMPARE(told(), Numbers{6});
            m_rig.press(superY);
            QCOMPARE(told(), Numbers{});
        }
    }

    void whatAnotherProgramHasIsRefused()
    {
        auto registration = take(altShiftS, 11);
        QVERIFY(!m_rig.takeByAnother(altShiftS));
        registration.reset();
        QVERIFY(m_rig.takeByAnother(altShiftS)); // what is given back is free
        QVERIFY(!take(altShiftS, 12));
        m_rig.endTheOther();
        QVERIFY(take(altShiftS, 13));
    }

private:
    using Numbers = QList<HotKeyNumber>;

    static constexpr HotKeyCombo altShiftS{1, HotKeyCombo::option | HotKeyCombo::shift};
    static constexpr HotKeyCombo superShiftS{1, HotKeyCombo::command | HotKeyCombo::shift};
    static constexpr HotKeyCombo superZ{6, HotKeyCombo::command};
    static constexpr HotKeyCombo superY{16, HotKeyCombo::command};
    /// Pressed to see that all else is told.
    static constexpr HotKeyCombo lastCombo{111, HotKeyCombo::control};
    static constexpr HotKeyNumber lastNumber = 1000;

    std::unique_ptr<HotKeyRegistration> take(const HotKeyCombo &combo, HotKeyNumber number)
    {
        return m_rig.hotKeys().registerHotKey(combo, number);
    }

    /// Every number told since the last call.
    Numbers told()
    {
        m_rig.press(lastCombo);
        if (!m_rig.waitUntil([this] { return m_told.contains(lastNumber); }))
            qFatal("the last key was not told");
        m_told.removeAll(lastNumber);
        return std::exchange(m_told, {});
    }

    HotKeysRig &m_rig;
    std::unique_ptr<HotKeyRegistration> m_last;
    Numbers m_told;
};

} // namespace Panorel

#include "Contracts/HotKeysContract.h"

#include <QTest>

#include <utility>

namespace Panorel {

namespace {

const HotKeyCombo altShiftS{1, HotKeyCombo::option | HotKeyCombo::shift};
const HotKeyCombo superShiftS{1, HotKeyCombo::command | HotKeyCombo::shift};
const HotKeyCombo superZ{6, HotKeyCombo::command};
const HotKeyCombo superY{16, HotKeyCombo::command};
const HotKeyCombo lastCombo{111, HotKeyCombo::control}; ///< pressed to see that all else is told
constexpr HotKeyNumber lastNumber = 1000;

using Numbers = QList<HotKeyNumber>;

} // namespace

HotKeysContract::HotKeysContract(HotKeysRig &rig) : m_rig(rig)
{
    m_rig.hotKeys().setPressedCallback([this](HotKeyNumber number) {
        m_told.append(number);
        if (m_onPress && number != lastNumber)
            m_onPress();
    });
}

HotKeysContract::~HotKeysContract()
{
    m_rig.hotKeys().setPressedCallback({});
}

void HotKeysContract::init()
{
    m_last = take(lastCombo, lastNumber);
    QVERIFY(m_last);
}

void HotKeysContract::cleanup()
{
    m_last.reset();
    m_onPress = {};
}

std::unique_ptr<HotKeyRegistration> HotKeysContract::take(const HotKeyCombo &combo,
                                                          HotKeyNumber number)
{
    return m_rig.hotKeys().registerHotKey(combo, number);
}

QList<HotKeyNumber> HotKeysContract::told()
{
    m_rig.press(lastCombo);
    if (!m_rig.waitUntil([this] { return m_told.contains(lastNumber); }))
        qFatal("the last key was not told");
    m_told.removeAll(lastNumber);
    return std::exchange(m_told, {});
}

void HotKeysContract::aPressIsToldToItsNumberOnly()
{
    const auto first = take(altShiftS, 1);
    const auto second = take(superShiftS, 2);
    m_rig.press(superShiftS);
    QCOMPARE(told(), Numbers{2});
    m_rig.press({altShiftS.keyCode, HotKeyCombo::option});
    m_rig.press({altShiftS.keyCode, altShiftS.modifiers | HotKeyCombo::control});
    QCOMPARE(told(), Numbers{});
    m_rig.press(altShiftS);
    m_rig.press(superShiftS);
    QCOMPARE(told(), (Numbers{1, 2}));
}

void HotKeysContract::locksMakeNoDifference()
{
    const auto registration = take(altShiftS, 3);
    m_rig.toggleCapsLock();
    m_rig.press(altShiftS);
    QCOMPARE(told(), Numbers{3});
    m_rig.toggleNumLock();
    m_rig.press(altShiftS);
    QCOMPARE(told(), Numbers{3});
    m_rig.toggleCapsLock();
    m_rig.press(altShiftS);
    QCOMPARE(told(), Numbers{3});
    m_rig.toggleNumLock();
}

void HotKeysContract::aHeldKeyIsToldOnce()
{
    const auto first = take(altShiftS, 4);
    const auto second = take(superShiftS, 5);
    m_rig.hold(altShiftS);
    m_rig.press(altShiftS);
    m_rig.hold(superShiftS);
    QCOMPARE(told(), (Numbers{4, 4, 5}));
}

void HotKeysContract::aLayoutLeavesCombinationsOnTheirKeys()
{
    const auto registration = take(superZ, 6);
    for (const char *layout : {"de", "us"}) {
        m_rig.setLayout(QString::fromLatin1(layout));
        m_rig.press(superZ);
        QCOMPARE(told(), Numbers{6});
        m_rig.press(superY);
        QCOMPARE(told(), Numbers{});
        const auto later = take(superY, 7); // by the layout's own map
        m_rig.press(superY);
        QCOMPARE(told(), Numbers{7});
    }
}

void HotKeysContract::theEarliestOfTwoIsTold()
{
    auto first = take(altShiftS, 8);
    auto second = take(altShiftS, 9);
    QVERIFY(first && second);
    m_rig.press(altShiftS);
    QCOMPARE(told(), Numbers{8});
    first.reset();
    m_rig.press(altShiftS);
    QCOMPARE(told(), Numbers{9});
    first = take(altShiftS, 10);
    m_rig.press(altShiftS);
    QCOMPARE(told(), Numbers{9});
    first.reset();
    second.reset();
    m_rig.press(altShiftS);
    QCOMPARE(told(), Numbers{});
}

void HotKeysContract::whatAnotherProgramHasIsRefused()
{
    QVERIFY(m_rig.takeByAnother(altShiftS));
    QVERIFY(!take(altShiftS, 11));
    const auto other = take(superShiftS, 11);
    m_rig.press(altShiftS);
    m_rig.press(superShiftS);
    QCOMPARE(told(), Numbers{11});

    m_rig.endTheOther();
    const auto registration = take(altShiftS, 12);
    m_rig.press(altShiftS);
    QCOMPARE(told(), Numbers{12});
}

void HotKeysContract::whatIsGivenBackIsFree()
{
    auto registration = take(altShiftS, 13);
    QVERIFY(!m_rig.takeByAnother(altShiftS));
    registration.reset();
    QVERIFY(m_rig.takeByAnother(altShiftS));
    m_rig.endTheOther();
}

void HotKeysContract::aKeyThatNoKeyboardHasIsRefused()
{
    QVERIFY(!take({0xffffffff, HotKeyCombo::command}, 14));
    QVERIFY(!take({200, HotKeyCombo::command}, 14));
}

void HotKeysContract::aPressMayReplaceItsOwnRegistration()
{
    auto registration = take(altShiftS, 15);
    m_onPress = [&] {
        registration.reset();
        registration = take(superShiftS, 16);
    };
    m_rig.press(altShiftS);
    QCOMPARE(told(), Numbers{15});
    m_onPress = {};
    m_rig.press(altShiftS);
    m_rig.press(superShiftS);
    QCOMPARE(told(), Numbers{16});
}

} // namespace Panorel

#pragma once

#include "Contracts/HotKeysRig.h"

#include <QList>
#include <QObject>

namespace Panorel {

/// What HotKeyCenter relies on in every platform's hot keys.
class HotKeysContract : public QObject {
    Q_OBJECT

public:
    explicit HotKeysContract(HotKeysRig &rig);
    ~HotKeysContract() override;

private Q_SLOTS:
    void init();
    void cleanup();

    void aPressIsToldToItsNumberOnly();
    void locksMakeNoDifference();
    void aHeldKeyIsToldOnce();
    void aLayoutLeavesCombinationsOnTheirKeys();
    void theEarliestOfTwoIsTold();
    void whatAnotherProgramHasIsRefused();
    void whatIsGivenBackIsFree();
    void aKeyThatNoKeyboardHasIsRefused();
    void aPressMayReplaceItsOwnRegistration();

private:
    std::unique_ptr<HotKeyRegistration> take(const HotKeyCombo &combo, HotKeyNumber number);
    /// Every number told since the last call.
    QList<HotKeyNumber> told();

    HotKeysRig &m_rig;
    std::unique_ptr<HotKeyRegistration> m_last;
    QList<HotKeyNumber> m_told;
    std::function<void()> m_onPress;
};

} // namespace Panorel

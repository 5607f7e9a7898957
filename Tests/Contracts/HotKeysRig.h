#pragma once

#include "PanorelPorts/HotKeyPort.h"

#include <QTest>

#include <functional>

namespace Panorel {

/// A keyboard for a contract suite, whose user is at work in a window of another program. It has
/// the US layout and no lock to begin with.
class HotKeysRig {
public:
    virtual ~HotKeysRig() = default;

    virtual HotKeyPort &hotKeys() = 0;

    /// The user presses the keys that the combination is on, and lets go.
    virtual void press(const HotKeyCombo &combo) = 0;
    /// The same, but the user holds them for so long that they repeat. Registered keys only.
    virtual void hold(const HotKeyCombo &combo) { press(combo); }

    /// Another program asks for the combination as it is, without locks; false: it was refused.
    virtual bool takeByAnother(const HotKeyCombo &combo) = 0;
    virtual void endTheOther() = 0;

    // A keyboard that has none of these leaves them out.
    virtual void toggleCapsLock() {}
    virtual void toggleNumLock() {}
    /// "us" or "de", which has Y and Z the other way round.
    virtual void setLayout(const QString &) {}

    /// Runs the event loop until the condition holds; false when it never does.
    virtual bool waitUntil(const std::function<bool()> &condition)
    {
        return QTest::qWaitFor(condition, 10'000);
    }
};

} // namespace Panorel

#pragma once

#include "Desktop/Support/DesktopSession.h"

namespace Panorel::Desktop {

/// A way to save where all windows are and to put them back there.
class Keeper {
public:
    virtual ~Keeper() = default;

    virtual void save() = 0;
    /// What is saved; the windows may still be on their way when it returns.
    virtual void restore() = 0;
};

/// "panorel", "wmctrl" or "xdotool", the last two as in the scripts that people write with them.
/// The session outlives it. Fatal for another name.
std::unique_ptr<Keeper> makeKeeper(const QString &name, EngineSession &session);

} // namespace Panorel::Desktop

#pragma once

#include "MacDoubles/C/CfObjects.h"
#include "MacDoubles/C/Dispatch.h"
#include "MacDoubles/C/HotKeys.h"
#include "MacDoubles/C/Preferences.h"
#include "MacDoubles/Desktop/MacDesktop.h"

namespace Panorel::MacDoubles {

/// What a test left behind on the Mac: faults against the interfaces' rules, objects and hot keys
/// that nobody gave back. Empty where all is well.
inline QStringList takeRemains()
{
    return takeFaults() + takeHeldHotKeys() + takeSources() + takeUnsynchronized() + takeLeaks();
}

} // namespace Panorel::MacDoubles

#pragma once

#include "PanorelCore/Stores/AppRuleStore.h"
#include "PanorelCore/Stores/UsageStore.h"
#include "PanorelEngine/Windows/RestoreEngine.h"
#include "PanorelEngine/Windows/WindowSnapshotter.h"
#include "Support/InMemoryPlatform.h"
#include "Support/TestDataDir.h"

namespace Panorel {

/// The in-memory desktop with what restores its windows.
struct EngineDesk {
    TestDataDir dir;
    InMemoryPlatform platform;
    InMemoryDesktop &desktop = platform.desktop;
    AppRuleStore rules{dir.log, dir.clock};
    UsageStore usage{dir.log, dir.clock};
    WindowSnapshotter snapshotter{desktop, desktop, desktop};
    RestoreEngine engine{rules, snapshotter, desktop, dir.log, dir.clock};

    std::vector<WindowRecord> onScreen() { return snapshotter.snapshot({}); }
};

} // namespace Panorel

#pragma once

#include "Panorel/Settings/SettingsModel.h"
#include "PanorelPorts/LinkedLibrary.h"

#include <functional>
#include <optional>
#include <vector>

class QWidget;

namespace Panorel {

/// What the settings window needs of the program and the platform beside its model. A function
/// that is absent does nothing.
struct SettingsEnvironment {
    /// The preference of how long the displays must be quiet is another, to be in force at once.
    std::function<void()> takeSettleSeconds;
    /// While the user types a combination, none may fire.
    std::function<void()> suspendHotKeys;
    std::function<void()> resumeHotKeys;
    /// As HotKeyPort::keyCodeOf().
    std::function<std::optional<quint32>(quint32 nativeScanCode, quint32 nativeVirtualKey)>
        keyCodeOf;
    /// As in HotKeyPort.
    bool isCommandReportedAsControl = false;
    /// The panes that are not made here, each once, when it is first shown. Null: an empty page.
    std::function<QWidget *(SettingsSection section)> makePane;
    /// Whether there is a Dock for an icon.
    bool hasDock = false;
    /// The platform's own, beside Qt.
    std::vector<LinkedLibrary> libraries;
};

} // namespace Panorel

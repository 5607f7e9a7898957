#pragma once

#include <QString>

#include <functional>

namespace Panorel {

/// What the welcome window lets a new user do at once. What is empty is not offered.
struct OnboardingActions {
    /// Saves the windows as they are; returns the new scene's name.
    std::function<QString()> saveScene;
    /// Shows the panel, wherever it has its place.
    std::function<void()> openPanel;
    /// Shows where keys are set.
    std::function<void()> openShortcuts;
    /// The program's icon is in a menu bar, which is always there, and not in a tray.
    bool isInMenuBar = false;
};

} // namespace Panorel

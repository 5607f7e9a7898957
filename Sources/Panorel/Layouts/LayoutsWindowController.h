#pragma once

#include "Panorel/Settings/SettingsModel.h"
#include "PanorelCore/Clock.h"

#include <memory>

namespace Panorel {

class LayoutsWindow;
class UserDefaultsPort;

/// Opens the window in which the user sees what is remembered: desks, scenes and rules. It is made
/// at the first opening and then kept; closing hides it. Its frame is remembered.
class LayoutsWindowController {
public:
    using EditScene = std::function<void(const QUuid &scene)>;

    /// All must outlive it. A null `editScene`: scenes are not offered to edit.
    LayoutsWindowController(SettingsModel &model, UserDefaultsPort &defaults, EditScene editScene,
                            const Clock &clock = systemClock());
    ~LayoutsWindowController();

    /// Refreshes it and brings it to the front, with another tab if one is named.
    void show(std::optional<LayoutsSection> section = {});

    /// Null before the first show().
    LayoutsWindow *window() const { return m_window.get(); }

private:
    static const Clock &systemClock();
    void build();

    SettingsModel &m_model;
    UserDefaultsPort &m_defaults;
    EditScene m_editScene;
    const Clock &m_clock;
    std::unique_ptr<LayoutsWindow> m_window;
};

} // namespace Panorel

#pragma once

#include "Panorel/AppController.h"
#include "Panorel/AppWindows.h"
#include "Panorel/Commands/CommandService.h"
#include "Panorel/Panel/PanelController.h"
#include "Panorel/PanelModel.h"
#include "Panorel/SessionEnd.h"
#include "Panorel/StatusItemController.h"

#include <optional>

namespace Panorel {

/// Builds what the user sees, and the controller behind it, in order, and ends it. One in the
/// program, made by main.
class AppDelegate {
public:
    explicit AppDelegate(const AppServices &services);
    ~AppDelegate();

    void applicationDidFinishLaunching();

    /// The program was started a second time: the user looks for it.
    void openPanel();

    /// Not before applicationDidFinishLaunching().
    CommandService &commands() { return *m_commands; }

    /// The session or the program ends, or the window system has gone: nothing is learned from
    /// here on.
    void prepareToEnd();

private:
    QRect visibleFrameAt(const QPoint &point) const;

    AppServices m_services;
    PanelModel m_panelModel;
    std::optional<PanelController> m_panel;
    std::optional<StatusItemController> m_statusItem;
    std::optional<AppController> m_controller;
    std::optional<AppWindows> m_windows;
    std::optional<CommandService> m_commands;
    SessionEnd m_sessionEnd;
};

} // namespace Panorel

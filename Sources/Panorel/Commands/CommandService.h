#pragma once

#include "Panorel/AppServices.h"
#include "Panorel/Commands/Command.h"
#include "Panorel/Commands/StateReport.h"
#include "PanorelCore/Matching/RestoreReport.h"
#include "PanorelEngine/Windows/RestorePlan.h"

#include <functional>

namespace Panorel {

class AppController;
class PanelModel;

/// Carries out what the command line and other programs ask of the running program: each verb as
/// the panel's row or a key would, with a result that a script can read. Main thread only.
class CommandService {
public:
    /// All of them must outlive it. `stateReplaced` is called after an import, for what is on show.
    CommandService(AppController &controller, const PanelModel &panel, const AppServices &services,
                   std::function<void()> stateReplaced);

    /// May take as long as a restore does; runs no event loop.
    CommandReply run(const CommandRequest &request);

    /// The same as one line, in the form of CommandCoding.
    QString answer(const QString &line);

private:
    CommandReply restore(const CommandRequest &request);
    CommandReply undo(const CommandRequest &request);
    CommandReply save(const CommandRequest &request);
    CommandReply stash(const CommandRequest &request);
    CommandReply apply(const CommandRequest &request);
    CommandReply status(const CommandRequest &request);
    CommandReply exportState(const CommandRequest &request);
    CommandReply importState(const CommandRequest &request);
    CommandReply log(const CommandRequest &request);
    StateReport report() const;

    AppController &m_controller;
    const PanelModel &m_panel;
    AppServices m_services;
    std::function<void()> m_stateReplaced;
};

} // namespace Panorel

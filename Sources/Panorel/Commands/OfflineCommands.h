#pragma once

#include "Panorel/Commands/Command.h"

namespace Panorel {

/// The verbs that need no running program, carried out on its files. To be used only where none
/// runs; an import makes sure of that, so that none can start meanwhile.
CommandReply runOffline(const CommandRequest &request);

} // namespace Panorel

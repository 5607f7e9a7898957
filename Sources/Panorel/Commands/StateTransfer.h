#pragma once

#include "Panorel/Commands/Command.h"
#include "PanorelCore/State/SavedState.h"

#include <functional>

namespace Panorel {

class Clock;

/// Export and import as commands; whose state it is, the running program's or that of the files
/// alone, the caller says.
class StateTransfer {
public:
    struct Owner {
        std::function<SavedState()> state;
        /// False where a file could not be written.
        std::function<bool(const SavedState &)> replace;
    };

    StateTransfer(Owner owner, const Clock &clock) : m_owner(std::move(owner)), m_clock(clock) {}

    /// Writes everything to the file.
    CommandReply exportTo(const QString &path) const;

    /// Replaces everything by what is in the file, or nothing. What is replaced is first written to
    /// a new file below "backups" in the data directory; without that nothing is replaced either.
    CommandReply importFrom(const QString &path, bool dryRun) const;

private:
    QString newBackupPath() const;

    Owner m_owner;
    const Clock &m_clock;
};

} // namespace Panorel

#pragma once

#include <QString>

#include <array>

namespace Panorel {

/// One word of the command line.
struct Verb {
    const char *name;
    const char *argument; ///< what has to follow, for example "FILE"; empty: nothing may
    bool hasDryRun;       ///< takes --dry-run
    bool needsProgram;    ///< only the running program can do it
    const char *summary;
};

/// All of them, in the order in which they are listed. The help, the completions and the manual
/// page are held against this table.
inline constexpr std::array verbs{
    Verb{"restore", "", true, true, "put the windows of this desk back"},
    Verb{"undo", "", false, true, "undo the last restore; again to redo it"},
    Verb{"save", "", false, true, "save where the windows are now"},
    Verb{"stash", "", false, true, "hide all windows, or bring them back"},
    Verb{"scenes", "", false, false, "list the scenes"},
    Verb{"apply", "NAME|ID", true, true, "switch to a scene"},
    Verb{"desks", "", false, false, "list the desks that were learned"},
    Verb{"status", "", false, false, "say what the running program is doing"},
    Verb{"rules", "", false, false, "list the rules for applications"},
    Verb{"triggers", "", false, false, "list what applies scenes on its own"},
    Verb{"export", "FILE", false, false, "write everything that is kept to a file"},
    Verb{"import", "FILE", true, false, "replace everything by such a file, after a backup"},
    Verb{"log", "", false, false, "show the log; with --follow also what comes"},
};

/// Null for a word that is none.
const Verb *findVerb(const QString &name);

} // namespace Panorel

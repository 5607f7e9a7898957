#pragma once

#include "Panorel/Commands/CommandLine.h"

#include <QStringList>

#include <optional>

namespace Panorel {

/// The command line: has the running program, or the files where there is none, do what the
/// arguments say, and prints the result to stdout or one line to stderr. Needs a QCoreApplication.
/// Returns the exit status; absent: there is no command, the program itself is to run.
std::optional<int> runCommandLine(const QStringList &arguments);

} // namespace Panorel

#pragma once

#include "Panorel/Commands/Command.h"

#include <QStringList>

#include <variant>

namespace Panorel {

/// What the arguments of the program ask for.
namespace CommandLine {

/// No argument, or only the toolkit's own (one dash and a word): run the program itself.
struct RunProgram {};
struct ShowHelp {};
struct ShowVersion {};
/// They make no sense; `message` is a line for the user.
struct Mistake {
    QString message;
};
struct RunCommand {
    CommandRequest request;
    bool json = false;
    bool follow = false; ///< of the log
};

using Parsed = std::variant<RunProgram, ShowHelp, ShowVersion, Mistake, RunCommand>;

/// `arguments` without the program's name. A verb may stand before or behind the options; after
/// "--" nothing is an option.
Parsed parse(const QStringList &arguments);

/// What --help prints.
QString help();

} // namespace CommandLine

} // namespace Panorel

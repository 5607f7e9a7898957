#pragma once

#include <functional>

namespace Panorel::X11 {

/// The toolkit has a connection to the server of its own. When that breaks it prints a line and
/// ends the process on the spot. Here its line is taken for what it is.
class ToolkitMessages {
public:
    /// From now on the toolkit's line is swallowed; all other messages go on as before. Before the
    /// application object is made.
    static void install();

    /// Called in place of the line, right before the toolkit ends the process.
    static void setConnectionBroke(std::function<void()> callback);
};

} // namespace Panorel::X11

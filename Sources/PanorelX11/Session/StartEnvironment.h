#pragma once

#include <QByteArray>

#include <map>

namespace Panorel::X11 {

/// The environment variables that the program was started with. Some are set for its own sake
/// later; programs that it starts get them as they were.
class StartEnvironment {
public:
    using Variables = std::map<QByteArray, QByteArray>;

    /// Before anything sets a variable. Main thread.
    static void record();

    /// The present ones where nothing was recorded.
    static Variables variables();

    static Variables presentVariables();
};

} // namespace Panorel::X11

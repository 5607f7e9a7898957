#pragma once

#include <QString>

namespace Panorel {

/// The terms that a library comes under.
enum class Licence {
    MIT,
    LGPL2OrLater, ///< version 2.1 or later
    LGPL3,        ///< version 3
    LGPL2OrMPL2,  ///< LGPL 2.1 or MPL 2.0, as the user of the library chooses
};

/// A library that the program is made with.
struct LinkedLibrary {
    QString name; ///< not translated
    Licence licence;
};

} // namespace Panorel

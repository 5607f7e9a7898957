#pragma once

#include <QString>

namespace Panorel {

/// A text as one line, for controls that take one: line feeds and other control characters become
/// blanks, and there are none at the ends.
QString plainLine(QString text);

} // namespace Panorel

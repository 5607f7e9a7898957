#pragma once

#include <QString>

namespace Panorel::Mac {

/// The text with every lone surrogate replaced, so that it can be saved: the system's strings are
/// UTF-16 that nobody has checked.
QString validText(QString text);

} // namespace Panorel::Mac

#pragma once

#include <QStringList>

namespace Panorel::MacDoubles {

/// The hot keys and event handlers that nobody has given back, and forgets them.
QStringList takeHeldHotKeys();

} // namespace Panorel::MacDoubles

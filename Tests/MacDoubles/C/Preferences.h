#pragma once

#include <QStringList>

namespace Panorel::MacDoubles {

/// The keys that were written and not handed to the system's daemon since, and forgets them.
QStringList takeUnsynchronized();

} // namespace Panorel::MacDoubles

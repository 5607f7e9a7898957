#pragma once

#include "PanorelCore/Clock.h"

#include <QStringList>

namespace Panorel::MacDoubles {

/// Lets the wall clock show that time, and the main queue run all that is due by it, cancellations
/// included. The clock starts at the epoch.
void runMainQueueUntil(Instant now);

/// The sources that nobody has cancelled and released, and forgets them.
QStringList takeSources();

} // namespace Panorel::MacDoubles

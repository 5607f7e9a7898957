#pragma once

namespace Panorel::MacDoubles {

/// Copies of blocks that are not yet released.
int livingBlocks();

} // namespace Panorel::MacDoubles

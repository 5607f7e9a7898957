#pragma once

#import <Foundation/Foundation.h>

#include "PanorelCore/Geometry.h"

namespace Panorel::Mac {

/// In the space that it was given in.
inline Rect rectOf(NSRect rect)
{
    return {rect.origin.x, rect.origin.y, rect.size.width, rect.size.height};
}

} // namespace Panorel::Mac

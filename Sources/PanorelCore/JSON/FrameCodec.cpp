#include "PanorelCore/JSON/FrameCodec.h"

#include "PanorelCore/JSON/CodingErrors.h"

namespace Panorel::FrameCodec {

std::vector<std::vector<double>> encode(const Rect &rect)
{
    return {{rect.x, rect.y}, {rect.width, rect.height}};
}

Rect decode(const std::vector<std::vector<double>> &pairs)
{
    if (pairs.size() != 2 || pairs[0].size() != 2 || pairs[1].size() != 2)
        throw DecodingError(QStringLiteral("frame must be [[x,y],[w,h]]"));
    return {pairs[0][0], pairs[0][1], pairs[1][0], pairs[1][1]};
}

} // namespace Panorel::FrameCodec

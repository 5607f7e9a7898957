#include "PanorelX11/Displays/WorkArea.h"
#include "PanorelX11/Windows/SizeHints.h"

#include "Fuzz/Fuzz.h"

using namespace Panorel;
using namespace Panorel::X11;
using Fuzz::Input;
using Fuzz::require;

namespace {

std::vector<std::uint32_t> values(Input &input, std::size_t most)
{
    std::vector<std::uint32_t> result(input.number<quint8>() % (most + 1));
    for (std::uint32_t &value : result)
        value = input.number<std::uint32_t>();
    return result;
}

void checkHints(const SizeHints &hints, const PixelRect &client)
{
    const PixelRect size = hints.constrained(client);
    require(size.x == client.x && size.y == client.y, "hints are about sizes");
    require(size.width >= 1 && size.height >= 1, "a size that fits the hints is a size");
    require(hints.constrained(size) == size, "a size that fits the hints is left alone");
    require(hints.gravity >= 1 && hints.gravity <= 10, "a gravity is one of the ten");
}

void check(const QByteArray &bytes)
{
    Input input(bytes);
    const PixelRect client = nearestPixels({input.number<double>(), input.number<double>(),
                                            input.number<double>(), input.number<double>()});
    require(client.width >= 1 && client.height >= 1 && client.width <= INT16_MAX
                && client.height <= INT16_MAX && std::abs(client.x) <= -INT16_MIN,
            "a rectangle fits the protocol");
    const SizeHints hints = SizeHints::fromValues(values(input, 18));
    checkHints(hints, client);
    FrameGeometry geometry{client, extentsFromValues(values(input, 4)).value_or(Extents{}),
                           shadowFromValues(values(input, 4), client)};
    const PixelRect frame = geometry.visibleFrame();
    require(geometry.clientFor(frame) == client, "frame and client belong together");
    requestedOrigin(client, geometry.decorations, hints.gravity);
    const Rect area{0, 0, 1920, 1080};
    const PixelRect moved = movedInto(area, frame);
    require(moved.x >= 0 && moved.y >= 0 && moved.x + moved.width <= 1920
                && moved.y + moved.height <= 1080,
            "what is moved into an area is in it");
    const Rect left = workArea(area, strutsFromValues(values(input, 12)), {3840, 1080});
    require(left.width > 0 && left.height > 0 && left.minX() >= 0 && left.maxX() <= 1920
                && left.minY() >= 0 && left.maxY() <= 1080,
            "panels leave a part of every monitor");
}

const Fuzz::Target target("WindowNumbers", check);

} // namespace

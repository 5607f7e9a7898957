#include "Panorel/Panel/VisibleFrame.h"

namespace Panorel {

QRect visibleFrameOf(const QRect &screen, const std::vector<DisplayInfo> &displays)
{
    for (const DisplayInfo &display : displays) {
        if (display.frame.origin() != Point{double(screen.x()), double(screen.y())}
            || display.frame.width <= 0)
            continue;
        const double unit = screen.width() / display.frame.width;
        const Rect &visible = display.visibleFrame;
        return QRectF(screen.x() + (visible.x - display.frame.x) * unit,
                      screen.y() + (visible.y - display.frame.y) * unit, visible.width * unit,
                      visible.height * unit)
            .toRect();
    }
    return screen;
}

} // namespace Panorel

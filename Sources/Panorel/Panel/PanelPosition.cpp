#include "Panorel/Panel/PanelPosition.h"

#include <algorithm>

namespace Panorel {

namespace {

constexpr int buttonGap = 6;
constexpr int screenMargin = 8;

/// Which edge of the visible frame the panel opens from.
enum class Edge { Top, Bottom, Left, Right };

/// The edge that the point lies beyond, in a bar; otherwise the nearer of top and bottom, because
/// a bar that takes no space from windows is a horizontal one.
Edge edgeNear(const QPoint &point, const QRect &visible)
{
    if (point.y() < visible.y())
        return Edge::Top;
    if (point.y() >= visible.y() + visible.height())
        return Edge::Bottom;
    if (point.x() < visible.x())
        return Edge::Left;
    if (point.x() >= visible.x() + visible.width())
        return Edge::Right;
    return point.y() < visible.y() + visible.height() / 2 ? Edge::Top : Edge::Bottom;
}

/// Kept inside `from` to `to`; at `from` where there is no room.
int clamped(int position, int length, int from, int to)
{
    return std::max(std::min(position, to - length), from);
}

} // namespace

QRect panelFrame(const PanelAnchor &anchor, const QSize &size)
{
    const QRect &visible = anchor.visibleFrame;
    const QRect inner = visible.adjusted(screenMargin, screenMargin, -screenMargin, -screenMargin);
    const int width = size.width();
    const int height = std::min(size.height(), inner.height());
    const int right = inner.x() + inner.width(); // QRect::right() is one less
    const int bottom = inner.y() + inner.height();
    if (!anchor.button && !anchor.pointer)
        return {clamped(right - width, width, inner.x(), right), inner.y(), width, height};

    const int gap = anchor.button ? buttonGap : screenMargin;
    const QRect button = anchor.button.value_or(QRect(anchor.pointer.value_or(QPoint()), QSize()));
    const QPoint middle(button.x() + button.width() / 2, button.y() + button.height() / 2);
    int x = clamped(middle.x() - width / 2, width, inner.x(), right);
    int y = clamped(middle.y() - height / 2, height, inner.y(), bottom);
    const bool sticks = !anchor.button; // the pointer only says which edge
    switch (edgeNear(middle, visible)) {
    case Edge::Top:
        y = gap + (sticks ? visible.y() : std::max(visible.y(), button.y() + button.height()));
        break;
    case Edge::Bottom: {
        const int edge = visible.y() + visible.height();
        y = (sticks ? edge : std::min(edge, button.y())) - gap - height;
        break;
    }
    case Edge::Left:
        x = gap + (sticks ? visible.x() : std::max(visible.x(), button.x() + button.width()));
        break;
    case Edge::Right: {
        const int edge = visible.x() + visible.width();
        x = (sticks ? edge : std::min(edge, button.x())) - gap - width;
        break;
    }
    }
    return {x, y, width, height};
}

} // namespace Panorel

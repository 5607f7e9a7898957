#include "Panorel/UI/DisplaySchematic.h"

#include "Panorel/UI/ApplicationIcon.h"
#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Symbols.h"
#include "Panorel/UI/TextStyle.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace Panorel {

namespace {

QRectF rectOf(const Rect &rect)
{
    return {rect.x, rect.y, rect.width, rect.height};
}

QRectF boundsOf(const std::vector<DisplayInfo> &displays)
{
    QRectF bounds;
    for (const DisplayInfo &display : displays)
        bounds |= rectOf(display.frame);
    return bounds;
}

/// Corners that fit the size: round at full size, hardly at 20 pixels.
double radiusFor(const QRectF &box)
{
    return std::clamp(std::min(box.width(), box.height()) / 12, 2.0, 8.0);
}

QColor translucent(QColor color, double opacity)
{
    color.setAlphaF(float(opacity));
    return color;
}

} // namespace

DisplaySchematic::DisplaySchematic(QWidget *parent) : QWidget(parent), m_iconOf(applicationIcon) {}

void DisplaySchematic::setDisplays(const std::vector<DisplayInfo> &displays)
{
    m_displays = displays;
    update();
}

void DisplaySchematic::setWindows(const std::vector<WindowRecord> &windows)
{
    m_windows = windows;
    std::ranges::stable_sort(m_windows, std::ranges::greater(), &WindowRecord::zOrder);
    update();
}

void DisplaySchematic::setIconOf(IconOf iconOf)
{
    m_iconOf = std::move(iconOf);
    update();
}

void DisplaySchematic::setShowsNames(bool showsNames)
{
    m_showsNames = showsNames;
    update();
}

QSize DisplaySchematic::sizeWithin(const QSize &room) const
{
    const QSizeF displays = boundsOf(m_displays).size();
    if (displays.isEmpty())
        return sizeHint().boundedTo(room);
    return displays.scaled(room, Qt::KeepAspectRatio).toSize();
}

QTransform DisplaySchematic::transform() const
{
    const QRectF bounds = boundsOf(m_displays);
    const QRectF area = QRectF(rect()).adjusted(1, 1, -1, -1);
    if (bounds.isEmpty() || area.isEmpty())
        return {};
    const double scale = std::min(area.width() / bounds.width(), area.height() / bounds.height());
    return QTransform::fromTranslate(-bounds.center().x(), -bounds.center().y())
           * QTransform::fromScale(scale, scale)
           * QTransform::fromTranslate(area.center().x(), area.center().y());
}

QSize DisplaySchematic::sizeHint() const
{
    return {88, 56};
}

void DisplaySchematic::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (m_displays.empty()) {
        const double side = std::min(width(), height()) * 0.6;
        const QRectF area((width() - side) / 2, (height() - side) / 2, side, side);
        drawSymbol(painter, Symbol::Display, area, Theme::of(palette()).off);
        return;
    }
    for (const DisplayInfo &display : m_displays)
        drawDisplay(painter, display);
    for (const WindowRecord &window : m_windows)
        drawWindow(painter, window);
}

void DisplaySchematic::drawDisplay(QPainter &painter, const DisplayInfo &display) const
{
    const Theme theme = Theme::of(palette());
    // Half a pixel of air on each side keeps neighbours apart.
    const QRectF box = transform().mapRect(rectOf(display.frame)).adjusted(1, 1, -1, -1);
    const double radius = radiusFor(box);
    QPainterPath outline;
    outline.addRoundedRect(box, radius, radius);
    painter.setPen(QPen(theme.secondaryText, 1.25));
    painter.setBrush(theme.screen);
    painter.drawPath(outline);

    if (display.isBuiltin) { // the edge that the keyboard is at
        painter.setPen(Qt::NoPen);
        painter.setBrush(theme.secondaryText);
        const double thickness = std::clamp(box.height() / 14, 2.5, 6.0);
        painter.setClipPath(outline);
        painter.drawRect(QRectF(box.left(), box.bottom() - thickness, box.width(), thickness));
        painter.setClipping(false);
    }

    if (!m_showsNames)
        return;
    painter.setFont(fontOf(TextStyle::Secondary));
    const QRectF textArea = box.adjusted(Metrics::small, Metrics::tight, -Metrics::small, 0);
    const int lineHeight = painter.fontMetrics().height();
    if (textArea.width() < 6 * lineHeight || textArea.height() < 3 * lineHeight)
        return;
    painter.setPen(theme.secondaryText);
    painter.drawText(
        textArea, Qt::AlignTop | Qt::AlignHCenter | Qt::TextSingleLine,
        painter.fontMetrics().elidedText(display.name, Qt::ElideRight, int(textArea.width())));
}

void DisplaySchematic::drawWindow(QPainter &painter, const WindowRecord &window) const
{
    const Theme theme = Theme::of(palette());
    const QRectF box = transform().mapRect(rectOf(window.frame)).intersected(QRectF(rect()));
    if (box.isEmpty())
        return;
    const double radius = radiusFor(box);
    painter.setPen(QPen(theme.accentInk, 1));
    painter.setBrush(translucent(theme.accent, 0.28));
    painter.drawRoundedRect(box.adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);

    constexpr double smallestIcon = 12;
    const double side = std::min({box.width() * 0.6, box.height() * 0.6, 48.0});
    if (side < smallestIcon)
        return;
    const QRectF area(box.center().x() - side / 2, box.center().y() - side / 2, side, side);
    const QIcon icon = m_iconOf ? m_iconOf(window.bundleID) : QIcon();
    if (icon.isNull())
        drawSymbol(painter, Symbol::Window, area, theme.text);
    else
        icon.paint(&painter, area.toRect());
}

} // namespace Panorel

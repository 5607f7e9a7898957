#include "Panorel/UI/SchematicPainter.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Symbols.h"
#include "Panorel/UI/TextStyle.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace Panorel {

namespace {

constexpr double smallestIcon = 12;
constexpr double largestIcon = 48;
constexpr double largestSymbol = 32; ///< its lines are to stay thin

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

QRectF rectOf(const Rect &rect)
{
    return {rect.x, rect.y, rect.width, rect.height};
}

QTransform fitting(const QRectF &bounds, const QRectF &area)
{
    if (bounds.isEmpty() || area.isEmpty())
        return {};
    const double scale = std::min(area.width() / bounds.width(), area.height() / bounds.height());
    return QTransform::fromTranslate(-bounds.center().x(), -bounds.center().y())
           * QTransform::fromScale(scale, scale)
           * QTransform::fromTranslate(area.center().x(), area.center().y());
}

SchematicPainter::SchematicPainter(QPainter &painter, const QTransform &toView, const QRectF &area,
                                   const QPalette &palette)
    : m_painter(painter), m_toView(toView), m_area(area), m_palette(palette)
{}

void SchematicPainter::drawDisplay(const DisplayInfo &display, bool showsName)
{
    const Theme theme = Theme::of(m_palette);
    // Half a pixel of air on each side keeps neighbours apart.
    const QRectF box = m_toView.mapRect(rectOf(display.frame)).adjusted(1, 1, -1, -1);
    const double radius = radiusFor(box);
    QPainterPath outline;
    outline.addRoundedRect(box, radius, radius);
    m_painter.setPen(QPen(theme.secondaryText, 1.25));
    m_painter.setBrush(theme.screen);
    m_painter.drawPath(outline);

    if (display.isBuiltin) { // the edge that the keyboard is at
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(theme.secondaryText);
        const double thickness = std::clamp(box.height() / 14, 2.5, 6.0);
        m_painter.setClipPath(outline);
        m_painter.drawRect(QRectF(box.left(), box.bottom() - thickness, box.width(), thickness));
        m_painter.setClipping(false);
    }

    if (!showsName)
        return;
    m_painter.setFont(fontOf(TextStyle::Secondary));
    const QRectF textArea = box.adjusted(Metrics::small, Metrics::tight, -Metrics::small, 0);
    const QFontMetrics metrics = m_painter.fontMetrics();
    if (textArea.width() < 6 * metrics.height() || textArea.height() < 3 * metrics.height())
        return;
    m_painter.setPen(theme.secondaryText);
    m_painter.drawText(textArea, Qt::AlignTop | Qt::AlignHCenter | Qt::TextSingleLine,
                       metrics.elidedText(display.name, Qt::ElideRight, int(textArea.width())));
}

void SchematicPainter::drawWindow(const WindowRecord &window, const IconOf &iconOf, WindowLook look)
{
    const QRectF box = m_toView.mapRect(rectOf(window.frame)).intersected(m_area);
    if (box.isEmpty())
        return;
    drawFace(box, look);
    const double line = QFontMetrics(fontOf(TextStyle::Secondary)).height();
    const bool hasTitle =
        look != WindowLook::Plain && box.width() >= 4 * line && box.height() >= 2 * line;
    const double titleHeight = hasTitle ? line + Metrics::tight : 0;
    double side = std::min({box.width() * 0.6, (box.height() - titleHeight) * 0.6, largestIcon});
    if (side < smallestIcon)
        side = 0;
    // Icon and title together sit in the middle.
    const double top = box.center().y() - (side + titleHeight) / 2;
    if (side > 0)
        drawIcon({box.center().x() - side / 2, top, side, side}, window, iconOf, look);
    if (hasTitle)
        drawTitle({box.left() + Metrics::small, top + side, box.width() - 2 * Metrics::small,
                   titleHeight},
                  window, look);
}

void SchematicPainter::drawFace(const QRectF &box, WindowLook look)
{
    const Theme theme = Theme::of(m_palette);
    const double radius = radiusFor(box);
    const QRectF face = box.adjusted(0.5, 0.5, -0.5, -0.5);
    if (look != WindowLook::Plain) {
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(translucent(theme.window, look == WindowLook::Ghost ? 0.7 : 0.9));
        m_painter.drawRoundedRect(face, radius, radius);
    }
    QPen pen(theme.accentInk, 1);
    if (look == WindowLook::Ghost) {
        pen.setColor(theme.secondaryText);
        pen.setDashPattern({4, 3});
    }
    m_painter.setPen(pen);
    m_painter.setBrush(translucent(theme.accent, look == WindowLook::Ghost ? 0.06 : 0.28));
    m_painter.drawRoundedRect(face, radius, radius);
}

void SchematicPainter::drawIcon(const QRectF &area, const WindowRecord &window,
                                const IconOf &iconOf, WindowLook look)
{
    const QIcon icon = iconOf ? iconOf(window.bundleID) : QIcon();
    if (look == WindowLook::Ghost)
        m_painter.setOpacity(0.45);
    if (icon.isNull()) {
        QRectF symbol(0, 0, std::min(area.width(), largestSymbol),
                      std::min(area.height(), largestSymbol));
        symbol.moveCenter(area.center());
        drawSymbol(m_painter, Symbol::Window, symbol, Theme::of(m_palette).text);
    } else {
        icon.paint(&m_painter, area.toRect());
    }
    m_painter.setOpacity(1);
}

void SchematicPainter::drawTitle(const QRectF &area, const WindowRecord &window, WindowLook look)
{
    const Theme theme = Theme::of(m_palette);
    const QString title = (window.title.isEmpty() ? window.appName : window.title).simplified();
    m_painter.setFont(fontOf(TextStyle::Secondary));
    m_painter.setPen(look == WindowLook::Ghost ? theme.secondaryText : theme.text);
    m_painter.drawText(
        area, Qt::AlignHCenter | Qt::AlignBottom | Qt::TextSingleLine,
        m_painter.fontMetrics().elidedText(title, Qt::ElideRight, int(area.width())));
}

} // namespace Panorel

#include "Panorel/UI/DisplaySchematic.h"

#include "Panorel/UI/ApplicationIcon.h"
#include "Panorel/UI/Symbols.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>

#include <algorithm>

namespace Panorel {

namespace {

QRectF boundsOf(const std::vector<DisplayInfo> &displays)
{
    QRectF bounds;
    for (const DisplayInfo &display : displays)
        bounds |= rectOf(display.frame);
    return bounds;
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
    return fitting(boundsOf(m_displays), QRectF(rect()).adjusted(1, 1, -1, -1));
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
    SchematicPainter schematic(painter, transform(), rect(), palette());
    for (const DisplayInfo &display : m_displays)
        schematic.drawDisplay(display, m_showsNames);
    for (const WindowRecord &window : m_windows)
        schematic.drawWindow(window, m_iconOf);
}

} // namespace Panorel

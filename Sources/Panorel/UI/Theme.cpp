#include "Panorel/UI/Theme.h"

#include <algorithm>
#include <cmath>

namespace Panorel {

namespace {

double linear(double channel)
{
    return channel <= 0.04045 ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor &color)
{
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF())
           + 0.0722 * linear(color.blueF());
}

/// `share` of `over` on `under`; both opaque.
QColor blended(const QColor &over, const QColor &under, double share)
{
    const auto mixed = [share](double a, double b) { return float(a * share + b * (1 - share)); };
    return QColor::fromRgbF(mixed(over.redF(), under.redF()), mixed(over.greenF(), under.greenF()),
                            mixed(over.blueF(), under.blueF()));
}

/// The wished colour, moved towards black or white only as far as it must be to be read.
QColor readableOn(const QColor &background, const QColor &wished)
{
    const QColor end = contrast(Qt::black, background) > contrast(Qt::white, background)
                           ? QColor(Qt::black)
                           : QColor(Qt::white);
    constexpr int steps = 20;
    for (int step = 0; step < steps; ++step) {
        const QColor color = blended(end, wished, double(step) / steps);
        if (contrast(color, background) >= readableContrast)
            return color;
    }
    return end;
}

} // namespace

double contrast(const QColor &one, const QColor &other)
{
    const auto [dark, light] = std::minmax({luminance(one), luminance(other)});
    return (light + 0.05) / (dark + 0.05);
}

Theme Theme::of(const QPalette &palette)
{
    constexpr auto group = QPalette::Active;
    Theme theme;
    theme.window = palette.color(group, QPalette::Window);
    theme.text = readableOn(theme.window, palette.color(group, QPalette::WindowText));
    theme.card = blended(theme.text, theme.window, 0.05);
    // What is readable on a card is so on the window: the card is nearer to the text.
    theme.secondaryText = readableOn(theme.card, blended(theme.text, theme.window, 0.65));
    theme.screen = blended(theme.text, theme.window, 0.10);
    theme.line = blended(theme.text, theme.window, 0.12);
    theme.border = blended(theme.text, theme.window, 0.25);

    const QColor highlight = palette.color(group, QPalette::Highlight);
    theme.hover = blended(highlight, theme.window, 0.10);
    theme.pressed = blended(highlight, theme.window, 0.20);
    theme.accentText = palette.color(group, QPalette::HighlightedText);
    // Themes choose highlights for selected rows; as a button's face some are too pale.
    theme.accent = readableOn(theme.accentText, highlight);
    theme.accentHover = blended(theme.text, theme.accent, 0.08);
    theme.accentPressed = blended(theme.text, theme.accent, 0.18);
    theme.accentInk = readableOn(theme.card, highlight);

    theme.good = readableOn(theme.card, QColor(0x2e, 0xa0, 0x5a));
    theme.attention = readableOn(theme.card, QColor(0xd0, 0x7c, 0x00));
    theme.off = readableOn(theme.card, blended(theme.text, theme.window, 0.55));
    return theme;
}

} // namespace Panorel

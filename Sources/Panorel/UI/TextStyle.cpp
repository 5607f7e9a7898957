#include "Panorel/UI/TextStyle.h"

#include <QGuiApplication>

#include <cmath>

namespace Panorel {

namespace {

QFont scaled(QFont font, double factor)
{
    if (font.pointSizeF() > 0)
        font.setPointSizeF(font.pointSizeF() * factor);
    else // a font given in pixels
        font.setPixelSize(int(std::lround(font.pixelSize() * factor)));
    return font;
}

} // namespace

QFont fontOf(TextStyle style)
{
    QFont font = QGuiApplication::font();
    switch (style) {
    case TextStyle::Body:
        return font;
    case TextStyle::Title:
        font.setWeight(QFont::DemiBold);
        return scaled(font, 1.25);
    case TextStyle::Heading:
        font.setWeight(QFont::DemiBold);
        return font;
    case TextStyle::Secondary:
        return scaled(font, 0.85);
    }
    return font;
}

} // namespace Panorel

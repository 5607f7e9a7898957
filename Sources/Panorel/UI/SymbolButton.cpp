#include "Panorel/UI/SymbolButton.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>

namespace Panorel {

SymbolButton::SymbolButton(Symbol symbol, const QString &title, QWidget *parent)
    : ActionControl(title, parent), m_symbol(symbol)
{
    setToolTip(title);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize SymbolButton::sizeHint() const
{
    return {Metrics::hitArea, Metrics::hitArea};
}

void SymbolButton::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : Theme::disabledOpacity);
    paintFace(painter, theme);
    constexpr int size = 16;
    const QRectF area((width() - size) / 2, (height() - size) / 2, size, size);
    drawSymbol(painter, m_symbol, area, theme.secondaryText);
    paintFocusRing(painter, theme.accentInk, rect());
}

} // namespace Panorel

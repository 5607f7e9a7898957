#include "Panorel/UI/SymbolView.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>

namespace Panorel {

SymbolView::SymbolView(Symbol symbol, Tint tint, QWidget *parent)
    : QWidget(parent), m_symbol(symbol), m_tint(tint)
{
    setFixedSize(Metrics::symbolSize, Metrics::symbolSize);
}

void SymbolView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const Theme theme = Theme::of(palette());
    drawSymbol(painter, m_symbol, rect(), m_tint == Tint::Faint ? theme.off : theme.accentInk);
}

} // namespace Panorel

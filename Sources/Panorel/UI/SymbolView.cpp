#include "Panorel/UI/SymbolView.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>

namespace Panorel {

SymbolView::SymbolView(Symbol symbol, QWidget *parent) : QWidget(parent), m_symbol(symbol)
{
    setFixedSize(Metrics::symbolSize, Metrics::symbolSize);
}

void SymbolView::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    drawSymbol(painter, m_symbol, rect(), Theme::of(palette()).accentInk);
}

} // namespace Panorel

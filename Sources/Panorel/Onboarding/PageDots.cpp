#include "Panorel/Onboarding/PageDots.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Theme.h"

#include <QAccessible>
#include <QPainter>

namespace Panorel {

namespace {

constexpr int dotSize = 8;
constexpr int step = dotSize + Metrics::small;

} // namespace

PageDots::PageDots(QWidget *parent) : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void PageDots::setCount(int count)
{
    m_count = count;
    describe();
    updateGeometry();
}

void PageDots::setCurrent(int page)
{
    m_current = page;
    describe();
    QAccessibleEvent turned(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&turned);
}

void PageDots::describe()
{
    setAccessibleName(tr("Page %1 of %2").arg(m_current + 1).arg(m_count));
    update();
}

QSize PageDots::sizeHint() const
{
    return {m_count * step - Metrics::small, dotSize};
}

void PageDots::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (int i = 0; i < m_count; ++i) {
        const QRectF dot(i * step, (height() - dotSize) / 2.0, dotSize, dotSize);
        // Full or ring: the colour is not the only sign.
        painter.setPen(QPen(i == m_current ? theme.accentInk : theme.off, 1.5));
        painter.setBrush(i == m_current ? QBrush(theme.accentInk) : QBrush(Qt::NoBrush));
        painter.drawEllipse(dot.adjusted(0.75, 0.75, -0.75, -0.75));
    }
}

} // namespace Panorel

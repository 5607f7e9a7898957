#include "Panorel/UI/Toggle.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/Theme.h"

#include <QPainter>

namespace Panorel {

namespace {

constexpr QSize trackSize{36, 20};
constexpr double knobInset = 3;

} // namespace

Toggle::Toggle(const QString &title, QWidget *parent) : ActionControl(title, parent)
{
    setCheckable(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Toggle::sizeHint() const
{
    // The focus ring goes around the track.
    return {trackSize.width() + 2 * Metrics::focusRing, Metrics::hitArea};
}

void Toggle::paintEvent(QPaintEvent *)
{
    const Theme theme = Theme::of(palette());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(isEnabled() ? 1 : Theme::disabledOpacity);

    QRectF track(QPointF(), trackSize);
    track.moveCenter(QRectF(rect()).center());
    const double radius = track.height() / 2;
    const bool isRight = isChecked() != isRightToLeft();
    const bool isHovered = face() != Face::Rest;
    if (isChecked()) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(isHovered ? theme.accentHover : theme.accent);
        painter.drawRoundedRect(track, radius, radius);
    } else {
        painter.setPen(QPen(theme.off, 1.5));
        painter.setBrush(isHovered ? theme.hover : theme.window);
        painter.drawRoundedRect(track.adjusted(0.75, 0.75, -0.75, -0.75), radius, radius);
    }

    const double side = track.height() - 2 * knobInset;
    QRectF knob(track.left() + knobInset, track.top() + knobInset, side, side);
    if (isRight)
        knob.moveRight(track.right() - knobInset);
    if (!isChecked())
        knob.adjust(1, 1, -1, -1);
    painter.setPen(Qt::NoPen);
    painter.setBrush(isChecked() ? theme.accentText : theme.off);
    painter.drawEllipse(knob);
    paintFocusRing(painter, theme.accentInk, rect());
}

} // namespace Panorel

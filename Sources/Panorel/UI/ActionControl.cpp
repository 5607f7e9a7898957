#include "Panorel/UI/ActionControl.h"

#include "Panorel/UI/Metrics.h"
#include "Panorel/UI/TextStyle.h"
#include "Panorel/UI/Theme.h"

#include <QKeyEvent>
#include <QPainter>
#include <QStyleOption>

namespace Panorel {

ActionControl::ActionControl(const QString &title, QWidget *parent) : QAbstractButton(parent)
{
    setTitle(title);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::TabFocus);
}

void ActionControl::setTitle(const QString &title)
{
    if (title == m_title)
        return;
    m_title = title;
    setAccessibleName(title);
    updateGeometry();
    update();
}

QSize ActionControl::minimumSizeHint() const
{
    return {Metrics::hitArea, sizeHint().height()};
}

ActionControl::Face ActionControl::face() const
{
    if (isDown())
        return Face::Pressed;
    return underMouse() && isEnabled() ? Face::Hover : Face::Rest;
}

void ActionControl::paintFace(QPainter &painter, const Theme &theme) const
{
    if (face() == Face::Rest)
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(face() == Face::Pressed ? theme.pressed : theme.hover);
    painter.drawRoundedRect(rect(), Metrics::controlRadius, Metrics::controlRadius);
}

void ActionControl::paintFocusRing(QPainter &painter, const QColor &color, const QRectF &area) const
{
    QStyleOption option;
    option.initFrom(this);
    if (!hasFocus() || !(option.state & QStyle::State_KeyboardFocusChange))
        return;
    constexpr double inset = Metrics::focusRing / 2.0;
    painter.setPen(QPen(color, Metrics::focusRing));
    painter.setBrush(Qt::NoBrush);
    constexpr double radius = Metrics::controlRadius - inset;
    painter.drawRoundedRect(area.adjusted(inset, inset, -inset, -inset), radius, radius);
}

bool ActionControl::event(QEvent *event)
{
    if (event->type() == QEvent::ApplicationFontChange) {
        updateGeometry();
        update();
    }
    return QAbstractButton::event(event);
}

void ActionControl::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && !event->isAutoRepeat())
        click();
    else if (!isEnter)
        QAbstractButton::keyPressEvent(event);
}

} // namespace Panorel

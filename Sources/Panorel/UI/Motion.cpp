#include "Panorel/UI/Motion.h"

#include <QGraphicsOpacityEffect>
#include <QPropertyAnimation>
#include <QStyle>
#include <QWidget>

#include <algorithm>

namespace Panorel {

void fadeIn(QWidget &widget)
{
    constexpr int longest = 120;
    const int duration = std::min(
        longest, widget.style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, &widget));
    if (duration <= 0)
        return;
    auto *effect = new QGraphicsOpacityEffect(&widget);
    widget.setGraphicsEffect(effect); // owned by the widget, in place of an earlier one
    auto *animation = new QPropertyAnimation(effect, "opacity", effect);
    animation->setDuration(duration);
    animation->setStartValue(0.0);
    animation->setEndValue(1.0);
    // An effect that stays would draw the text through a bitmap for good.
    QObject::connect(animation, &QPropertyAnimation::finished, &widget,
                     [&widget] { widget.setGraphicsEffect(nullptr); });
    animation->start();
}

} // namespace Panorel

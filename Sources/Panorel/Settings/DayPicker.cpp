#include "Panorel/Settings/DayPicker.h"

#include "Panorel/UI/ChoiceButton.h"
#include "Panorel/UI/Metrics.h"

#include <QHBoxLayout>
#include <QLocale>

namespace Panorel {

DayPicker::DayPicker(const QLocale &locale, QWidget *parent) : QWidget(parent)
{
    setAccessibleName(tr("Days"));
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins({});
    layout->setSpacing(Metrics::tight);
    constexpr int daysInWeek = 7;
    for (int i = 0; i < daysInWeek; ++i) {
        const int day = (locale.firstDayOfWeek() - 1 + i) % daysInWeek + 1; // Monday is 1
        auto *button = new ChoiceButton(locale.standaloneDayName(day, QLocale::ShortFormat));
        button->setAccessibleName(locale.standaloneDayName(day, QLocale::LongFormat));
        layout->addWidget(button);
        m_days.emplace_back(day % daysInWeek + 1, button);
    }
}

std::set<qint64> DayPicker::days() const
{
    std::set<qint64> days;
    for (const auto &[day, button] : m_days) {
        if (button->isChecked())
            days.insert(day);
    }
    return days;
}

} // namespace Panorel

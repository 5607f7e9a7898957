#include "PanorelCore/Triggers/TriggerRecord.h"

#include <QStringList>

#include <algorithm>

namespace Panorel {

namespace {

bool isWeekday(qint64 number)
{
    return number >= 1 && number <= qint64(TriggerKind::dayNames.size());
}

QString days(const std::set<qint64> &weekdays)
{
    if (weekdays.empty())
        return QStringLiteral("every day");
    if (weekdays == std::set<qint64>{2, 3, 4, 5, 6})
        return QStringLiteral("every weekday");
    QStringList names;
    for (const qint64 number : weekdays) {
        if (isWeekday(number))
            names.append(QLatin1String(TriggerKind::dayNames[size_t(number - 1)]));
    }
    return QStringLiteral("on ") + names.join(QStringLiteral(", "));
}

} // namespace

bool TimeTrigger::canFire() const
{
    return hour >= 0 && hour < 24 && minute >= 0 && minute < 60
           && (weekdays.empty() || std::ranges::any_of(weekdays, isWeekday));
}

QString TriggerKind::description() const
{
    if (const TimeTrigger *at = time())
        return QString::asprintf("At %lld:%02lld ", at->hour, at->minute) + days(at->weekdays);
    return QStringLiteral("When a video meeting starts (%1 min before)")
        .arg(calendarVideo()->leadMinutes);
}

} // namespace Panorel

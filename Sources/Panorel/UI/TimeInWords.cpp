#include "Panorel/UI/TimeInWords.h"

#include <QCoreApplication>
#include <QDateTime>

namespace Panorel {

QString timeInWords(Instant then, Instant now, const QLocale &locale, const QTimeZone &zone)
{
    using namespace std::chrono_literals;
    const auto tr = [](const char *text) { // the context that lupdate finds it in
        return QCoreApplication::translate("Panorel", text);
    };
    const auto local = [&](Instant instant) {
        return QDateTime::fromMSecsSinceEpoch(instant.time_since_epoch().count(), zone);
    };
    const auto age = now - then;
    const auto minutes = int(std::chrono::floor<std::chrono::minutes>(age).count());
    if (age >= 0ms && age < 1min)
        return tr("just now");
    if (age >= 0ms && age < 2min)
        return tr("a minute ago");
    if (age >= 0ms && age < 1h)
        return tr("%1 minutes ago").arg(minutes);

    const QDateTime date = local(then);
    const qint64 days = date.date().daysTo(local(now).date());
    const QString time = locale.toString(date.time(), QLocale::ShortFormat);
    if (age >= 0ms && days == 0)
        return tr("today at %1").arg(time);
    if (age >= 0ms && days == 1)
        return tr("yesterday at %1").arg(time);
    return tr("on %1").arg(locale.toString(date.date(), QLocale::LongFormat));
}

} // namespace Panorel

#include "PanorelX11/Calendar/CalendarReader.h"

#include "PanorelX11/Calendar/EventExpansion.h"

#include <QPluginLoader>

#include <iterator>

namespace Panorel::X11 {

CalendarReader::CalendarReader(CalendarPlaces places, CalendarReport report)
    : m_places(std::move(places)), m_report(std::move(report)),
      m_folders(m_places.folders, m_report)
{}

CalendarPort::Events CalendarReader::events(Instant from, Instant to, GCancellable *cancel)
{
    // The folders first: a service that hangs uses the time up.
    CalendarPort::Events result = m_folders.events(from, to, cancel);
    std::ranges::move(serviceEvents(from, to, cancel), std::back_inserter(result));
    return result;
}

CalendarPort::Events CalendarReader::serviceEvents(Instant from, Instant to, GCancellable *cancel)
{
    CalendarPort::Events result;
    if (!m_places.offerService() || !loadService())
        return result;
    // The service may take a time of no zone for UTC's.
    constexpr std::chrono::hours anyZone(24);
    for (const QByteArray &text : m_service->calendars(from - anyZone, to + anyZone, cancel)) {
        const CalendarFile calendar = CalendarFile::parse(text);
        if (!calendar.problem.isEmpty())
            m_report(QStringLiteral("a calendar of the desktop %1").arg(calendar.problem));
        EventExpansion expansion(from, to, QTimeZone::systemTimeZone());
        expansion.add(calendar.events);
        std::ranges::move(expansion.occurrences(), std::back_inserter(result));
        for (const QString &title : expansion.overlong())
            m_report(QStringLiteral("“%1” repeats too often to be followed").arg(title));
    }
    return result;
}

bool CalendarReader::loadService()
{
    if (m_service)
        return true;
    QPluginLoader loader(m_places.servicePlugin);
    auto *factory = qobject_cast<CalendarServiceFactory *>(loader.instance());
    if (!factory) {
        m_report(
            QStringLiteral("the calendar service can't be used: %1").arg(loader.errorString()));
        return false;
    }
    m_service = factory->create(m_report);
    return true;
}

} // namespace Panorel::X11

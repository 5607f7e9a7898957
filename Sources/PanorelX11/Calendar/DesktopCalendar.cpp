#include "PanorelX11/Calendar/DesktopCalendar.h"

#include "PanorelCore/Files/AppLog.h"
#include "PanorelCore/Files/LogText.h"
#include "PanorelX11/Calendar/CalendarReader.h"

#include <mutex>

namespace Panorel::X11 {

namespace {

/// Queries that wait for one that hangs; older ones are of no use to anybody.
constexpr std::size_t mostWaiting = 4;

} // namespace

/// What the thread tells the main thread. Shut when the calendar goes, which the thread may
/// outlive.
class DesktopCalendar::Outlet {
public:
    Outlet(AppLog &log, const Clock &clock, DesktopCalendar &calendar)
        : m_clock(clock), m_log(&log), m_calendar(&calendar),
          m_receiver(std::make_unique<QObject>())
    {}

    void shut()
    {
        const std::scoped_lock lock(m_mutex);
        m_log = nullptr;
        m_calendar = nullptr;
        m_receiver.reset();
    }

    void report(const QString &line)
    {
        const std::scoped_lock lock(m_mutex);
        if (!m_log)
            return;
        const auto now = m_clock.steadyNow();
        std::erase_if(m_said,
                      [&](const auto &said) { return now - said.second >= std::chrono::hours(1); });
        if (m_said.size() < 200 && m_said.try_emplace(line, now).second)
            m_log->log(QStringLiteral("calendar: ") + forLog(line));
    }

    void deliver(Events events)
    {
        const std::scoped_lock lock(m_mutex);
        if (!m_calendar)
            return;
        QMetaObject::invokeMethod(
            m_receiver.get(),
            [calendar = m_calendar, events = std::move(events)] { calendar->answer(events); },
            Qt::QueuedConnection);
    }

private:
    std::mutex m_mutex;
    const Clock &m_clock;
    AppLog *m_log;
    DesktopCalendar *m_calendar;
    std::unique_ptr<QObject> m_receiver; ///< on the main thread; takes queued calls with it
    std::map<QString, std::chrono::milliseconds> m_said;
};

DesktopCalendar::DesktopCalendar(AppLog &log, const Clock &clock, CalendarPlaces places,
                                 std::chrono::milliseconds deadline)
    : m_places(std::move(places)), m_deadline(deadline), m_availability(m_places, clock),
      m_outlet(std::make_shared<Outlet>(log, clock, *this))
{
    m_timer.setSingleShot(true);
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] {
        m_outlet->report(QStringLiteral("not everything answered in time"));
        g_cancellable_cancel(m_cancel.get());
    });
}

DesktopCalendar::~DesktopCalendar()
{
    m_outlet->shut();
    if (m_cancel)
        g_cancellable_cancel(m_cancel.get());
    // What the reader holds of the service belongs to the thread.
    m_thread.end([reader = std::move(m_reader)]() mutable { reader.reset(); },
                 std::chrono::seconds(1));
}

CalendarAuthorization DesktopCalendar::authorization()
{
    return m_availability.isAvailable() ? CalendarAuthorization::FullAccess
                                        : CalendarAuthorization::Denied;
}

void DesktopCalendar::requestAccess(std::function<void(bool granted)> completion)
{
    completion(authorization() == CalendarAuthorization::FullAccess);
}

void DesktopCalendar::events(Instant from, Instant to,
                             std::function<void(const Events &events)> completion)
{
    m_queries.push_back({from, to, std::move(completion)});
    if (m_queries.size() > 1 + mostWaiting)
        m_queries.erase(m_queries.begin() + 1);
    if (!m_cancel)
        startNext();
}

void DesktopCalendar::startNext()
{
    if (m_queries.empty())
        return;
    if (!m_reader) {
        m_reader = std::make_shared<CalendarReader>(
            m_places, [outlet = m_outlet](const QString &line) { outlet->report(line); });
    }
    m_cancel = {g_cancellable_new(), &g_object_unref};
    m_timer.start(m_deadline);
    m_thread.run(
        [reader = m_reader, outlet = m_outlet, cancel = m_cancel, from = m_queries.front().from,
         to = m_queries.front().to] { outlet->deliver(reader->events(from, to, cancel.get())); });
}

void DesktopCalendar::answer(const Events &events)
{
    m_timer.stop();
    m_cancel.reset();
    const auto completion = std::move(m_queries.front().completion);
    m_queries.pop_front();
    startNext();
    completion(events); // last: it may ask again, or be the end of this
}

} // namespace Panorel::X11

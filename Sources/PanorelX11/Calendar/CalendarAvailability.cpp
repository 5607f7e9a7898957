#include "PanorelX11/Calendar/CalendarAvailability.h"

#include <thread>

namespace Panorel::X11 {

CalendarAvailability::CalendarAvailability(CalendarPlaces places, const Clock &clock)
    : m_places(std::move(places)), m_clock(clock)
{}

bool CalendarAvailability::isAvailable()
{
    using namespace std::chrono_literals;
    constexpr auto lately = 10s;
    constexpr auto patience = 200ms;
    const auto now = m_clock.steadyNow();
    if (!m_asked.valid() && m_askedAt && now - *m_askedAt < lately)
        return m_answer;
    if (!m_asked.valid()) {
        // Neither a task that std::async would wait for, nor anything of this object's: whoever
        // asks a dead file system may never come back.
        std::packaged_task<bool()> ask([places = m_places] { return places.holdAny(); });
        m_asked = ask.get_future();
        m_askedAt = now;
        std::thread(std::move(ask)).detach();
    }
    if (m_asked.wait_for(patience) == std::future_status::ready)
        m_answer = m_asked.get();
    return m_answer;
}

} // namespace Panorel::X11

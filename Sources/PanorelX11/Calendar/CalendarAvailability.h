#pragma once

#include "PanorelCore/Clock.h"
#include "PanorelX11/Calendar/CalendarPlaces.h"

#include <future>

namespace Panorel::X11 {

/// Whether there are calendars to be read. What was found lately counts, and an answer that is slow
/// to come is not waited for: the one before it counts then.
class CalendarAvailability {
public:
    /// The clock outlives it.
    CalendarAvailability(CalendarPlaces places, const Clock &clock);

    bool isAvailable();

private:
    CalendarPlaces m_places;
    const Clock &m_clock;
    std::future<bool> m_asked; ///< valid while an answer is awaited
    std::optional<std::chrono::milliseconds> m_askedAt;
    bool m_answer = false;
};

} // namespace Panorel::X11

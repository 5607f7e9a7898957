#pragma once

#include "PanorelCore/Clock.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace Panorel {

/// Numbered as the platforms number it.
enum class CalendarAuthorization {
    NotDetermined = 0, ///< the user was not asked yet
    Restricted = 1,    ///< and may not grant it
    Denied = 2,
    FullAccess = 3,
    WriteOnly = 4,
};

/// One occurrence of an event, as far as the calendar says. Texts are valid Unicode.
struct CalendarEvent {
    std::optional<QString> identifier; ///< of this very occurrence, not of the whole series
    std::optional<QString> title;
    std::optional<QString> location;
    std::optional<QString> notes;
    std::optional<QString> url;
    std::optional<Instant> start;

    bool operator==(const CalendarEvent &) const = default;
};

/// The user's calendars. Nothing is opened or started before the first query.
class CalendarPort {
public:
    using Events = std::vector<CalendarEvent>;

    virtual ~CalendarPort() = default;

    /// Cheap; read afresh on every call.
    virtual CalendarAuthorization authorization() = 0;

    /// Asks the user for full access where that has a meaning; the answer comes on the main
    /// thread, possibly within the call. A failure counts as a refusal.
    virtual void requestAccess(std::function<void(bool granted)> completion) = 0;

    /// The occurrences in all calendars that begin or go on between the two moments, in no order
    /// that means anything; cancelled ones are left out. Answers once on the main thread, within
    /// the call where the platform answers at once, otherwise whenever a slow calendar is ready,
    /// or never. Calendars that can't be read are left out and logged.
    virtual void events(Instant from, Instant to,
                        std::function<void(const Events &events)> completion) = 0;
};

} // namespace Panorel

#pragma once

#include <QString>
#include <QUuid>

#include <array>
#include <set>
#include <variant>

/// What applies a scene on its own: plain values, equal when every field is. Their JSON form is
/// in TriggerCoding.h. Numbers come unchecked from a file that the user may edit.
namespace Panorel {

/// A time of day, on the clock of the user's time zone.
struct TimeTrigger {
    qint64 hour = 0;           ///< 0 to 23
    qint64 minute = 0;         ///< 0 to 59
    std::set<qint64> weekdays; ///< 1 Sunday to 7 Saturday; empty: every day

    /// Whether there ever is such a moment: false for hour 24, or for weekdays that are none.
    bool canFire() const;

    bool operator==(const TimeTrigger &) const = default;
};

/// Shortly before a calendar event that carries a link to a video meeting.
struct CalendarVideoTrigger {
    qint64 leadMinutes = 0;

    bool operator==(const CalendarVideoTrigger &) const = default;
};

struct TriggerKind {
    /// Of the weekdays 1 to 7.
    static constexpr std::array<const char *, 7> dayNames = {"Sun", "Mon", "Tue", "Wed",
                                                             "Thu", "Fri", "Sat"};

    std::variant<TimeTrigger, CalendarVideoTrigger> payload;

    /// Null for the other kind.
    const TimeTrigger *time() const { return std::get_if<TimeTrigger>(&payload); }
    const CalendarVideoTrigger *calendarVideo() const
    {
        return std::get_if<CalendarVideoTrigger>(&payload);
    }

    /// For the user, for example "At 9:05 on Mon, Wed, Fri".
    QString description() const;

    bool operator==(const TriggerKind &) const = default;
};

struct TriggerRecord {
    QUuid id;
    QUuid sceneID; ///< the scene to apply; it may be gone
    TriggerKind kind;
    bool enabled = false; ///< a trigger that is off is kept and never fires

    bool operator==(const TriggerRecord &) const = default;
};

} // namespace Panorel

#include "PanorelMac/Calendar/MacCalendar.h"

#include "PanorelMac/Support/MainThread.h"
#include "PanorelMac/Support/NsText.h"
#include "PanorelMac/Support/Retained.h"

#import <EventKit/EventKit.h>

#include <cmath>

namespace Panorel::Mac {

namespace {

NSDate *dateOf(Instant instant)
{
    const double milliseconds = double(instant.time_since_epoch().count());
    return [NSDate dateWithTimeIntervalSince1970:milliseconds / 1000];
}

std::optional<Instant> instantOf(NSDate *date)
{
    if (!date)
        return {};
    // Beyond it are only placeholders such as the distant future, and what isn't a number.
    constexpr double latest = 1e15;
    const double milliseconds = std::round(date.timeIntervalSince1970 * 1000);
    if (!(std::abs(milliseconds) < latest))
        return {};
    return Instant(std::chrono::milliseconds(std::int64_t(milliseconds)));
}

/// All occurrences of a series have one identifier.
std::optional<QString> occurrenceOf(EKEvent *event, const std::optional<Instant> &start)
{
    std::optional<QString> identifier = textOf(event.eventIdentifier);
    if (identifier && start)
        *identifier += u'/' + QString::number(start->time_since_epoch().count());
    return identifier;
}

CalendarEvent describe(EKEvent *event)
{
    const std::optional<Instant> start = instantOf(event.startDate);
    return {occurrenceOf(event, start),       textOf(event.title),
            textOf(event.location),           textOf(event.notes),
            textOf(event.URL.absoluteString), start};
}

} // namespace

class MacCalendar::Store {
public:
    using Completion = std::function<void(bool granted)>;

    void requestAccess(Completion completion)
    {
        // The answer comes on any thread, and maybe when nobody waits for it any more.
        const std::weak_ptr<bool> alive = m_alive;
        const auto answer = ^(BOOL granted, NSError *) {
          const bool isGranted = granted;
          runOnMainThread([=] {
              if (alive.lock())
                  completion(isGranted);
          });
        };
        if (@available(macOS 14.0, *))
            [m_store.get() requestFullAccessToEventsWithCompletion:answer];
        else
            [m_store.get() requestAccessToEntityType:EKEntityTypeEvent completion:answer];
    }

    Events events(Instant from, Instant to)
    {
        NSPredicate *between = [m_store.get() predicateForEventsWithStartDate:dateOf(from)
                                                                      endDate:dateOf(to)
                                                                    calendars:nil];
        Events found;
        for (EKEvent *event in [m_store.get() eventsMatchingPredicate:between]) {
            if (event.status != EKEventStatusCanceled)
                found.push_back(describe(event));
        }
        return found;
    }

private:
    Retained<EKEventStore *> m_store = Retained<EKEventStore *>::adopt([[EKEventStore alloc] init]);
    std::shared_ptr<bool> m_alive = std::make_shared<bool>();
};

MacCalendar::MacCalendar() = default;

MacCalendar::~MacCalendar()
{
    @autoreleasepool {
        m_store.reset();
    }
}

MacCalendar::Store &MacCalendar::store()
{
    if (!m_store)
        m_store = std::make_unique<Store>();
    return *m_store;
}

CalendarAuthorization MacCalendar::authorization()
{
    @autoreleasepool {
        switch ([EKEventStore authorizationStatusForEntityType:EKEntityTypeEvent]) {
        case EKAuthorizationStatusNotDetermined:
            return CalendarAuthorization::NotDetermined;
        case EKAuthorizationStatusRestricted:
            return CalendarAuthorization::Restricted;
        case EKAuthorizationStatusFullAccess:
            return CalendarAuthorization::FullAccess;
        case EKAuthorizationStatusWriteOnly:
            return CalendarAuthorization::WriteOnly;
        case EKAuthorizationStatusDenied:
            break;
        }
        return CalendarAuthorization::Denied;
    }
}

void MacCalendar::requestAccess(std::function<void(bool granted)> completion)
{
    @autoreleasepool {
        store().requestAccess(std::move(completion));
    }
}

void MacCalendar::events(Instant from, Instant to,
                         std::function<void(const Events &events)> completion)
{
    @autoreleasepool {
        completion(store().events(from, to));
    }
}

} // namespace Panorel::Mac

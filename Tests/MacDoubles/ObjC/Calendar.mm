#include "MacDoubles/Desktop/MacDesktop.h"
#import <EventKit/EventKit.h>

#include <Block.h>

#include <thread>

using namespace Panorel;
using namespace Panorel::MacDoubles;

namespace {

Instant instantOf(NSDate *date)
{
    return Instant(std::chrono::milliseconds(std::int64_t(date.timeIntervalSince1970 * 1000)));
}

} // namespace

@interface EventsBetween : NSPredicate {
@public
    Instant _from, _to;
}
@end

@implementation EventsBetween
@end

/// The in-memory event's identifier stands for that of the whole series.
@implementation EKEvent

- (NSString *)eventIdentifier
{
    return nsTextOrNil(valueOf<CalendarEvent>(self).identifier);
}

- (NSString *)title
{
    return nsTextOrNil(valueOf<CalendarEvent>(self).title);
}

- (NSString *)location
{
    return nsTextOrNil(valueOf<CalendarEvent>(self).location);
}

- (NSString *)notes
{
    return nsTextOrNil(valueOf<CalendarEvent>(self).notes);
}

- (NSURL *)URL
{
    const auto &url = valueOf<CalendarEvent>(self).url;
    return url ? [NSURL URLWithString:nsTextOrNil(url)] : nil;
}

- (NSDate *)startDate
{
    const auto &start = valueOf<CalendarEvent>(self).start;
    return start ? [NSDate dateWithTimeIntervalSince1970:start->time_since_epoch().count() / 1e3]
                 : nil;
}

- (EKEventStatus)status
{
    const QString title = valueOf<CalendarEvent>(self).title.value_or(QString());
    return desktop().cancelledEvents.contains(title) ? EKEventStatusCanceled
                                                     : EKEventStatusConfirmed;
}

@end

@implementation EKEventStore

+ (EKAuthorizationStatus)authorizationStatusForEntityType:(EKEntityType)entityType
{
    return EKAuthorizationStatus(desktop().platform.events.status);
}

/// The answer comes on another thread.
- (void)requestFullAccessToEventsWithCompletion:
    (EKEventStoreRequestAccessCompletionHandler)completion
{
    const bool isGranted = desktop().platform.events.status == CalendarAuthorization::FullAccess;
    EKEventStoreRequestAccessCompletionHandler held = Block_copy(completion);
    std::thread([=] {
        held(isGranted, nil);
        Block_release(held);
    }).join();
}

- (NSPredicate *)predicateForEventsWithStartDate:(NSDate *)startDate
                                         endDate:(NSDate *)endDate
                                       calendars:(NSArray<EKCalendar *> *)calendars
{
    EventsBetween *between = [[[EventsBetween alloc] init] autorelease];
    between->_from = instantOf(startDate);
    between->_to = instantOf(endDate);
    return between;
}

- (NSArray<EKEvent *> *)eventsMatchingPredicate:(NSPredicate *)predicate
{
    NSMutableArray *found = [NSMutableArray array];
    InMemoryCalendar &calendar = desktop().platform.events;
    if (calendar.status != CalendarAuthorization::FullAccess)
        return found;
    EventsBetween *between = (EventsBetween *)predicate;
    calendar.events(between->_from, between->_to, [&](const CalendarPort::Events &events) {
        for (const CalendarEvent &event : events)
            [found addObject:[EKEvent of:std::make_shared<CalendarEvent>(event)]];
    });
    return found;
}

@end

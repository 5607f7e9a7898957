// The part of EventKit that the port uses, over another Foundation.
#pragma once

#import "MacDoubles/ObjC/Snapshot.h"

typedef NS_ENUM(NSInteger, EKAuthorizationStatus) {
    EKAuthorizationStatusNotDetermined = 0,
    EKAuthorizationStatusRestricted,
    EKAuthorizationStatusDenied,
    EKAuthorizationStatusFullAccess,
    EKAuthorizationStatusWriteOnly
};

typedef NS_ENUM(NSUInteger, EKEntityType) { EKEntityTypeEvent };

typedef NS_ENUM(NSInteger, EKEventStatus) { EKEventStatusConfirmed = 1, EKEventStatusCanceled = 3 };

@class EKCalendar;

@interface EKEvent : Snapshot
@property(nonatomic, readonly) NSString *eventIdentifier;
@property(nonatomic, readonly, copy) NSString *title;
@property(nonatomic, readonly, copy) NSString *location;
@property(nonatomic, readonly, copy) NSString *notes;
@property(nonatomic, readonly, copy) NSURL *URL;
@property(nonatomic, readonly, copy) NSDate *startDate;
@property(nonatomic, readonly) EKEventStatus status;
@end

typedef void (^EKEventStoreRequestAccessCompletionHandler)(BOOL granted, NSError *error);

@interface EKEventStore : NSObject
+ (EKAuthorizationStatus)authorizationStatusForEntityType:(EKEntityType)entityType;
- (void)requestFullAccessToEventsWithCompletion:
    (EKEventStoreRequestAccessCompletionHandler)completion;
- (NSPredicate *)predicateForEventsWithStartDate:(NSDate *)startDate
                                         endDate:(NSDate *)endDate
                                       calendars:(NSArray<EKCalendar *> *)calendars;
- (NSArray<EKEvent *> *)eventsMatchingPredicate:(NSPredicate *)predicate;
@end

@interface EKEventStore (Used)
- (void)requestAccessToEntityType:(EKEntityType)entityType
                       completion:(EKEventStoreRequestAccessCompletionHandler)completion;
@end

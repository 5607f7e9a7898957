#import "MacDoubles/ObjC/WorkspaceNotifications.h"

#include "MacDoubles/Desktop/MacDesktop.h"
#include "PanorelMac/Support/MainThread.h"
#include "PanorelMac/Support/Retained.h"

#include <Block.h>

using namespace Panorel;
using namespace Panorel::MacDoubles;

typedef void (^Handler)(NSNotification *);

@interface BlockObserver : NSObject {
@public
    Handler _handler;
    BOOL _isOfMainQueue;
}
@end

@implementation BlockObserver

- (void)dealloc
{
    Block_release(_handler);
    [super dealloc];
}

@end

@implementation WorkspaceNotifications

- (instancetype)init
{
    self = [super init];
    _observers = [[NSMutableArray alloc] init];
    return self;
}

- (id)addObserverForName:(NSString *)name
                  object:(id)object
                   queue:(NSOperationQueue *)queue
              usingBlock:(Handler)handler
{
    if (queue && queue != NSOperationQueue.mainQueue)
        addFault(QStringLiteral("an observer on a queue of its own"));
    BlockObserver *observer = [[[BlockObserver alloc] init] autorelease];
    observer->_handler = Block_copy(handler);
    observer->_isOfMainQueue = queue != nil;
    [_observers addObject:observer];
    ++desktop().services.observers;
    return observer;
}

- (void)removeObserver:(id)observer
{
    if (![_observers containsObject:observer])
        addFault(QStringLiteral("an observer removed that was not there"));
    [_observers removeObject:observer];
    --desktop().services.observers;
}

- (void)postNotification:(NSNotification *)notification
{
    for (BlockObserver *observer in _observers) {
        // What has been posted is told, though the observer may be removed meanwhile.
        const auto kept = Mac::Retained<BlockObserver *>::share(observer);
        const auto told = Mac::Retained<NSNotification *>::share(notification);
        const auto tell = [=] { kept.get()->_handler(told.get()); };
        if (observer->_isOfMainQueue)
            Mac::runOnMainThread(tell);
        else
            tell();
    }
}

@end

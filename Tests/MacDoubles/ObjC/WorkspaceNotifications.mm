#import "MacDoubles/ObjC/WorkspaceNotifications.h"

#include "MacDoubles/Desktop/MacDesktop.h"
#include "PanorelMac/Support/MainThread.h"
#include "PanorelMac/Support/Retained.h"

#include <Block.h>

using namespace Panorel;
using Mac::Retained;

typedef void (^Handler)(NSNotification *);

@interface BlockObserver : NSObject {
    Handler _handler;
    NSOperationQueue *_queue;
}
- (instancetype)initWithHandler:(Handler)handler queue:(NSOperationQueue *)queue;
- (void)notify:(NSNotification *)notification;
@end

@implementation BlockObserver

- (instancetype)initWithHandler:(Handler)handler queue:(NSOperationQueue *)queue
{
    self = [super init];
    _handler = Block_copy(handler);
    _queue = queue;
    return self;
}

- (void)dealloc
{
    Block_release(_handler);
    [super dealloc];
}

- (void)notify:(NSNotification *)notification
{
    if (_queue != NSOperationQueue.mainQueue)
        return _handler(notification);
    // What has been posted is told, though the observer may be removed meanwhile.
    const auto self_ = Retained<BlockObserver *>::share(self);
    const auto held = Retained<NSNotification *>::share(notification);
    Mac::runOnMainThread([=] {
        @autoreleasepool {
            self_.get()->_handler(held.get());
        }
    });
}

@end

@implementation WorkspaceNotifications

- (id)addObserverForName:(NSString *)name
                  object:(id)object
                   queue:(NSOperationQueue *)queue
              usingBlock:(Handler)handler
{
    if (queue && queue != NSOperationQueue.mainQueue)
        MacDoubles::addFault(QStringLiteral("an observer on a queue of its own"));
    BlockObserver *observer = [[BlockObserver alloc] initWithHandler:handler queue:queue];
    [self addObserver:observer selector:@selector(notify:) name:name object:object];
    return observer; // this reference is the centre's, until it is removed
}

- (void)removeObserver:(id)observer
{
    [super removeObserver:observer];
    if ([observer isKindOfClass:BlockObserver.class])
        [observer release];
}

@end

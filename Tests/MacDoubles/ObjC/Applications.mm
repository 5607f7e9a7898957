#include "MacDoubles/Desktop/MacDesktop.h"
#include "PanorelMac/Support/MainThread.h"
#include "PanorelMac/Support/Retained.h"

#import <AppKit/AppKit.h>

#include <Block.h>

using namespace Panorel;
using namespace Panorel::MacDoubles;

NSNotificationName const NSWorkspaceDidLaunchApplicationNotification =
    @"NSWorkspaceDidLaunchApplicationNotification";
NSString *const NSWorkspaceApplicationKey = @"NSWorkspaceApplicationKey";

/// What it was when it was asked for.
@implementation NSRunningApplication

+ (NSRunningApplication *)currentApplication
{
    return [self runningApplicationWithProcessIdentifier:InMemoryDesktop::ownPID];
}

+ (instancetype)runningApplicationWithProcessIdentifier:(pid_t)pid
{
    for (const RunningApplication &running : desktop().platform.desktop.runningApplications()) {
        if (running.pid == pid)
            return [self of:std::make_shared<RunningApplication>(running)];
    }
    return nil;
}

- (pid_t)processIdentifier
{
    return valueOf<RunningApplication>(self).pid;
}

- (NSString *)bundleIdentifier
{
    return nsTextOrNil(valueOf<RunningApplication>(self).bundleID);
}

- (NSString *)localizedName
{
    return nsTextOrNil(valueOf<RunningApplication>(self).localizedName);
}

- (NSApplicationActivationPolicy)activationPolicy
{
    return NSApplicationActivationPolicy(valueOf<RunningApplication>(self).policy);
}

- (BOOL)isHidden
{
    return valueOf<RunningApplication>(self).isHidden;
}

- (BOOL)hide
{
    desktop().platform.desktop.hide(self.processIdentifier);
    return YES;
}

- (BOOL)unhide
{
    desktop().platform.desktop.unhide(self.processIdentifier);
    return YES;
}

@end

/// Has one observer at a time, and tells it on the main queue, which it should have asked for.
@interface LaunchNotifications : NSNotificationCenter {
    void (^_handler)(NSNotification *);
}
@end

@implementation LaunchNotifications

- (id)addObserverForName:(NSString *)name
                  object:(id)object
                   queue:(NSOperationQueue *)queue
              usingBlock:(void (^)(NSNotification *))handler
{
    if (queue != NSOperationQueue.mainQueue || _handler)
        desktop().faults << QStringLiteral("a second observer, or one on another thread");
    _handler = Block_copy(handler);
    ++desktop().launchObservers;
    return self;
}

- (void)removeObserver:(id)observer
{
    Block_release(_handler);
    _handler = nil;
    --desktop().launchObservers;
}

- (void)postNotification:(NSNotification *)notification
{
    if (!_handler)
        return;
    // What has been posted is told, though the observer may be removed meanwhile.
    const auto told = Mac::Retained<NSNotification *>::share(notification);
    const auto handler = Block_copy(_handler);
    Mac::runOnMainThread([=] {
        handler(told.get());
        Block_release(handler);
    });
}

@end

@implementation NSWorkspace

+ (NSWorkspace *)sharedWorkspace
{
    static NSWorkspace *workspace = [[NSWorkspace alloc] init];
    // Every test has a new desktop.
    desktop().platform.desktop.setLaunchCallback([](const RunningApplication &launched) {
        id application = [NSRunningApplication of:std::make_shared<RunningApplication>(launched)];
        [workspace->_center
            postNotification:[NSNotification
                                 notificationWithName:NSWorkspaceDidLaunchApplicationNotification
                                               object:workspace
                                             userInfo:@{NSWorkspaceApplicationKey : application}]];
    });
    return workspace;
}

- (instancetype)init
{
    self = [super init];
    _center = [[LaunchNotifications alloc] init];
    return self;
}

- (NSNotificationCenter *)notificationCenter
{
    return _center;
}

- (NSArray<NSRunningApplication *> *)runningApplications
{
    NSMutableArray *all = [NSMutableArray array];
    for (const RunningApplication &running : desktop().platform.desktop.runningApplications())
        [all addObject:[NSRunningApplication of:std::make_shared<RunningApplication>(running)]];
    return all;
}

@end

#include "MacDoubles/Desktop/MacDesktop.h"
#include "MacDoubles/ObjC/WorkspaceNotifications.h"
#include "PanorelMac/Support/NsText.h"

#import <AppKit/AppKit.h>

#include <thread>

using namespace Panorel;
using namespace Panorel::MacDoubles;
using Panorel::Mac::nsText;
using Panorel::Mac::textOf;

NSNotificationName const NSWorkspaceDidLaunchApplicationNotification =
    @"NSWorkspaceDidLaunchApplicationNotification";
NSString *const NSWorkspaceApplicationKey = @"NSWorkspaceApplicationKey";

@implementation NSApplication

+ (NSApplication *)sharedApplication
{
    static NSApplication *application = [[NSApplication alloc] init];
    return application;
}

- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy
{
    expectMainThread(__func__);
    desktop().platform.activationPolicy().setActivationPolicy(ActivationPolicy(activationPolicy));
    return YES;
}

@end

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

@implementation NSWorkspaceOpenConfiguration

+ (instancetype)configuration
{
    return [[[self alloc] init] autorelease];
}

@end

@implementation NSWorkspace

+ (NSWorkspace *)sharedWorkspace
{
    static NSWorkspace *workspace = [[NSWorkspace alloc] init];
    // Every test has a new desktop.
    desktop().platform.desktop.setLaunchCallback([](const RunningApplication &launched) {
        // From elsewhere, so that who did not ask for the main queue is found out.
        std::thread([pid = launched.pid] { [workspace announceLaunchOf:pid]; }).join();
    });
    return workspace;
}

- (instancetype)init
{
    self = [super init];
    _center = [[WorkspaceNotifications alloc] init];
    return self;
}

- (void)announceLaunchOf:(pid_t)pid
{
    @autoreleasepool {
        NSRunningApplication *launched =
            [NSRunningApplication runningApplicationWithProcessIdentifier:pid];
        [_center
            postNotification:[NSNotification
                                 notificationWithName:NSWorkspaceDidLaunchApplicationNotification
                                               object:self
                                             userInfo:@{NSWorkspaceApplicationKey : launched}]];
    }
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

- (NSURL *)URLForApplicationWithBundleIdentifier:(NSString *)bundleIdentifier
{
    const QString bundleID = textOf(bundleIdentifier).value();
    const auto location = desktop().platform.launcher().locate(bundleID);
    return location ? [NSURL fileURLWithPath:nsText(*location)] : nil;
}

- (void)openApplicationAtURL:(NSURL *)applicationURL
               configuration:(NSWorkspaceOpenConfiguration *)configuration
           completionHandler:(void (^)(NSRunningApplication *app, NSError *error))completionHandler
{
    if (!applicationURL.isFileURL || !configuration || completionHandler)
        addFault(QStringLiteral("an application opened other than the usual way"));
    desktop().platform.launcher().open(textOf(applicationURL.path).value());
}

- (BOOL)openURL:(NSURL *)url
{
    desktop().services.openedURLs << textOf(url.absoluteString).value();
    return YES;
}

- (BOOL)setDesktopImageURL:(NSURL *)url
                 forScreen:(NSScreen *)screen
                   options:(NSDictionary<NSWorkspaceDesktopImageOptionKey, id> *)options
                     error:(NSError **)error
{
    expectMainThread(__func__);
    if (!options)
        addFault(QStringLiteral("a desktop picture without options"));
    MacServices &services = desktop().services;
    const auto number =
        [[screen.deviceDescription objectForKey:@"NSScreenNumber"] unsignedIntValue];
    if (services.keepingTheirPicture.contains(number))
        return NO;
    services.pictures[number] = textOf(url.path).value();
    return YES;
}

@end

// The part of AppKit that the port uses, over another Foundation. What stands in a category (Used)
// is compiled against and does nothing.
#pragma once

#import "MacDoubles/ObjC/Snapshot.h"

typedef NSString *NSNotificationName;
typedef NSString *NSWorkspaceDesktopImageOptionKey;

typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
    NSApplicationActivationPolicyRegular,
    NSApplicationActivationPolicyAccessory,
    NSApplicationActivationPolicyProhibited
};

@interface NSApplication : NSObject
@end
@interface NSApplication (Used)
@property(class, readonly, strong) NSApplication *sharedApplication;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)activationPolicy;
@end

@interface NSRunningApplication : Snapshot
@property(readonly) pid_t processIdentifier;
@property(readonly, copy) NSString *bundleIdentifier;
@property(readonly, copy) NSString *localizedName;
@property(readonly) NSApplicationActivationPolicy activationPolicy;
@property(readonly, getter=isHidden) BOOL hidden;
@property(class, readonly, strong) NSRunningApplication *currentApplication;
+ (instancetype)runningApplicationWithProcessIdentifier:(pid_t)pid;
- (BOOL)hide;
- (BOOL)unhide;
@end

@interface NSScreen : Snapshot
@property(class, readonly, copy) NSArray<NSScreen *> *screens;
@property(readonly) NSRect frame;
@property(readonly) NSRect visibleFrame;
@property(readonly, copy) NSString *localizedName;
@property(readonly, copy) NSDictionary *deviceDescription;
@end

@interface NSWorkspaceOpenConfiguration : NSObject
@end
@interface NSWorkspaceOpenConfiguration (Used)
+ (instancetype)configuration;
@end

extern NSNotificationName const NSWorkspaceDidLaunchApplicationNotification;
extern NSString *const NSWorkspaceApplicationKey;

@interface NSWorkspace : NSObject {
    NSNotificationCenter *_center;
}
@property(class, readonly, strong) NSWorkspace *sharedWorkspace;
@property(readonly, strong) NSNotificationCenter *notificationCenter;
@property(readonly, copy) NSArray<NSRunningApplication *> *runningApplications;
@end
@interface NSWorkspace (Used)
- (NSURL *)URLForApplicationWithBundleIdentifier:(NSString *)bundleIdentifier;
- (void)openApplicationAtURL:(NSURL *)applicationURL
               configuration:(NSWorkspaceOpenConfiguration *)configuration
           completionHandler:(void (^)(NSRunningApplication *app, NSError *error))completionHandler;
- (BOOL)openURL:(NSURL *)url;
- (BOOL)setDesktopImageURL:(NSURL *)url
                 forScreen:(NSScreen *)screen
                   options:(NSDictionary<NSWorkspaceDesktopImageOptionKey, id> *)options
                     error:(NSError **)error;
@end

typedef NSInteger NSWindowLevel;
static const NSWindowLevel NSStatusWindowLevel = 25;

typedef NS_OPTIONS(NSUInteger, NSWindowStyleMask) { NSWindowStyleMaskNonactivatingPanel = 1 << 7 };

typedef NS_OPTIONS(NSUInteger, NSWindowCollectionBehavior) {
    NSWindowCollectionBehaviorCanJoinAllSpaces = 1 << 0,
    NSWindowCollectionBehaviorFullScreenAuxiliary = 1 << 8
};

@class NSView;

@interface NSWindow : NSObject
@end
@interface NSWindow (Used)
@property(readonly) NSRect frame;
@property(readonly, strong) NSScreen *screen;
@property NSWindowStyleMask styleMask;
@property NSWindowLevel level;
@property NSWindowCollectionBehavior collectionBehavior;
@property BOOL hidesOnDeactivate;
@property(getter=isReleasedWhenClosed) BOOL releasedWhenClosed;
@end

@interface NSPanel : NSWindow
@end

@interface NSView : NSObject
@end
@interface NSView (Used)
@property(readonly, assign) NSWindow *window;
@property(copy) NSString *toolTip;
@end

@interface NSImage : NSObject
@end
@interface NSImage (Used)
+ (instancetype)imageWithSystemSymbolName:(NSString *)symbolName
                 accessibilityDescription:(NSString *)description;
- (void)setTemplate:(BOOL)isTemplate;
@end

// With what it has of NSControl and NSButton.
@interface NSStatusBarButton : NSView
@end
@interface NSStatusBarButton (Used)
@property(assign) id target;
@property SEL action;
@property(strong) NSImage *image;
@end

static const CGFloat NSSquareStatusItemLength = -2;

@interface NSStatusItem : NSObject
@end
@interface NSStatusItem (Used)
@property(readonly, strong) NSStatusBarButton *button;
@end

@interface NSStatusBar : NSObject
@end
@interface NSStatusBar (Used)
@property(class, readonly, strong) NSStatusBar *systemStatusBar;
- (NSStatusItem *)statusItemWithLength:(CGFloat)length;
- (void)removeStatusItem:(NSStatusItem *)item;
@end

// The part of Quartz that the port calls, by its documented names.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

typedef double CGFloat;
struct CGPoint {
    CGFloat x, y;
};
struct CGSize {
    CGFloat width, height;
};
struct CGRect {
    CGPoint origin;
    CGSize size;
};

typedef unsigned int boolean_t;
typedef uint32_t CGDirectDisplayID;
typedef uint32_t CGWindowID;

enum CGError : int32_t { kCGErrorSuccess = 0 };

typedef uint32_t CGDisplayChangeSummaryFlags;
enum : CGDisplayChangeSummaryFlags {
    kCGDisplayBeginConfigurationFlag = 1 << 0,
    kCGDisplayMovedFlag = 1 << 1,
};
typedef void (*CGDisplayReconfigurationCallBack)(CGDirectDisplayID display,
                                                 CGDisplayChangeSummaryFlags flags, void *userInfo);

typedef uint32_t CGWindowListOption;
enum : CGWindowListOption {
    kCGWindowListOptionOnScreenOnly = 1 << 0,
    kCGWindowListExcludeDesktopElements = 1 << 4,
};
#define kCGNullWindowID ((CGWindowID)0)

extern "C" {

bool CGRectMakeWithDictionaryRepresentation(CFDictionaryRef dictionary, CGRect *rect);

boolean_t CGDisplayIsOnline(CGDirectDisplayID display);
boolean_t CGDisplayIsBuiltin(CGDirectDisplayID display);
uint32_t CGDisplayVendorNumber(CGDirectDisplayID display);
uint32_t CGDisplayModelNumber(CGDirectDisplayID display);
uint32_t CGDisplaySerialNumber(CGDirectDisplayID display);
CGError CGDisplayRegisterReconfigurationCallback(CGDisplayReconfigurationCallBack callback,
                                                 void *userInfo);
CGError CGDisplayRemoveReconfigurationCallback(CGDisplayReconfigurationCallBack callback,
                                               void *userInfo);

extern const CFStringRef kCGWindowLayer;
extern const CFStringRef kCGWindowOwnerPID;
extern const CFStringRef kCGWindowBounds;
extern const CFStringRef kCGWindowAlpha;
CFArrayRef CGWindowListCopyWindowInfo(CGWindowListOption option, CGWindowID relativeToWindow);

} // extern "C"

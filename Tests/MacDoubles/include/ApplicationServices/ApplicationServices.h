// The part of the accessibility interface that the port calls, by its documented names.
#pragma once

#include <CoreGraphics/CoreGraphics.h>

#include <sys/types.h>

typedef const struct __AXUIElement *AXUIElementRef;
typedef const struct __AXValue *AXValueRef;

enum AXError : SInt32 {
    kAXErrorSuccess = 0,
    kAXErrorInvalidUIElement = -25202,
    kAXErrorCannotComplete = -25204,
    kAXErrorAPIDisabled = -25211,
    kAXErrorNoValue = -25212,
};

enum AXValueType : UInt32 {
    kAXValueTypeCGPoint = 1,
    kAXValueTypeCGSize = 2,
};

#define kAXWindowsAttribute CFSTR("AXWindows")
#define kAXPositionAttribute CFSTR("AXPosition")
#define kAXSizeAttribute CFSTR("AXSize")
#define kAXTitleAttribute CFSTR("AXTitle")
#define kAXMinimizedAttribute CFSTR("AXMinimized")
#define kAXHiddenAttribute CFSTR("AXHidden")
#define kAXRoleAttribute CFSTR("AXRole")
#define kAXMainAttribute CFSTR("AXMain")
#define kAXFrontmostAttribute CFSTR("AXFrontmost")
#define kAXFocusedApplicationAttribute CFSTR("AXFocusedApplication")
#define kAXFocusedWindowAttribute CFSTR("AXFocusedWindow")
#define kAXWindowRole CFSTR("AXWindow")
#define kAXRaiseAction CFSTR("AXRaise")

extern "C" {

extern const CFStringRef kAXTrustedCheckOptionPrompt;
Boolean AXIsProcessTrusted();
Boolean AXIsProcessTrustedWithOptions(CFDictionaryRef options);

CFTypeID AXUIElementGetTypeID();
AXUIElementRef AXUIElementCreateApplication(pid_t pid);
AXUIElementRef AXUIElementCreateSystemWide();
AXError AXUIElementSetMessagingTimeout(AXUIElementRef element, float timeoutInSeconds);
AXError AXUIElementGetPid(AXUIElementRef element, pid_t *pid);
AXError AXUIElementCopyAttributeValue(AXUIElementRef element, CFStringRef attribute,
                                      CFTypeRef *value);
AXError AXUIElementSetAttributeValue(AXUIElementRef element, CFStringRef attribute,
                                     CFTypeRef value);
AXError AXUIElementPerformAction(AXUIElementRef element, CFStringRef action);

CFTypeID AXValueGetTypeID();
AXValueRef AXValueCreate(AXValueType type, const void *valuePtr);
Boolean AXValueGetValue(AXValueRef value, AXValueType type, void *valuePtr);

} // extern "C"

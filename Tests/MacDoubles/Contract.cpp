// What the port and its doubles take for granted of Apple's interfaces. Where the real headers say
// otherwise, a build for the Mac stops at this file.

#include <ApplicationServices/ApplicationServices.h>
#include <Carbon/Carbon.h>
#include <ColorSync/ColorSync.h>
#include <CoreFoundation/CoreFoundation.h>
#include <dispatch/dispatch.h>

#include <type_traits>

namespace {

/// Does not compile for a function of another signature; one that promises not to throw is fine.
template <typename Signature> constexpr bool is(Signature *)
{
    return true;
}

// CoreFoundation
static_assert(is<CFTypeRef(CFTypeRef)>(CFRetain) && is<void(CFTypeRef)>(CFRelease)
              && is<CFTypeID(CFTypeRef)>(CFGetTypeID)
              && is<Boolean(CFTypeRef, CFTypeRef)>(CFEqual));
static_assert(is<CFTypeID()>(CFStringGetTypeID) && is<CFTypeID()>(CFArrayGetTypeID)
              && is<CFTypeID()>(CFDictionaryGetTypeID) && is<CFTypeID()>(CFNumberGetTypeID)
              && is<CFTypeID()>(CFBooleanGetTypeID) && is<CFTypeID()>(CFDataGetTypeID));
static_assert(
    is<CFStringRef(CFAllocatorRef, const UniChar *, CFIndex)>(CFStringCreateWithCharacters)
    && is<CFIndex(CFStringRef)>(CFStringGetLength)
    && is<void(CFStringRef, CFRange, UniChar *)>(CFStringGetCharacters)
    && std::is_same_v<UniChar, unsigned short>);
static_assert(is<CFIndex(CFArrayRef)>(CFArrayGetCount)
              && is<const void *(CFArrayRef, CFIndex)>(CFArrayGetValueAtIndex));
static_assert(is<CFDictionaryRef(CFAllocatorRef, const void **, const void **, CFIndex,
                                 const CFDictionaryKeyCallBacks *,
                                 const CFDictionaryValueCallBacks *)>(CFDictionaryCreate)
              && is<const void *(CFDictionaryRef, const void *)>(CFDictionaryGetValue));
static_assert(is<CFNumberRef(CFAllocatorRef, CFNumberType, const void *)>(CFNumberCreate)
              && is<Boolean(CFNumberRef, CFNumberType, void *)>(CFNumberGetValue)
              && is<Boolean(CFBooleanRef)>(CFBooleanGetValue) && kCFNumberSInt64Type == 4
              && kCFNumberDoubleType == 13);
static_assert(is<CFDataRef(CFAllocatorRef, const UInt8 *, CFIndex)>(CFDataCreate)
              && is<CFIndex(CFDataRef)>(CFDataGetLength)
              && is<const UInt8 *(CFDataRef)>(CFDataGetBytePtr));
static_assert(is<CFPropertyListRef(CFStringRef, CFStringRef)>(CFPreferencesCopyAppValue)
              && is<void(CFStringRef, CFPropertyListRef, CFStringRef)>(CFPreferencesSetAppValue)
              && is<Boolean(CFStringRef)>(CFPreferencesAppSynchronize));

// Accessibility
static_assert(is<Boolean()>(AXIsProcessTrusted)
              && is<Boolean(CFDictionaryRef)>(AXIsProcessTrustedWithOptions)
              && std::is_convertible_v<decltype(kAXTrustedCheckOptionPrompt), const void *>);
static_assert(is<AXUIElementRef(pid_t)>(AXUIElementCreateApplication)
              && is<AXUIElementRef()>(AXUIElementCreateSystemWide)
              && is<AXError(AXUIElementRef, pid_t *)>(AXUIElementGetPid)
              && is<AXError(AXUIElementRef, float)>(AXUIElementSetMessagingTimeout)
              && is<CFTypeID()>(AXUIElementGetTypeID) && is<CFTypeID()>(AXValueGetTypeID));
static_assert(is<AXError(AXUIElementRef, CFStringRef, CFTypeRef *)>(AXUIElementCopyAttributeValue)
              && is<AXError(AXUIElementRef, CFStringRef, CFTypeRef)>(AXUIElementSetAttributeValue)
              && is<AXError(AXUIElementRef, CFStringRef)>(AXUIElementPerformAction));
static_assert(is<AXValueRef(AXValueType, const void *)>(AXValueCreate)
              && is<Boolean(AXValueRef, AXValueType, void *)>(AXValueGetValue)
              && kAXValueTypeCGPoint == 1 && kAXValueTypeCGSize == 2 && kAXValueTypeCGRect == 3);
static_assert(kAXErrorSuccess == 0 && kAXErrorInvalidUIElement == -25202
              && kAXErrorCannotComplete == -25204 && kAXErrorAttributeUnsupported == -25205
              && kAXErrorAPIDisabled == -25211 && kAXErrorNoValue == -25212);

// Quartz and ColorSync
static_assert(sizeof(CGPoint) == 16 && sizeof(CGSize) == 16 && sizeof(CGRect) == 32
              && std::is_same_v<CGFloat, double>);
static_assert(is<CFArrayRef(CGWindowListOption, CGWindowID)>(CGWindowListCopyWindowInfo)
              && (kCGWindowListOptionOnScreenOnly | kCGWindowListExcludeDesktopElements) == 17
              && kCGNullWindowID == 0);
static_assert(is<bool(CFDictionaryRef, CGRect *)>(CGRectMakeWithDictionaryRepresentation));
static_assert(is<boolean_t(CGDirectDisplayID)>(CGDisplayIsOnline)
              && is<boolean_t(CGDirectDisplayID)>(CGDisplayIsBuiltin)
              && is<uint32_t(CGDirectDisplayID)>(CGDisplayVendorNumber)
              && is<uint32_t(CGDirectDisplayID)>(CGDisplayModelNumber)
              && is<uint32_t(CGDirectDisplayID)>(CGDisplaySerialNumber));
static_assert(is<CFUUIDRef(uint32_t)>(CGDisplayCreateUUIDFromDisplayID)
              && is<CFStringRef(CFAllocatorRef, CFUUIDRef)>(CFUUIDCreateString));
static_assert(is<void(CGDirectDisplayID, CGDisplayChangeSummaryFlags, void *)>(
                  CGDisplayReconfigurationCallBack(nullptr))
              && is<CGError(CGDisplayReconfigurationCallBack, void *)>(
                  CGDisplayRegisterReconfigurationCallback)
              && is<CGError(CGDisplayReconfigurationCallBack, void *)>(
                  CGDisplayRemoveReconfigurationCallback));

// Hot keys
static_assert(is<OSStatus(EventHandlerCallRef, EventRef, void *)>(EventHandlerUPP(nullptr))
              && is<EventTargetRef()>(GetEventDispatcherTarget)
              && is<OSStatus(EventTargetRef, EventHandlerUPP, ItemCount, const EventTypeSpec *,
                             void *, EventHandlerRef *)>(InstallEventHandler)
              && is<OSStatus(EventHandlerRef)>(RemoveEventHandler));
static_assert(is<OSStatus(UInt32, UInt32, EventHotKeyID, EventTargetRef, OptionBits,
                          EventHotKeyRef *)>(RegisterEventHotKey)
              && is<OSStatus(EventHotKeyRef)>(UnregisterEventHotKey)
              && is<OSStatus(EventRef, EventParamName, EventParamType, EventParamType *, ByteCount,
                             ByteCount *, void *)>(GetEventParameter));
static_assert(
    std::is_same_v<EventHandlerRef,
                   OpaqueEventHandlerRef *> && std::is_same_v<EventRef, OpaqueEventRef *>);
static_assert(noErr == 0 && eventHotKeyExistsErr == -9878 && kEventClassKeyboard == 0x6b657962
              && kEventHotKeyPressed == 5 && kEventParamDirectObject == 0x2d2d2d2d
              && typeEventHotKeyID == 0x686b6964 && sizeof(EventHotKeyID) == 8);
static_assert(cmdKey == 0x100 && shiftKey == 0x200 && optionKey == 0x800 && controlKey == 0x1000);

// Dispatch
static_assert(
    is<dispatch_time_t(const struct timespec *, int64_t)>(dispatch_walltime)
    && is<void(dispatch_source_t)>(dispatch_source_cancel)
    && is<void(dispatch_source_t, dispatch_function_t)>(dispatch_source_set_event_handler_f)
    && is<void(dispatch_source_t, dispatch_function_t)>(dispatch_source_set_cancel_handler_f)
    && is<void(dispatch_source_t, dispatch_time_t, uint64_t, uint64_t)>(dispatch_source_set_timer)
    && std::is_convertible_v<
        decltype(dispatch_get_main_queue()),
        dispatch_queue_t> && std::is_convertible_v<dispatch_source_t, dispatch_object_t> && DISPATCH_TIME_FOREVER == ~0ull);

} // namespace

// The part of Carbon's event manager that the port calls, by its documented names.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

typedef struct OpaqueEventRef *EventRef;
typedef struct OpaqueEventTargetRef *EventTargetRef;
typedef struct OpaqueEventHandlerRef *EventHandlerRef;
typedef struct OpaqueEventHandlerCallRef *EventHandlerCallRef;
typedef struct OpaqueEventHotKeyRef *EventHotKeyRef;

struct EventHotKeyID {
    OSType signature;
    UInt32 id;
};
struct EventTypeSpec {
    OSType eventClass;
    UInt32 eventKind;
};

typedef OSStatus (*EventHandlerUPP)(EventHandlerCallRef next, EventRef event, void *userData);

enum {
    noErr = 0,
    paramErr = -50,
    eventHotKeyExistsErr = -9878,
};
enum { kEventClassKeyboard = 'keyb' };
enum { kEventHotKeyPressed = 5 };
enum { kEventParamDirectObject = '----' };
enum { typeEventHotKeyID = 'hkid' };
enum { cmdKey = 1 << 8, shiftKey = 1 << 9, optionKey = 1 << 11, controlKey = 1 << 12 };

extern "C" {

EventTargetRef GetEventDispatcherTarget();
OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler,
                             unsigned long typeCount, const EventTypeSpec *types, void *userData,
                             EventHandlerRef *installed);
OSStatus RemoveEventHandler(EventHandlerRef handler);
OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id,
                             EventTargetRef target, UInt32 options, EventHotKeyRef *registered);
OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey);
OSStatus GetEventParameter(EventRef event, OSType name, OSType type, OSType *actualType,
                           unsigned long size, unsigned long *actualSize, void *data);

} // extern "C"

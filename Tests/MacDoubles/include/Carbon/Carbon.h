// The part of Carbon's event manager that the port calls, by its documented names.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

typedef struct OpaqueEventRef *EventRef;
typedef struct OpaqueEventTargetRef *EventTargetRef;
typedef struct OpaqueEventHandlerRef *EventHandlerRef;
typedef struct OpaqueEventHandlerCallRef *EventHandlerCallRef;
typedef struct OpaqueEventHotKeyRef *EventHotKeyRef;
typedef OSType EventParamName;
typedef OSType EventParamType;
typedef UInt32 OptionBits;
typedef unsigned long ItemCount;
typedef unsigned long ByteCount;

struct EventHotKeyID {
    OSType signature;
    UInt32 id;
};
struct EventTypeSpec {
    OSType eventClass;
    UInt32 eventKind;
};

typedef OSStatus (*EventHandlerProcPtr)(EventHandlerCallRef next, EventRef event, void *userData);
typedef EventHandlerProcPtr EventHandlerUPP;

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
OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, ItemCount typeCount,
                             const EventTypeSpec *types, void *userData,
                             EventHandlerRef *installed);
OSStatus RemoveEventHandler(EventHandlerRef handler);
OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id,
                             EventTargetRef target, OptionBits options, EventHotKeyRef *registered);
OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey);
OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type,
                           EventParamType *actualType, ByteCount size, ByteCount *actualSize,
                           void *data);

} // extern "C"

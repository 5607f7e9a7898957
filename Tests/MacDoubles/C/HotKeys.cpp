#include "MacDoubles/Desktop/MacDesktop.h"

#include <Carbon/Carbon.h>

#include <algorithm>
#include <cstring>

using namespace Panorel;
using namespace Panorel::MacDoubles;

struct OpaqueEventRef {
    EventHotKeyID id;
};
struct OpaqueEventHandlerRef {
    EventHandlerUPP function = nullptr; ///< null where none is installed
    void *userData = nullptr;
};
struct OpaqueEventHotKeyRef {
    EventHotKeyID id;
    HotKeyCombo combo;
    std::unique_ptr<HotKeyRegistration> held;
};

namespace {

OpaqueEventHandlerRef handler;
std::vector<std::unique_ptr<OpaqueEventHotKeyRef>> hotKeys;

void deliver(HotKeyNumber number)
{
    const auto pressed =
        std::ranges::find_if(hotKeys, [=](const auto &key) { return key->id.id == number; });
    OpaqueEventRef event{pressed == hotKeys.end() ? EventHotKeyID{} : (*pressed)->id};
    if (!handler.function || handler.function(nullptr, &event, handler.userData) != noErr)
        desktop().faults << QStringLiteral("the press of a hot key went on to other programs");
}

} // namespace

extern "C" {

EventTargetRef GetEventDispatcherTarget()
{
    return nullptr;
}

OSStatus InstallEventHandler(EventTargetRef, EventHandlerUPP function, unsigned long,
                             const EventTypeSpec *, void *userData, EventHandlerRef *installed)
{
    handler = {function, userData};
    *installed = &handler;
    desktop().platform.keys.setPressedCallback(deliver);
    return noErr;
}

OSStatus RemoveEventHandler(EventHandlerRef)
{
    handler = {};
    return noErr;
}

OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id, EventTargetRef,
                             UInt32, EventHotKeyRef *registered)
{
    const HotKeyCombo combo{keyCode, modifiers};
    // A program has a combination once.
    const bool isHeld =
        std::ranges::any_of(hotKeys, [&](const auto &key) { return key->combo == combo; });
    auto held = isHeld ? nullptr : desktop().platform.keys.registerHotKey(combo, id.id);
    if (!held)
        return eventHotKeyExistsErr;
    hotKeys.push_back(std::make_unique<OpaqueEventHotKeyRef>(id, combo, std::move(held)));
    *registered = hotKeys.back().get();
    return noErr;
}

OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey)
{
    std::erase_if(hotKeys, [=](const auto &key) { return key.get() == hotKey; });
    return noErr;
}

OSStatus GetEventParameter(EventRef event, OSType, OSType, OSType *, unsigned long, unsigned long *,
                           void *data)
{
    if (event->id.signature == 0)
        return paramErr;
    std::memcpy(data, &event->id, sizeof event->id);
    return noErr;
}

} // extern "C"

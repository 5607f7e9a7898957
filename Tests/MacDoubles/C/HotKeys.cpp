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
    EventHandlerUPP handler;
    void *userData;
};
struct OpaqueEventHotKeyRef {
    EventHotKeyID id;
    HotKeyCombo combo;
    std::unique_ptr<HotKeyRegistration> held;
};
struct OpaqueEventTargetRef {};

namespace {

OpaqueEventTargetRef dispatcher;
std::unique_ptr<OpaqueEventHandlerRef> handler;
std::vector<std::unique_ptr<OpaqueEventHotKeyRef>> hotKeys;

void deliver(HotKeyNumber number)
{
    const auto pressed =
        std::ranges::find_if(hotKeys, [=](const auto &key) { return key->id.id == number; });
    OpaqueEventRef event{pressed == hotKeys.end() ? EventHotKeyID{} : (*pressed)->id};
    if (!handler || handler->handler(nullptr, &event, handler->userData) != noErr)
        addFault(QStringLiteral("the press of a hot key went on to other programs"));
}

} // namespace

QStringList Panorel::MacDoubles::takeHeldHotKeys()
{
    QStringList left;
    for (const auto &key : std::exchange(hotKeys, {}))
        left << QStringLiteral("hot key ") + key->combo.displayString();
    if (std::exchange(handler, nullptr))
        left << QStringLiteral("event handler");
    return left;
}

extern "C" {

EventTargetRef GetEventDispatcherTarget()
{
    return &dispatcher;
}

OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP function, ItemCount typeCount,
                             const EventTypeSpec *types, void *userData, EventHandlerRef *installed)
{
    expectMainThread(__func__);
    if (target != &dispatcher || typeCount != 1 || types->eventClass != kEventClassKeyboard
        || types->eventKind != kEventHotKeyPressed)
        return paramErr;
    if (handler)
        addFault(QStringLiteral("a second event handler was installed"));
    handler = std::make_unique<OpaqueEventHandlerRef>(function, userData);
    *installed = handler.get();
    desktop().platform.keys.setPressedCallback(deliver);
    return noErr;
}

OSStatus RemoveEventHandler(EventHandlerRef installed)
{
    if (handler.get() != installed)
        return paramErr;
    handler.reset();
    return noErr;
}

OSStatus RegisterEventHotKey(UInt32 keyCode, UInt32 modifiers, EventHotKeyID id,
                             EventTargetRef target, OptionBits options, EventHotKeyRef *registered)
{
    expectMainThread(__func__);
    if (target != &dispatcher || options != 0 || id.signature != 0x504E524C)
        return paramErr;
    const HotKeyCombo combo{keyCode, modifiers};
    // A program has a combination once.
    for (const auto &key : hotKeys) {
        if (key->combo == combo)
            return eventHotKeyExistsErr;
    }
    auto held = desktop().platform.keys.registerHotKey(combo, id.id);
    if (!held)
        return eventHotKeyExistsErr;
    hotKeys.push_back(std::make_unique<OpaqueEventHotKeyRef>(id, combo, std::move(held)));
    *registered = hotKeys.back().get();
    return noErr;
}

OSStatus UnregisterEventHotKey(EventHotKeyRef hotKey)
{
    expectMainThread(__func__);
    if (std::erase_if(hotKeys, [=](const auto &key) { return key.get() == hotKey; }) == 1)
        return noErr;
    addFault(QStringLiteral("a hot key was given back that was not held"));
    return paramErr;
}

OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type,
                           EventParamType *, ByteCount size, ByteCount *, void *data)
{
    if (name != kEventParamDirectObject || type != typeEventHotKeyID || size != sizeof event->id
        || event->id.signature == 0)
        return paramErr;
    std::memcpy(data, &event->id, sizeof event->id);
    return noErr;
}

} // extern "C"

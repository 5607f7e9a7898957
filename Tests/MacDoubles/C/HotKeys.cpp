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
std::vector<std::unique_ptr<OpaqueEventHandlerRef>> handlers;
std::vector<std::unique_ptr<OpaqueEventHotKeyRef>> hotKeys;

/// The newest handler comes first; one that takes the event ends its way.
void deliver(HotKeyNumber number)
{
    const auto pressed =
        std::ranges::find_if(hotKeys, [=](const auto &key) { return key->id.id == number; });
    OpaqueEventRef event{pressed == hotKeys.end() ? EventHotKeyID{} : (*pressed)->id};
    bool isTaken = false;
    for (auto handler = handlers.rbegin(); handler != handlers.rend() && !isTaken; ++handler)
        isTaken = (*handler)->handler(nullptr, &event, (*handler)->userData) == noErr;
    if (!isTaken)
        addFault(QStringLiteral("the press of a hot key went on to other programs"));
}

template <typename Owned> bool removeFrom(std::vector<std::unique_ptr<Owned>> &all, Owned *one)
{
    return std::erase_if(all, [=](const auto &owned) { return owned.get() == one; }) == 1;
}

} // namespace

QStringList Panorel::MacDoubles::takeHeldHotKeys()
{
    QStringList left;
    for (const auto &key : std::exchange(hotKeys, {}))
        left << QStringLiteral("hot key ") + key->combo.displayString();
    for (std::size_t i = std::exchange(handlers, {}).size(); i > 0; --i)
        left << QStringLiteral("event handler");
    return left;
}

extern "C" {

EventTargetRef GetEventDispatcherTarget()
{
    return &dispatcher;
}

OSStatus InstallEventHandler(EventTargetRef target, EventHandlerUPP handler, ItemCount typeCount,
                             const EventTypeSpec *types, void *userData, EventHandlerRef *installed)
{
    expectMainThread(__func__);
    if (target != &dispatcher || typeCount != 1 || types->eventClass != kEventClassKeyboard
        || types->eventKind != kEventHotKeyPressed)
        return paramErr;
    handlers.push_back(std::make_unique<OpaqueEventHandlerRef>(handler, userData));
    *installed = handlers.back().get();
    if (handlers.size() > 1)
        addFault(QStringLiteral("a second event handler was installed"));
    desktop().platform.keys.setPressedCallback(deliver);
    return noErr;
}

OSStatus RemoveEventHandler(EventHandlerRef handler)
{
    return removeFrom(handlers, handler) ? OSStatus(noErr) : OSStatus(paramErr);
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
    if (removeFrom(hotKeys, hotKey))
        return noErr;
    addFault(QStringLiteral("a hot key was given back that was not held"));
    return eventHotKeyInvalidErr;
}

OSStatus GetEventParameter(EventRef event, EventParamName name, EventParamType type,
                           EventParamType *, ByteCount size, ByteCount *, void *data)
{
    if (name != kEventParamDirectObject || type != typeEventHotKeyID || size != sizeof event->id
        || event->id.signature == 0)
        return eventParameterNotFoundErr;
    std::memcpy(data, &event->id, sizeof event->id);
    return noErr;
}

} // extern "C"

#include "PanorelMac/HotKeys/MacHotKeys.h"

#include <Carbon/Carbon.h>

#include <algorithm>

namespace Panorel::Mac {

namespace {

constexpr OSType signature = 0x504E524C; // "PNRL"
constexpr quint32 lastKeyCode = 0x7f;    // virtual key codes are of seven bits

// Combinations are stored with the system's own flags.
static_assert(HotKeyCombo::command == cmdKey && HotKeyCombo::shift == shiftKey
              && HotKeyCombo::option == optionKey && HotKeyCombo::control == controlKey);

} // namespace

/// The system's hot key for one combination, held while it lives.
class MacHotKeys::HotKey {
public:
    HotKey(const HotKeyCombo &taken, HotKeyNumber number, EventHotKeyRef hotKey)
        : combo(taken), systemNumber(number), numbers{number}, m_hotKey(hotKey)
    {}
    ~HotKey() { UnregisterEventHotKey(m_hotKey); }
    HotKey(const HotKey &) = delete;
    HotKey &operator=(const HotKey &) = delete;

    const HotKeyCombo combo;
    const HotKeyNumber systemNumber;   ///< what its events carry: the first registration's
    std::vector<HotKeyNumber> numbers; ///< of its registrations, the earliest first

private:
    const EventHotKeyRef m_hotKey;
};

class MacHotKeys::Registration final : public HotKeyRegistration {
public:
    Registration(MacHotKeys &keys, HotKeyNumber number) : m_keys(keys), m_number(number) {}
    ~Registration() override { m_keys.release(m_number); }
    Registration(const Registration &) = delete;
    Registration &operator=(const Registration &) = delete;

private:
    MacHotKeys &m_keys;
    const HotKeyNumber m_number;
};

MacHotKeys::MacHotKeys() = default;

MacHotKeys::~MacHotKeys()
{
    if (m_handler)
        RemoveEventHandler(m_handler);
}

void MacHotKeys::setPressedCallback(std::function<void(HotKeyNumber)> pressed)
{
    m_pressed = std::move(pressed);
}

std::unique_ptr<HotKeyRegistration> MacHotKeys::registerHotKey(const HotKeyCombo &combo,
                                                               HotKeyNumber number)
{
    if (combo.keyCode > lastKeyCode || !installHandler())
        return nullptr;
    const auto same = std::ranges::find(m_hotKeys, combo, &HotKey::combo);
    if (same != m_hotKeys.end()) {
        (*same)->numbers.push_back(number);
    } else {
        auto taken = take(combo, number);
        if (!taken)
            return nullptr;
        m_hotKeys.push_back(std::move(taken));
    }
    return std::make_unique<Registration>(*this, number);
}

bool MacHotKeys::installHandler()
{
    const EventTypeSpec pressed{kEventClassKeyboard, kEventHotKeyPressed};
    if (!m_handler) {
        const EventHandlerUPP handler = [](EventHandlerCallRef, EventRef event, void *self) {
            static_cast<MacHotKeys *>(self)->onEvent(event);
            return OSStatus(noErr); // so the press goes no further
        };
        InstallEventHandler(GetEventDispatcherTarget(), handler, 1, &pressed, this, &m_handler);
    }
    return m_handler;
}

std::unique_ptr<MacHotKeys::HotKey> MacHotKeys::take(const HotKeyCombo &combo, HotKeyNumber number)
{
    EventHotKeyRef taken = nullptr;
    const OSStatus status =
        RegisterEventHotKey(combo.keyCode, combo.modifiers, EventHotKeyID{signature, number},
                            GetEventDispatcherTarget(), 0, &taken);
    if (status != noErr || !taken)
        return nullptr;
    return std::make_unique<HotKey>(combo, number, taken);
}

std::optional<quint32> MacHotKeys::keyCodeOf(quint32, quint32 nativeVirtualKey) const
{
    return nativeVirtualKey <= lastKeyCode ? std::optional(nativeVirtualKey) : std::nullopt;
}

void MacHotKeys::onEvent(OpaqueEventRef *event)
{
    EventHotKeyID id{};
    GetEventParameter(event, kEventParamDirectObject, typeEventHotKeyID, nullptr, sizeof id,
                      nullptr, &id);
    // Not from within the event: what follows may replace this very hot key.
    QMetaObject::invokeMethod(
        &m_context, [this, number = id.id] { tell(number); }, Qt::QueuedConnection);
}

void MacHotKeys::tell(HotKeyNumber systemNumber)
{
    const auto pressed = m_pressed; // it may be replaced while it runs
    const auto hotKey = std::ranges::find(m_hotKeys, systemNumber, &HotKey::systemNumber);
    if (hotKey != m_hotKeys.end() && pressed)
        pressed((*hotKey)->numbers.front());
}

void MacHotKeys::release(HotKeyNumber number)
{
    for (const auto &hotKey : m_hotKeys)
        std::erase(hotKey->numbers, number);
    std::erase_if(m_hotKeys, [](const auto &hotKey) { return hotKey->numbers.empty(); });
}

} // namespace Panorel::Mac

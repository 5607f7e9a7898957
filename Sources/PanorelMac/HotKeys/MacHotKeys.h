#pragma once

#include "PanorelPorts/HotKeyPort.h"

#include <QObject>

#include <vector>

struct OpaqueEventHandlerRef;
struct OpaqueEventRef;

namespace Panorel::Mac {

/// Hot keys of the event manager. It knows a combination once in a program, so registrations of
/// the same one share the system's hot key, and the earliest of them is told.
class MacHotKeys final : public HotKeyPort {
public:
    MacHotKeys();
    ~MacHotKeys() override;
    MacHotKeys(const MacHotKeys &) = delete;
    MacHotKeys &operator=(const MacHotKeys &) = delete;

    void setPressedCallback(std::function<void(HotKeyNumber)> pressed) override;
    std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyCombo &combo,
                                                       HotKeyNumber number) override;
    /// The virtual key is the key code here.
    std::optional<quint32> keyCodeOf(quint32 nativeScanCode,
                                     quint32 nativeVirtualKey) const override;
    bool isCommandReportedAsControl() const override { return true; }
    QString text(const HotKeyCombo &combo) const override { return combo.displayString(); }

private:
    class HotKey;
    class Registration;

    bool installHandler();
    void onEvent(OpaqueEventRef *event);
    std::unique_ptr<HotKey> take(const HotKeyCombo &combo, HotKeyNumber number);
    void tell(HotKeyNumber systemNumber);
    void release(HotKeyNumber number);

    std::function<void(HotKeyNumber)> m_pressed;
    OpaqueEventHandlerRef *m_handler = nullptr; ///< null until the first registration
    std::vector<std::unique_ptr<HotKey>> m_hotKeys;
    QObject m_context; ///< presses under way end with it
};

} // namespace Panorel::Mac

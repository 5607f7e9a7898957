#pragma once

#include "PanorelPorts/HotKeyPort.h"
#include "PanorelX11/Connection/EventConnection.h"
#include "PanorelX11/HotKeys/HotKeyTable.h"
#include "PanorelX11/HotKeys/KeyboardReader.h"

#include <QTimer>

namespace Panorel::X11 {

/// Key combinations grabbed on the root window. A combination names positions on the keyboard, so
/// a change of layout leaves it on the same keys.
class X11HotKeys final : public HotKeyPort {
public:
    /// `events` outlives this.
    explicit X11HotKeys(EventConnection &events);
    ~X11HotKeys() override;

    void setPressedCallback(std::function<void(HotKeyNumber)> pressed) override;
    std::unique_ptr<HotKeyRegistration> registerHotKey(const HotKeyCombo &combo,
                                                       HotKeyNumber number) override;
    std::optional<quint32> keyCodeOf(quint32 nativeScanCode,
                                     quint32 nativeVirtualKey) const override;
    bool isCommandReportedAsControl() const override { return false; }
    QString text(const HotKeyCombo &combo) const override { return combo.pcString(); }

private:
    class Registration;
    using Listener = std::function<void(const xcb_generic_event_t &)>;

    void onEvent(const xcb_generic_event_t &event);
    void onKeyPress(const xcb_key_press_event_t &event);
    bool grab(const KeyGrab &grab) const;
    void ungrab(xcb_keycode_t key, const std::vector<std::uint16_t> &variants) const;

    const XConnection &m_connection;
    KeyboardReader m_reader;
    HotKeyTable m_table;
    std::function<void(HotKeyNumber)> m_pressed;
    xcb_keycode_t m_heldKey = 0; ///< the last one pressed and not released; only it can repeat
    QTimer m_readAgain;          ///< once for the many events of one change
    std::shared_ptr<Listener> m_listener; ///< shared with the connection, which lives longer
};

} // namespace Panorel::X11

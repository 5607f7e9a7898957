#pragma once

#include "PanorelX11/Connection/XConnection.h"
#include "PanorelX11/HotKeys/Keyboard.h"

namespace Panorel::X11 {

/// The server's keyboard through the XKB extension. Without the extension there is no keyboard to
/// be read.
class KeyboardReader {
public:
    /// From now on the connection gets the events that changed() tells, and a key that is held
    /// repeats its presses without releases in between.
    explicit KeyboardReader(const XConnection &connection);

    /// Empty where the server doesn't answer.
    Keyboard read() const;

    /// Whether the keyboard may have to be read again after this event.
    bool changed(const xcb_generic_event_t &event) const;

private:
    void selectEvents() const;
    void readKeys(Keyboard &keyboard) const;
    void readModifiers(Keyboard &keyboard) const;

    const XConnection &m_connection;
    std::optional<std::uint8_t> m_firstEvent; ///< of XKB; absent: no such extension
};

} // namespace Panorel::X11

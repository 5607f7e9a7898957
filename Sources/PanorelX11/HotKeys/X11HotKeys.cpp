#include "PanorelX11/HotKeys/X11HotKeys.h"

#include <QObject>

namespace Panorel::X11 {

class X11HotKeys::Registration final : public HotKeyRegistration {
public:
    Registration(X11HotKeys &keys, HotKeyNumber number) : m_keys(keys), m_number(number) {}
    ~Registration() override { m_keys.m_table.remove(m_number); }
    Registration(const Registration &) = delete;
    Registration &operator=(const Registration &) = delete;

private:
    X11HotKeys &m_keys;
    HotKeyNumber m_number;
};

X11HotKeys::X11HotKeys(EventConnection &events)
    : m_connection(events.connection()), m_reader(m_connection),
      m_table([this](const KeyGrab &wanted) { return grab(wanted); },
              [this](const KeyGrab &held) { ungrab(held.key, held.variants()); }),
      m_listener(std::make_shared<Listener>([this](const auto &event) { onEvent(event); }))
{
    m_table.setKeyboard(m_reader.read());
    m_readAgain.setSingleShot(true);
    m_readAgain.setInterval(0);
    QObject::connect(&m_readAgain, &QTimer::timeout, &m_readAgain,
                     [this] { m_table.setKeyboard(m_reader.read()); });
    events.addListener([listener = m_listener](const auto &event) {
        if (*listener)
            (*listener)(event);
    });
}

X11HotKeys::~X11HotKeys()
{
    *m_listener = nullptr;
}

void X11HotKeys::setPressedCallback(std::function<void(HotKeyNumber)> pressed)
{
    m_pressed = std::move(pressed);
}

std::unique_ptr<HotKeyRegistration> X11HotKeys::registerHotKey(const HotKeyCombo &combo,
                                                               HotKeyNumber number)
{
    if (!m_table.add(number, combo))
        return nullptr;
    return std::make_unique<Registration>(*this, number);
}

std::optional<quint32> X11HotKeys::keyCodeOf(quint32 nativeScanCode, quint32) const
{
    return m_table.keyboard().keyCodeOf(nativeScanCode); // X's own keycode
}

void X11HotKeys::onEvent(const xcb_generic_event_t &event)
{
    // Compared whole: an event that some program made up carries the sent bit.
    if (event.response_type == XCB_KEY_PRESS) {
        onKeyPress(reinterpret_cast<const xcb_key_press_event_t &>(event));
    } else if (event.response_type == XCB_KEY_RELEASE) {
        if (reinterpret_cast<const xcb_key_release_event_t &>(event).detail == m_heldKey)
            m_heldKey = 0;
    } else if (m_reader.changed(event)) {
        m_readAgain.start();
    }
}

void X11HotKeys::onKeyPress(const xcb_key_press_event_t &event)
{
    if (std::exchange(m_heldKey, event.detail) == event.detail)
        return;
    const std::optional<HotKeyNumber> number = m_table.pressed(event.detail, event.state);
    const auto pressed = m_pressed; // it may be replaced while it runs
    if (number && pressed)
        pressed(*number);
}

bool X11HotKeys::grab(const KeyGrab &grab) const
{
    xcb_connection_t *server = m_connection.get();
    const std::vector<std::uint16_t> variants = grab.variants();
    std::vector<xcb_void_cookie_t> cookies;
    for (const std::uint16_t modifiers : variants)
        cookies.push_back(xcb_grab_key_checked(server, 0, m_connection.root(), modifiers, grab.key,
                                               XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
    std::vector<std::uint16_t> granted;
    for (std::size_t i = 0; i < variants.size(); ++i) {
        const XOwned<xcb_generic_error_t> error(xcb_request_check(server, cookies[i]));
        if (!error)
            granted.push_back(variants[i]);
    }
    if (granted.size() == variants.size() && m_connection.alive())
        return true;
    ungrab(grab.key, granted);
    return false;
}

void X11HotKeys::ungrab(xcb_keycode_t key, const std::vector<std::uint16_t> &variants) const
{
    for (const std::uint16_t modifiers : variants)
        xcb_ungrab_key(m_connection.get(), key, m_connection.root(), modifiers);
    m_connection.flush();
}

} // namespace Panorel::X11

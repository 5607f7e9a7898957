#pragma once

#include "PanorelPorts/AccessibilityPort.h"

#include <xcb/xproto.h>

namespace Panorel::X11 {

/// A managed window, by its client's id.
class X11Window final : public WindowElement {
public:
    explicit X11Window(xcb_window_t id) : m_id(id) {}

    xcb_window_t id() const { return m_id; }

private:
    xcb_window_t m_id;
};

} // namespace Panorel::X11

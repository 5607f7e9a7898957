#include "PanorelEngine/Windows/AXWindow.h"

namespace Panorel {

std::vector<AXWindow> AXWindow::windows(AccessibilityPort &port, ProcessIdentifier pid)
{
    std::vector<AXWindow> readable;
    for (const WindowAttributes &attributes : port.windows(pid)) {
        if (attributes.position && attributes.size)
            readable.push_back(
                AXWindow(port, pid, attributes, Rect::of(*attributes.position, *attributes.size)));
    }
    return readable;
}

AXWindow::AXWindow(AccessibilityPort &port, ProcessIdentifier pid,
                   const WindowAttributes &attributes, const Rect &frame)
    : m_port(&port), m_element(attributes.element), m_pid(pid),
      m_title(attributes.title.value_or(QString())), m_frame(frame),
      m_isMinimized(attributes.isMinimized.value_or(false)),
      m_isFullScreen(attributes.isFullScreen.value_or(false))
{}

std::optional<Rect> AXWindow::currentFrame() const
{
    const FrameReading reading = m_port->readFrame(m_element);
    if (!reading.position || !reading.size)
        return {};
    return Rect::of(*reading.position, *reading.size);
}

void AXWindow::apply(std::optional<Point> position, std::optional<Size> size) const
{
    m_port->apply(m_element, position, size);
}

} // namespace Panorel

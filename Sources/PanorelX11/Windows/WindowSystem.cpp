#include "PanorelX11/Windows/WindowSystem.h"

namespace Panorel::X11 {

WindowSystem::WindowSystem()
    : m_notifier(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read)
{
    m_timer.setSingleShot(true);
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                     [this] { processEvents(); });
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { processEvents(); });
    m_placer.setNextLookCallback([this] { armTimer(); });
}

void WindowSystem::processEvents()
{
    m_placer.processEvents();
    m_connection.flush();
    // The socket of a server that has gone would be readable for ever.
    if (!m_connection.alive())
        m_notifier.setEnabled(false);
    armTimer();
}

void WindowSystem::armTimer()
{
    const auto next = m_placer.nextLook();
    if (!next)
        return m_timer.stop();
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(*next - std::chrono::steady_clock::now());
    m_timer.start(std::max(left, std::chrono::milliseconds(0)));
}

} // namespace Panorel::X11

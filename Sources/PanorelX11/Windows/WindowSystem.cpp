#include "PanorelX11/Windows/WindowSystem.h"

#include <QAbstractEventDispatcher>

namespace Panorel::X11 {

WindowSystem::WindowSystem()
    : m_notifier(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read)
{
    m_timer.setSingleShot(true);
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                     [this] { processEvents(); });
    QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { processEvents(); });
    // The ports are called between two rounds of the loop. The first signal is for a round that
    // may wait, the second for one that does not.
    if (const auto *dispatcher = QAbstractEventDispatcher::instance()) {
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &m_timer,
                         [this] { prepareToWait(); });
        QObject::connect(dispatcher, &QAbstractEventDispatcher::awake, &m_timer,
                         [this] { prepareToWait(); });
    }
}

void WindowSystem::processEvents()
{
    m_placer.processEvents();
    m_hidden.processEvents();
    m_launches.announce();
    m_connection.flush();
    // The socket of a server that has gone would be readable for ever.
    if (!m_connection.alive())
        m_notifier.setEnabled(false);
    prepareToWait();
}

/// What a port began or noticed in passing is gone on with from the timer.
void WindowSystem::prepareToWait()
{
    m_registry.endPass();
    m_fence.send();
    m_connection.flush();
    m_pump.drainQueued();
    auto next = m_placer.nextLook();
    if (const auto look = m_hidden.nextLook())
        next = next ? std::min(*next, *look) : *look;
    if (m_launches.isDue())
        next = EventPump::TimePoint{};
    if (next == m_armedFor && m_timer.isActive() == next.has_value())
        return;
    m_armedFor = next;
    if (!next)
        return m_timer.stop();
    const auto left =
        std::chrono::ceil<std::chrono::milliseconds>(*next - std::chrono::steady_clock::now());
    m_timer.start(std::max(left, std::chrono::milliseconds(0)));
}

} // namespace Panorel::X11

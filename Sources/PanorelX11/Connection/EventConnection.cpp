#include "PanorelX11/Connection/EventConnection.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QObject>

namespace Panorel::X11 {

EventConnection::EventConnection()
    : m_notifier(xcb_get_file_descriptor(m_connection.get()), QSocketNotifier::Read)
{
    QObject::connect(&m_notifier, &QSocketNotifier::activated, &m_notifier,
                     [this] { readEvents(); });
    // Waiting for a reply also takes in the events before it, after which the socket stays silent.
    if (const auto *dispatcher = QAbstractEventDispatcher::instance())
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, &m_notifier,
                         [this] { readEvents(); });
}

void EventConnection::addListener(std::function<void(const xcb_generic_event_t &)> listener)
{
    m_listeners.push_back(std::move(listener));
}

void EventConnection::setLostCallback(std::function<void(const QString &)> lost)
{
    m_lost = std::move(lost);
}

void EventConnection::readEvents()
{
    while (const XOwned<xcb_generic_event_t> event{xcb_poll_for_event(m_connection.get())}) {
        for (const auto &listener : m_listeners)
            listener(*event);
    }
    if (!m_connection.alive())
        announceLost();
}

void EventConnection::announceLost()
{
    m_notifier.setEnabled(false);
    if (const auto lost = std::exchange(m_lost, nullptr))
        lost(QStringLiteral("the connection to the X server is gone"));
}

} // namespace Panorel::X11

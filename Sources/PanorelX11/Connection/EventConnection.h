#pragma once

#include "PanorelX11/Connection/XConnection.h"

#include <QSocketNotifier>
#include <QString>

#include <functional>
#include <vector>

namespace Panorel::X11 {

/// The connection whose events are delivered from the main event loop: display changes and, with
/// them, the news that the server has gone. Windows are read and placed on another connection,
/// where waiting for an answer can't swallow these.
class EventConnection {
public:
    EventConnection();

    XConnection &connection() { return m_connection; }

    /// Called for every event. Listeners live as long as the connection.
    void addListener(std::function<void(const xcb_generic_event_t &)> listener);

    /// Called once when the server has gone.
    void setLostCallback(std::function<void(const QString &reason)> lost);

    /// Somebody else has noticed that the server has gone.
    void announceLost();

private:
    void readEvents();

    XConnection m_connection;
    QSocketNotifier m_notifier;
    std::vector<std::function<void(const xcb_generic_event_t &)>> m_listeners;
    std::function<void(const QString &)> m_lost;
};

} // namespace Panorel::X11

#pragma once

#include <QDBusServiceWatcher>
#include <QTimer>

#include <functional>

namespace Panorel {

/// Waits until the session's tray can be told of an icon. At login the program may come up before
/// the tray, and the toolkit asks for one only once and keeps the answer. Waits for the tray's
/// announcement, and no longer than a minute.
class TrayWatcher : public QObject {
    Q_OBJECT

public:
    /// `ready` is called once, from the event loop.
    explicit TrayWatcher(std::function<void()> ready);

private Q_SLOTS:
    void askForHost();

private:
    void finish();

    std::function<void()> m_ready;
    QDBusServiceWatcher m_serviceWatcher;
    QTimer m_limit;
};

} // namespace Panorel

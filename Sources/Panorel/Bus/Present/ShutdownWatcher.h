#pragma once

#include <QObject>

#include <functional>

namespace Panorel {

/// Hears on the system's bus that the machine is about to shut down.
class ShutdownWatcher : public QObject {
    Q_OBJECT

public:
    explicit ShutdownWatcher(std::function<void()> ending);

private Q_SLOTS:
    void prepareForShutdown(bool begins);

private:
    std::function<void()> m_ending;
};

} // namespace Panorel

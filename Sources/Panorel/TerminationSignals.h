#pragma once

#include <QSocketNotifier>

#include <functional>
#include <memory>

namespace Panorel {

/// Turns SIGTERM, SIGINT and SIGHUP into a call on the main event loop, so that the program ends
/// between two things and not in the middle of one. One instance at a time.
class TerminationSignals {
public:
    /// Throws std::runtime_error where the system has no file descriptors left.
    explicit TerminationSignals(std::function<void()> asked);
    ~TerminationSignals();
    TerminationSignals(const TerminationSignals &) = delete;
    TerminationSignals &operator=(const TerminationSignals &) = delete;

private:
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace Panorel

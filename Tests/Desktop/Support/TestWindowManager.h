#pragma once

#include "Desktop/Support/ChildProcess.h"

namespace Panorel::Desktop {

/// A window manager and a session bus of its own on the test server. Ready to manage windows when
/// the constructor returns.
class TestWindowManager {
public:
    /// "openbox" or "xfwm4".
    explicit TestWindowManager(const QString &name);
    ~TestWindowManager();

    /// Of the session bus.
    QString busAddress() const { return m_busAddress; }

private:
    ChildProcess m_bus;
    QString m_busAddress;
    ChildProcess m_manager;
};

} // namespace Panorel::Desktop

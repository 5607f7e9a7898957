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

    /// Lets the program, before it is started, use the session bus.
    void giveBus(ChildProcess &child) const;

private:
    ChildProcess m_bus;
    QString m_busAddress;
    ChildProcess m_manager;
};

/// Rows for a test's data function: its column "manager" names each of them.
void forEachManager();

} // namespace Panorel::Desktop

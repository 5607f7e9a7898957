#pragma once

#include "Desktop/Support/ChildProcess.h"

namespace Panorel::Desktop {

/// A window manager and a session bus of its own on the test server. Ready to manage windows when
/// the constructor returns.
class TestWindowManager {
public:
    /// "openbox" or "xfwm4".
    explicit TestWindowManager(const QString &name);

    /// Lets the program, before it is started, use the session bus.
    void giveBus(ChildProcess &child) const;

    qint64 processID() const { return m_manager.processID(); }

private:
    SessionBus m_bus;
    ChildProcess m_manager;
};

/// For initTestCase_data: every test runs once under each of them.
void forEachManager();
QString managerOfThisRun();

} // namespace Panorel::Desktop

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

private:
    ChildProcess m_bus;
    ChildProcess m_manager;
};

} // namespace Panorel::Desktop

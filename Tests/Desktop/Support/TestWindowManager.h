#pragma once

#include "Desktop/Support/ChildProcess.h"

#include <functional>
#include <span>
#include <thread>

namespace Panorel::Desktop {

/// A window manager that the tests know, and what it does differently from the others.
struct ManagerKind {
    const char *name; ///< of its program
    const char *arguments = "";
    bool resetsOutputs = false; ///< as it starts, to what it finds best
    /// Crashes now and then where the number of desktops is changed just after its start.
    bool mayDieOfDesktopCount = false;
    /// No decorated frame can lie across two monitors or beyond their edge.
    bool keepsFramesOnOneMonitor = false;
    /// Maximising one window brings it before a full-screen one on another monitor.
    bool raisesBesideFullScreen = false;
};

std::span<const ManagerKind> knownManagers();
/// Fatal for one that isn't known.
const ManagerKind &managerKind(const QString &name);

/// A window manager and a session bus of its own on the test server. Ready to manage windows when
/// the constructor returns.
class TestWindowManager {
public:
    explicit TestWindowManager(const QString &name);

    const ManagerKind &kind() const { return m_kind; }

    qint64 processID() const { return m_manager.processID(); }

    /// Stops it. It goes on once `enough` has returned, which runs in the thread returned.
    [[nodiscard]] std::jthread stopUntil(std::function<void()> enough) const;

private:
    const ManagerKind &m_kind;
    SessionBus m_bus;
    ChildProcess m_manager;
};

/// For initTestCase_data: every test runs once under each of them.
void forEachManager(const QStringList &names = {QStringLiteral("openbox"),
                                                QStringLiteral("xfwm4")});
QString managerOfThisRun();

/// For tests that can go on for hours, PANOREL_MANAGERS and PANOREL_CYCLES say how far: names
/// with blanks between, and how often each test does what it does.
void forEachChosenManager();
int cyclesOfThisRun();

} // namespace Panorel::Desktop

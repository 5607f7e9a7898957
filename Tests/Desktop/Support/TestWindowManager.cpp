#include "Desktop/Support/TestWindowManager.h"

#include "Desktop/Support/DesktopProbe.h"

#include <QTest>

#include <algorithm>

namespace Panorel::Desktop {
namespace {

constexpr ManagerKind managers[] = {
    {.name = "openbox"},
    // With its compositor it lets GTK draw shadows, the harder case.
    {.name = "xfwm4", .arguments = "--compositor=on"},
    {.name = "icewm", .mayDieOfDesktopCount = true},
    {.name = "metacity", .keepsFramesOnOneMonitor = true},
    {.name = "marco", .keepsFramesOnOneMonitor = true},
    {.name = "mutter",
     .arguments = "--x11",
     .resetsOutputs = true,
     .keepsFramesOnOneMonitor = true,
     .raisesBesideFullScreen = true},
    {.name = "muffin",
     .resetsOutputs = true,
     .keepsFramesOnOneMonitor = true,
     .raisesBesideFullScreen = true},
    {.name = "kwin_x11"},
};

} // namespace

std::span<const ManagerKind> knownManagers()
{
    return managers;
}

const ManagerKind &managerKind(const QString &name)
{
    const auto known = std::ranges::find_if(
        managers, [&](const ManagerKind &kind) { return name == QLatin1String(kind.name); });
    if (known == std::end(managers))
        qFatal("%s is no window manager that the tests know", qPrintable(name));
    return *known;
}

TestWindowManager::TestWindowManager(const QString &name)
    : m_kind(managerKind(name)),
      m_manager(name, QString::fromLatin1(m_kind.arguments).split(u' ', Qt::SkipEmptyParts))
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_bus.address());
    m_manager.process().setProcessEnvironment(environment);
    m_manager.silence();
    m_manager.start();
    DesktopProbe probe;
    if (m_kind.mayDieOfDesktopCount)
        require([&] { return probe.managerWindow() != XCB_WINDOW_NONE; }, "a window manager");
    else
        probe.awaitManager();
}

std::jthread TestWindowManager::stopUntil(std::function<void()> enough) const
{
    const auto process = static_cast<pid_t>(processID());
    kill(process, SIGSTOP);
    return std::jthread([=] {
        enough();
        kill(process, SIGCONT);
    });
}

void forEachManager(const QStringList &names)
{
    QTest::addColumn<QString>("manager");
    for (const QString &name : names)
        QTest::newRow(managerKind(name).name) << name;
}

QString managerOfThisRun()
{
    QFETCH_GLOBAL(QString, manager);
    return manager;
}

void forEachChosenManager()
{
    forEachManager(qEnvironmentVariable("PANOREL_MANAGERS", QStringLiteral("openbox xfwm4 icewm "
                                                                           "metacity"))
                       .split(u' ', Qt::SkipEmptyParts));
}

int cyclesOfThisRun()
{
    return qEnvironmentVariableIsSet("PANOREL_CYCLES")
               ? qEnvironmentVariableIntValue("PANOREL_CYCLES")
               : 3;
}

} // namespace Panorel::Desktop

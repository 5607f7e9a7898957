#include "Desktop/Support/TestWindowManager.h"

#include "Desktop/Support/DesktopProbe.h"

namespace Panorel::Desktop {
namespace {

QStringList argumentsOf(const QString &name)
{
    // With its compositor xfwm4 lets GTK draw shadows, the harder case.
    return name == u"xfwm4" ? QStringList{QStringLiteral("--compositor=on")} : QStringList();
}

} // namespace

TestWindowManager::TestWindowManager(const QString &name)
    : m_bus(QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
             QStringLiteral("--print-address=1")}),
      m_manager(name, argumentsOf(name))
{
    // The daemon itself and not dbus-run-session: a wrapper that is ended leaves its children.
    m_bus.process().setStandardErrorFile(QProcess::nullDevice());
    m_bus.process().setProcessChannelMode(QProcess::SeparateChannels);
    m_bus.start();
    m_busAddress = m_bus.readLine();
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_busAddress);
    m_manager.process().setProcessEnvironment(environment);
    m_manager.process().setStandardErrorFile(QProcess::nullDevice());
    m_manager.process().setProcessChannelMode(QProcess::SeparateChannels);
    m_manager.start();
    DesktopProbe probe;
    require([&] { return probe.hasWindowManager(); }, "a window manager");
    // It announces itself before it manages windows; once it answers, it does.
    probe.setDesktopCount(3);
    probe.setDesktopCount(1);
}

TestWindowManager::~TestWindowManager()
{
    m_manager.end();
    m_bus.end();
}

} // namespace Panorel::Desktop

#include "Desktop/Support/TestWindowManager.h"

#include "Desktop/Support/DesktopProbe.h"

#include <QTest>

namespace Panorel::Desktop {
TestWindowManager::TestWindowManager(const QString &name)
    : m_bus(QStringLiteral("dbus-daemon"),
            {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
             QStringLiteral("--print-address=1")}),
      // With its compositor xfwm4 lets GTK draw shadows, the harder case.
      m_manager(name,
                name == u"xfwm4" ? QStringList{QStringLiteral("--compositor=on")} : QStringList())
{
    // The daemon itself and not dbus-run-session: a wrapper that is ended leaves its children.
    m_bus.silence();
    m_bus.start();
    m_busAddress = m_bus.readLine();
    giveBus(m_manager);
    m_manager.silence();
    m_manager.start();
    DesktopProbe probe;
    require([&] { return probe.hasWindowManager(); }, "a window manager");
    // It announces itself before it manages windows; once it answers, it does.
    probe.setDesktopCount(3);
    probe.setDesktopCount(1);
}

void TestWindowManager::giveBus(ChildProcess &child) const
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_busAddress);
    child.process().setProcessEnvironment(environment);
}

TestWindowManager::~TestWindowManager()
{
    m_manager.end();
    m_bus.end();
}

void forEachManager()
{
    QTest::addColumn<QString>("manager");
    for (const char *name : {"openbox", "xfwm4"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

} // namespace Panorel::Desktop

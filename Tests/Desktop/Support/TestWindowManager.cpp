#include "Desktop/Support/TestWindowManager.h"

#include "Desktop/Support/DesktopProbe.h"

#include <QTest>

namespace Panorel::Desktop {
TestWindowManager::TestWindowManager(const QString &name)
    // With its compositor xfwm4 lets GTK draw shadows, the harder case.
    : m_manager(name,
                name == u"xfwm4" ? QStringList{QStringLiteral("--compositor=on")} : QStringList())
{
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
    environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), m_bus.address());
    child.process().setProcessEnvironment(environment);
}

void forEachManager()
{
    QTest::addColumn<QString>("manager");
    for (const char *name : {"openbox", "xfwm4"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

QString managerOfThisRun()
{
    QFETCH_GLOBAL(QString, manager);
    return manager;
}

} // namespace Panorel::Desktop

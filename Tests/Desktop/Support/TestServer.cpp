#include "Desktop/Support/TestServer.h"

#include "Desktop/Support/DesktopProbe.h"

#include <QStandardPaths>

#include <algorithm>

namespace Panorel::Desktop {
namespace {

QString outputName(int output)
{
    return QStringLiteral("DUMMY%1").arg(output);
}

} // namespace

std::vector<Plugged> sideBySide()
{
    return {{.output = 0}, {.output = 1, .x = 1920}};
}

TestServer::TestServer()
{
    // Of a user who has been welcomed.
    writeFile(settings(), "[General]\nhasOnboarded=true\n");
    qputenv("XDG_SESSION_TYPE", "x11");
    qputenv("GSETTINGS_BACKEND", "memory");
    qputenv("NO_AT_BRIDGE", "1");
    qputenv("LIBGL_ALWAYS_SOFTWARE", "1");
    qputenv("LC_ALL", "C.UTF-8");
    qputenv("GDK_BACKEND", "x11");
    qputenv("QT_QPA_PLATFORM", "xcb");
    // Neither the bus of whoever runs the tests nor one that a library starts and leaves behind.
    qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    qunsetenv("WAYLAND_DISPLAY");
    startServer();
    plug({Plugged{}});
}

TestServer::~TestServer()
{
    qunsetenv("DISPLAY");
}

QString TestServer::settings()
{
    return qEnvironmentVariable("XDG_CONFIG_HOME") + QStringLiteral("/Panorel/Panorel.ini");
}

void TestServer::startServer()
{
    // The server itself picks a free number and says so once it can be connected to.
    m_process = std::make_unique<ChildProcess>(
        QStandardPaths::findExecutable(
            QStringLiteral("Xorg"), {QStringLiteral("/usr/lib/xorg"), QStringLiteral("/usr/bin")}),
        u"-displayfd 1 -config %1 -noreset -novtswitch -sharevts -nolisten tcp -logfile %2"_qs
            .arg(QStringLiteral(PANOREL_TEST_SERVER), home.path(u"xorg.log"_qs))
            .split(u' '));
    m_process->process().setStandardErrorFile(home.path(QStringLiteral("xorg.err")));
    m_process->process().setProcessChannelMode(QProcess::SeparateChannels);
    m_process->start();
    qputenv("DISPLAY", ':' + m_process->readLine().toLatin1());
}

void TestServer::plug(const std::vector<Plugged> &outputs)
{
    QStringList arguments;
    std::vector<int> plugged;
    for (const Plugged &one : outputs) {
        const QString name = outputName(one.output);
        const QString mode = QStringLiteral("%1x%2").arg(one.width).arg(one.height);
        if (std::ranges::find(m_known, name + mode) == m_known.end()) {
            run(QStringLiteral("xrandr"), {QStringLiteral("--addmode"), name, mode});
            m_known.push_back(name + mode);
        }
        arguments << QStringLiteral("--output") << name << QStringLiteral("--mode") << mode
                  << QStringLiteral("--pos") << QStringLiteral("%1x%2").arg(one.x).arg(one.y);
        if (plugged.empty())
            arguments << QStringLiteral("--primary");
        plugged.push_back(one.output);
    }
    for (const int before : m_plugged) {
        if (std::ranges::find(plugged, before) == plugged.end())
            arguments << QStringLiteral("--output") << outputName(before)
                      << QStringLiteral("--off");
    }
    run(QStringLiteral("xrandr"), arguments);
    // The driver calls an output connected once it shows something, but only who asks learns it.
    run(QStringLiteral("xrandr"), {QStringLiteral("--query")});
    m_plugged = plugged;
}

void TestServer::setEdid(int output, const QString &name, int serial, const QString &flaw)
{
    run(QStringLiteral(PANOREL_TEST_CLIENTS "/set-edid"),
        {outputName(output), name, QString::number(serial), flaw});
}

void TestServer::kill()
{
    m_process->killNow();
}

} // namespace Panorel::Desktop

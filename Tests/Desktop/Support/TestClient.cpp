#include "Desktop/Support/TestClient.h"

#include "Desktop/Support/DesktopProbe.h"
#include "Support/TestHome.h"

namespace Panorel::Desktop {
namespace {

QString ownClient(const char *name)
{
    return QStringLiteral(PANOREL_TEST_CLIENTS "/") + QLatin1String(name);
}

/// The GTK program's title is the name of the archive that it shows.
QString emptyArchiveNamed(const QString &name)
{
    const QString path = QDir::home().filePath(name);
    writeFile(path, QByteArray(1024, '\0'));
    return path;
}

/// The program and its arguments.
QStringList commandFor(ClientKind kind, const QByteArray &bytes)
{
    const QString title = QString::fromUtf8(bytes);
    switch (kind) {
    case ClientKind::Increments:
        return QStringLiteral("xterm,-fa,DejaVu Sans Mono,-xrm,*allowTitleOps: false,-T,%1,-e,"
                              "sleep,86400")
            .arg(title)
            .split(u',');
    case ClientKind::GtkDecorated:
        return {QStringLiteral("file-roller"), emptyArchiveNamed(title)};
    case ClientKind::Qt:
        return {ownClient("qt-client"), QStringLiteral("--title"), title};
    default:
        break;
    }
    const char *own = kind == ClientKind::StaticGravity ? "--gravity 10"
                      : kind == ClientKind::SouthEast   ? "--gravity 9"
                      : kind == ClientKind::FixedDialog
                          ? "--fixed yes --atom _NET_WM_WINDOW_TYPE=_NET_WM_WINDOW_TYPE_DIALOG"
                      : kind == ClientKind::Aspect ? "--aspect 320,240"
                                                   : "";
    return QStringList{ownClient("xcb-client"), QStringLiteral("--title"),
                       QString::fromLatin1(bytes.toPercentEncoding())}
           + QString::fromLatin1(own).split(u' ', Qt::SkipEmptyParts);
}

} // namespace

TestClient::TestClient(ClientKind kind, const QByteArray &title, const QStringList &options)
    : TestClient(commandFor(kind, title) + options)
{
    DesktopProbe probe;
    if (kind == ClientKind::Plain) {
        // The client prints its window: a hostile title can't be searched for.
        m_window = m_process.readLine().toUInt();
    } else {
        const QString text = QString::fromUtf8(title);
        require([&] { return probe.find(text).has_value(); }, title.constData());
        m_window = *probe.find(text);
    }
    probe.restingFrame(m_window);
}

QString TestClient::program(ClientKind kind)
{
    return commandFor(kind, {}).first();
}

TestClient::TestClient(const QStringList &command) : m_process(command.first(), command.mid(1))
{
    m_process.silence(); // some are talkative
    m_process.start();
}

TestCrowd::TestCrowd(int windows, int applications)
    : m_process(ownClient("xcb-client"),
                QStringLiteral("--title Document --class Application --count %1 --applications %2")
                    .arg(windows)
                    .arg(applications)
                    .split(u' '))
{
    m_process.start();
    for (int i = 0; i < windows; ++i)
        m_windows.push_back(m_process.readLine().toUInt());
    const DesktopProbe probe;
    require([&] { return probe.stacking().size() >= m_windows.size(); }, "a crowd of windows");
}

void TestClient::send(int signal)
{
    kill(static_cast<pid_t>(m_process.processID()), signal);
}

} // namespace Panorel::Desktop

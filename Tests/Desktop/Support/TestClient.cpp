#include "Desktop/Support/TestClient.h"

#include "Desktop/Support/DesktopProbe.h"

#include <QDir>
#include <QFile>

namespace Panorel::Desktop {
namespace {

QString ownClient(const char *name)
{
    return QStringLiteral(PANOREL_TEST_CLIENTS "/") + QLatin1String(name);
}

QString programOf(ClientKind kind)
{
    switch (kind) {
    case ClientKind::Increments:
        return QStringLiteral("xterm");
    case ClientKind::Qt:
        return ownClient("qt-client");
    case ClientKind::GtkDecorated:
        return QStringLiteral("file-roller");
    default:
        return ownClient("xcb-client");
    }
}

/// The GTK program's title is the name of the archive that it shows.
QString emptyArchiveNamed(const QString &name)
{
    const QString path = QDir::home().filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(QByteArray(1024, '\0')) < 0)
        qFatal("cannot write %s", qPrintable(path));
    return path;
}

QStringList argumentsOf(ClientKind kind, const QString &title)
{
    const QString titleOption = QStringLiteral("--title");
    switch (kind) {
    case ClientKind::StaticGravity:
        return {titleOption, title, QStringLiteral("--gravity"), QStringLiteral("10")};
    case ClientKind::SouthEast:
        return {titleOption, title, QStringLiteral("--gravity"), QStringLiteral("9")};
    case ClientKind::Increments:
        return {QStringLiteral("-T"),   title,
                QStringLiteral("-fa"),  QStringLiteral("DejaVu Sans Mono"),
                QStringLiteral("-xrm"), QStringLiteral("*allowTitleOps: false"),
                QStringLiteral("-e"),   QStringLiteral("sleep"),
                QStringLiteral("86400")};
    case ClientKind::GtkDecorated:
        return {emptyArchiveNamed(title)};
    default:
        return {titleOption, title};
    }
}

} // namespace

TestClient::TestClient(ClientKind kind, const QString &title)
    : m_process(programOf(kind), argumentsOf(kind, title))
{
    if (kind == ClientKind::GtkDecorated)
        m_process.process().setProcessChannelMode(QProcess::SeparateChannels); // it is talkative
    m_process.start();
    DesktopProbe probe;
    require([&] { return probe.find(title).has_value(); }, qPrintable(title));
    m_window = *probe.find(title);
    probe.restingFrame(m_window);
}

TestClient::TestClient(const QString &title, const QStringList &options)
    : m_process(ownClient("xcb-client"), QStringList{QStringLiteral("--title"), title} + options)
{
    m_process.start();
    // The client prints its window when it is mapped: a hostile title can't be searched for.
    m_window = m_process.readLine().toUInt();
    DesktopProbe().restingFrame(m_window);
}

void TestClient::dieWhenMoved()
{
    m_process.write("die when moved");
    m_process.readLine(); // it has heard
}

void TestClient::dieNow()
{
    m_process.killNow();
}

} // namespace Panorel::Desktop

#include "Desktop/Support/DesktopSession.h"

namespace Panorel::Desktop {
namespace {

constexpr auto hidden = "_NET_WM_STATE_HIDDEN";

std::unique_ptr<TestWindowManager> startManager(TestServer &server, const QString &name,
                                                const std::vector<Plugged> &outputs)
{
    server.plug(outputs);
    return name.isEmpty() ? nullptr : std::make_unique<TestWindowManager>(name);
}

} // namespace

QString described(const QString &title, const Rect &frame)
{
    const auto number = [](double value) { return QString::number(value, 'g', 17); };
    return QStringLiteral("%1 at %2,%3 %4x%5")
        .arg(title, number(frame.x), number(frame.y), number(frame.width), number(frame.height));
}

DesktopSession::DesktopSession(const QString &windowManager, const std::vector<Plugged> &outputs)
    : manager(startManager(server, windowManager, outputs))
{}

TestClient &DesktopSession::open(ClientKind kind, const QByteArray &title, const Rect &frame,
                                 const QString &application)
{
    TestClient &client = application.isEmpty()
                             ? clients.emplace_back(kind, title)
                             : clients.emplace_back(
                                 kind, title, QStringList{QStringLiteral("--class"), application});
    moveAndWait(client, frame);
    return client;
}

void DesktopSession::close(const QString &title)
{
    const auto window = probe.find(title);
    clients.remove_if([&](const TestClient &client) { return client.window() == window; });
    require([&] { return !probe.find(title); }, "a closed window");
}

Layout EngineSession::capture()
{
    Layout layout;
    layout.configID = QStringLiteral("test");
    layout.displays = m_watcher.currentDisplays();
    layout.windows = m_snapshotter.snapshot(layout.displays);
    return layout;
}

bool DesktopSession::isAt(const TestClient &client, const Rect &frame) const
{
    return probe.frame(client.window()) == frame;
}

bool DesktopSession::isMinimised(const TestClient &client) const
{
    return probe.hasState(client.window(), hidden);
}

void DesktopSession::minimiseAndWait(const TestClient &client)
{
    probe.minimise(client.window());
    require([&] { return isMinimised(client); }, "a minimised window");
}

void DesktopSession::sendToDesktopAndWait(const TestClient &client, std::uint32_t desktop)
{
    probe.sendToDesktop(client.window(), desktop);
    require([&] { return probe.desktopOf(client.window()) == desktop; }, "the other desktop");
}

QStringList DesktopSession::frames() const
{
    const std::vector<xcb_window_t> windows = probe.stacking();
    const std::vector<Rect> resting = probe.restingFrames(windows);
    QStringList frames;
    for (std::size_t i = 0; i < windows.size(); ++i)
        frames << described(probe.title(windows[i]), resting[i]);
    frames.sort();
    return frames;
}

void DesktopSession::moveAndWait(const TestClient &client, const Rect &frame)
{
    probe.move(client.window(), frame);
    // Close is enough: a size that goes in steps, or gravity, may keep the window from the rest.
    const bool moved = waitUntil([&] {
        const std::optional<Rect> now = probe.frame(client.window());
        return now && std::abs(now->x - frame.x) < 40 && std::abs(now->y - frame.y) < 40;
    });
    const Rect now = probe.restingFrame(client.window());
    if (!moved)
        qFatal("%s is at %g, %g and not at %g, %g", qPrintable(probe.title(client.window())), now.x,
               now.y, frame.x, frame.y);
}

void DesktopSession::setStateAndWait(const TestClient &client, bool on, const char *first,
                                     const char *second)
{
    probe.setState(client.window(), on, first, second);
    require([&] { return probe.hasState(client.window(), first) == on; }, first);
    probe.restingFrame(client.window());
}

void DesktopSession::activateAndWait(const TestClient &client)
{
    // Asked for again where it does not hold: a program that has just started may still raise
    // itself once more.
    require(
        [&] {
            probe.activate(client.window());
            return waitUntil(
                [&] {
                    return probe.activeWindow() == client.window()
                           && probe.stacking().back() == client.window();
                },
                2'000);
        },
        "an activated window");
}

} // namespace Panorel::Desktop

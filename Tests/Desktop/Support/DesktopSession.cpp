#include "Desktop/Support/DesktopSession.h"

namespace Panorel::Desktop {
namespace {

std::unique_ptr<TestWindowManager> startManager(TestServer &server, const QString &name,
                                                const std::vector<Plugged> &outputs)
{
    server.plug(outputs);
    if (name.isEmpty())
        return nullptr;
    auto manager = std::make_unique<TestWindowManager>(name);
    if (manager->kind().resetsOutputs)
        server.plug(outputs);
    return manager;
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
    const QStringList options =
        application.isEmpty() ? QStringList() : QStringList{u"--class"_qs, application};
    TestClient &client = clients.emplace_back(kind, title, options);
    moveAndWait(client, frame);
    return client;
}

void DesktopSession::openEveryKind()
{
    open(ClientKind::Plain, "plain", {60, 80, 500, 400});
    open(ClientKind::StaticGravity, "static", {620, 90, 480, 410});
    const bool mayStraddle = !manager->kind().keepsFramesOnOneMonitor;
    open(ClientKind::SouthEast, "south east", {mayStraddle ? 1760.0 : 1400, 300, 420, 380});
    open(ClientKind::Increments, "terminal", {2300, 100, 640, 420});
    open(ClientKind::Qt, "Qt window", {2990, 140, 500, 430});
    open(ClientKind::GtkDecorated, "archive.tar", {2380, 560, 700, 460});
    open(ClientKind::FixedDialog, "dialog", {200, 560, 400, 300});
    open(ClientKind::Aspect, "aspect", {3200, 600, 480, 380});
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

void DesktopSession::scatter(std::mt19937 &random, unsigned maximisable)
{
    const auto upTo = [&](unsigned end) { return double(random() % end); };
    std::vector<xcb_window_t> windows;
    for (const TestClient &client : clients)
        windows.push_back(client.window());
    const std::vector<Rect> homes = probe.restingFrames(windows);
    for (const xcb_window_t window : windows) {
        const double display = 1920 * upTo(2);
        const double x = display + upTo(1200);
        const double y = upTo(500);
        const double width = 300 + upTo(300);
        probe.move(window, {x, y, width, 250 + upTo(250)});
    }
    if (maximisable > 0)
        setStateAndWait(*std::next(clients.begin(), random() % maximisable), true, vertically,
                        horizontally);
    for (std::size_t i = 0; i < windows.size(); ++i)
        require([&] { return probe.frame(windows[i]) != homes[i]; }, "a moved window");
    probe.restingFrames(windows);
}

void DesktopSession::moveAndWait(const TestClient &client, const Rect &frame)
{
    probe.move(client.window(), frame);
    // Close is enough: a size that goes in steps, or gravity, may keep the window from the rest.
    require(
        [&] {
            const Rect now = probe.frame(client.window()).value_or(Rect{});
            return std::abs(now.x - frame.x) < 40 && std::abs(now.y - frame.y) < 40;
        },
        "a moved window");
    probe.restingFrame(client.window());
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
    const xcb_window_t window = client.window();
    const auto isDone = [&] {
        return probe.activeWindow() == window && probe.stacking().back() == window;
    };
    // Asked for again where it does not hold: a program that has just started may still raise
    // itself once more.
    const auto activate = [&] {
        probe.activate(window);
        return waitUntil(isDone, 2'000);
    };
    require(activate, "a window in front");
}

} // namespace Panorel::Desktop

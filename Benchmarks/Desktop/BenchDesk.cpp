#include "Desktop/BenchDesk.h"

#include "Desktop/ProcessUsage.h"

#include <QCoreApplication>

#include <algorithm>
#include <thread>

namespace Panorel::Bench {

namespace {

constexpr double displayWidth = 1920;
constexpr double displayHeight = 1080;
constexpr int windowsOfAnApplication = 10;

/// What the window manager and the display server do in so much time when there is nothing to do.
constexpr auto calm = std::chrono::milliseconds(100);
constexpr double calmProcessorMs = 5;

using Random = std::mt19937;

/// Each wholly on one of the displays that lie side by side in this width.
std::vector<Rect> randomFrames(std::size_t count, Random &random, double width)
{
    const auto upTo = [&](double most) { return double(random() % std::uint32_t(most + 1)); };
    std::vector<Rect> frames;
    while (frames.size() < count) {
        Rect frame{0, 0, 300 + upTo(500), 200 + upTo(400)};
        const double display = displayWidth * upTo(width / displayWidth - 1);
        frame.x = display + upTo(displayWidth - frame.width);
        frame.y = upTo(displayHeight - frame.height);
        frames.push_back(frame);
    }
    return frames;
}

/// std::shuffle is not the same everywhere.
std::vector<xcb_window_t> shuffled(std::vector<xcb_window_t> windows, Random &random)
{
    for (std::size_t i = windows.size(); i > 1; --i)
        std::swap(windows[i - 1], windows[random() % i]);
    return windows;
}

} // namespace

BenchDesk::BenchDesk(const QString &windowManager, int count)
    : session(windowManager, Desktop::sideBySide()),
      m_crowd(count, std::max(1, count / windowsOfAnApplication))
{
    raw.watch(windows());
    raw.rest();
    Random random(1);
    m_places = randomFrames(windows().size(), random, 2 * displayWidth);
    m_bottomToTop = shuffled(windows(), random);
    arrange(m_places, m_bottomToTop);
}

void BenchDesk::scatter(int round, double width)
{
    Random random(std::uint32_t(1000 + round));
    const auto frames = randomFrames(windows().size(), random, width);
    arrange(frames, shuffled(windows(), random));
}

int BenchDesk::windowsOff() const
{
    const auto frames = raw.frames();
    int off = 0;
    for (std::size_t i = 0; i < frames.size(); ++i)
        off += frames[i] != m_places[i];
    return off;
}

void BenchDesk::arrange(const std::vector<Rect> &frames,
                        const std::vector<xcb_window_t> &bottomToTop)
{
    raw.place(frames);
    if (!raw.awaitFrames(frames, RawDesktop::Begin::WithEvents))
        qFatal("the windows don't go where the benchmark wants them");
    raw.stack(bottomToTop);
    if (!raw.awaitStacking(bottomToTop))
        qFatal("the windows are not stacked as the benchmark wants them");
    rest();
    QCoreApplication::processEvents();
}

void BenchDesk::rest()
{
    const auto used = [this] {
        return ProcessUsage::of(session.manager->processID()).processorMs
               + ProcessUsage::of(session.server.processID()).processorMs;
    };
    // A window manager that draws for longer than the events are silent is not at rest.
    double before = 0;
    do {
        raw.rest();
        before = used();
        std::this_thread::sleep_for(calm);
    } while (used() - before > calmProcessorMs);
}

} // namespace Panorel::Bench

#include "Desktop/BenchDesk.h"
#include "Desktop/ProcessUsage.h"
#include "Desktop/RequestCount.h"
#include "Desktop/Results.h"
#include "Desktop/TimedAccessibility.h"
#include "Support/TestHome.h"

#include <QCoreApplication>

#include <algorithm>

namespace Panorel::Bench {

namespace {

using namespace std::chrono_literals;

/// The engine as the program has it, with a mark between placing and stacking.
struct Engine {
    TestDataDir data;
    SystemClock clock;
    std::unique_ptr<Platform> platform = makePlatform(data.log, clock);
    TimedAccessibility accessibility{platform->accessibility()};
    AppRuleStore rules{data.log, clock};
    WindowSnapshotter snapshotter{accessibility, platform->windowList(), platform->workspace()};
    RestoreEngine restore{rules, snapshotter, accessibility, data.log, clock};

    Layout capture()
    {
        FakeScheduler scheduler{data.clock};
        const DisplayWatcher watcher(platform->screens(), scheduler, data.log);
        Layout layout;
        layout.displays = watcher.currentDisplays();
        layout.windows = snapshotter.snapshot(layout.displays);
        return layout;
    }
};

class RestoreBench {
public:
    RestoreBench(Results &results, const QString &manager, int count)
        : m_results(results), m_manager(manager), m_count(count), m_desk(manager, count),
          m_layout(m_engine.capture())
    {
        if (m_layout.windows.size() != std::size_t(count))
            qFatal("%zu windows learned of %d", m_layout.windows.size(), count);
        prepareScripts();
    }

    void run(int rounds)
    {
        using Way = void (RestoreBench::*)();
        std::vector<Way> ways{&RestoreBench::engine, &RestoreBench::floor, &RestoreBench::wmctrl,
                              &RestoreBench::xdotool};
        std::mt19937 random(1);
        for (int round = -1; round < rounds; ++round) { // the first one warms up
            m_isCounted = round >= 0;
            if (m_isCounted) // no way always after the same other
                std::ranges::shuffle(ways, random);
            for (std::size_t i = 0; i < ways.size(); ++i) {
                m_desk.scatter(round);
                (this->*ways[i])();
                if (!m_isCounted && m_count > 50 && i == 1)
                    break; // the slow ways need no warming up
            }
        }
    }

private:
    void engine()
    {
        const RequestCount sent = RequestCount::now();
        const TimePoint start = std::chrono::steady_clock::now();
        const RestoreReport report = m_engine.restore.apply(m_layout, true);
        const TimePoint end = std::chrono::steady_clock::now();
        addRequests("panorel", sent);
        if (report.restored != m_count || m_desk.windowsOff() != 0)
            qFatal("%s: %d windows are off after %s", qPrintable(m_manager), m_desk.windowsOff(),
                   qPrintable(report.summary()));
        add("panorel", "frames ms",
            BenchDesk::milliseconds(start, m_engine.accessibility.raiseBegan()));
        add("panorel", "all ms", BenchDesk::milliseconds(start, end));
        add("panorel", "misstacked", m_desk.isStacked() ? 0 : 1);
    }

    void floor()
    {
        const double manager = processorMs(m_desk.session.manager->processID());
        const double server = processorMs(m_desk.session.server.processID());
        const RequestCount sent = RequestCount::now();
        const TimePoint start = std::chrono::steady_clock::now();
        m_desk.raw.place(m_desk.places());
        const auto placed = m_desk.raw.awaitFrames(m_desk.places(), RawDesktop::Begin::WithEvents);
        // What these two do for the places is their own, whoever asks for them.
        add("floor", "manager's processor ms",
            processorMs(m_desk.session.manager->processID()) - manager);
        add("floor", "server's processor ms",
            processorMs(m_desk.session.server.processID()) - server);
        const TimePoint startOfStacking = std::chrono::steady_clock::now();
        m_desk.raw.stack(m_desk.bottomToTop());
        const auto stacked = m_desk.raw.awaitStacking(m_desk.bottomToTop());
        addRequests("floor", sent);
        if (!placed || !stacked)
            qFatal("%s: the floor does not get there", qPrintable(m_manager));
        add("floor", "frames ms", BenchDesk::milliseconds(start, *placed));
        add("floor", "all ms",
            BenchDesk::milliseconds(start, *placed)
                + BenchDesk::milliseconds(startOfStacking, *stacked));
    }

    static double processorMs(qint64 process) { return ProcessUsage::of(process).processorMs; }

    void wmctrl() { script("wmctrl"); }
    void xdotool() { script("xdotool"); }

    /// Places alone: neither tool stacks windows without taking the focus.
    void script(const char *tool)
    {
        const TimePoint start = std::chrono::steady_clock::now();
        Desktop::ChildProcess shell(QStringLiteral("sh"), {m_home.path(QLatin1String(tool))});
        shell.start();
        if (!shell.process().waitForFinished(60'000))
            qFatal("%s does not come to its end", tool);
        const auto placed = m_desk.raw.awaitFrames(m_desk.places(), RawDesktop::Begin::WithAll, 2s);
        if (placed)
            add(tool, "frames ms", BenchDesk::milliseconds(start, *placed));
        add(tool, "off", m_desk.windowsOff());
    }

    /// With the numbers that bring the windows there, which are not those that the tools print:
    /// the frame's corner and the client's size.
    void prepareScripts()
    {
        QByteArray wmctrlLines;
        QByteArray xdotoolLines;
        for (std::size_t i = 0; i < m_desk.windows().size(); ++i) {
            const Rect place = m_desk.places()[i];
            const Size client = m_desk.raw.clientSize(i);
            const std::uint32_t window = m_desk.windows()[i];
            wmctrlLines +=
                QString::asprintf("wmctrl -i -r 0x%08x -e 0,%d,%d,%d,%d\n", window, int(place.x),
                                  int(place.y), int(client.width), int(client.height))
                    .toLatin1();
            xdotoolLines += QString::asprintf("xdotool windowmove %u %d %d windowsize %u %d %d\n",
                                              window, int(place.x), int(place.y), window,
                                              int(client.width), int(client.height))
                                .toLatin1();
        }
        writeFile(m_home.path(QStringLiteral("wmctrl")), wmctrlLines);
        writeFile(m_home.path(QStringLiteral("xdotool")), xdotoolLines);
    }

    void addRequests(const char *way, const RequestCount &before)
    {
        const RequestCount sent = RequestCount::now() - before;
        add(way, "requests", double(sent.requests));
        add(way, "round trips", double(sent.roundTrips));
        add(way, "messages", double(sent.messages));
    }

    void add(const char *way, const char *measure, double value)
    {
        if (m_isCounted)
            m_results.add({QStringLiteral("restore"), m_manager, m_count, QLatin1String(way),
                           QLatin1String(measure)},
                          value);
    }

    Results &m_results;
    QString m_manager;
    int m_count;
    BenchDesk m_desk;
    Engine m_engine;
    Layout m_layout;
    const TestHome &m_home = m_desk.session.server.home;
    bool m_isCounted = false;
};

} // namespace

void measureRestore(Results &results, const Selection &selection)
{
    selection.forEachDesk("restore", [&](const QString &manager, int windows) {
        RestoreBench(results, manager, windows).run(selection.rounds);
    });
}

} // namespace Panorel::Bench

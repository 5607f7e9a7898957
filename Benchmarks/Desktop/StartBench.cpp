#include "Desktop/BenchDesk.h"
#include "Desktop/ProcessUsage.h"
#include "Desktop/Results.h"
#include "Desktop/Support/TestProgram.h"

#include <csignal>
#include <cstdio>
#include <cstring>
#include <poll.h>
#include <thread>

namespace Panorel::Bench {

namespace {

using namespace std::chrono_literals;

/// Hears of icons that the tray takes in.
class TrayWatch {
public:
    TrayWatch() : m_server(xcb_connect(nullptr, nullptr))
    {
        xcb_connection_t *connection = m_server.get();
        const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        m_root = xcb_setup_roots_iterator(xcb_get_setup(connection)).data->root;
        xcb_change_window_attributes(connection, m_root, XCB_CW_EVENT_MASK, &events);
        constexpr char name[] = "_XEMBED_INFO";
        const std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> atom(
            xcb_intern_atom_reply(connection,
                                  xcb_intern_atom(connection, 0, std::strlen(name), name), nullptr),
            std::free);
        m_embedInfo = atom->atom;
    }

    /// When the next icon left the root window for the tray.
    TimePoint awaitIcon()
    {
        const TimePoint end = std::chrono::steady_clock::now() + 20s;
        while (std::chrono::steady_clock::now() < end) {
            while (const std::unique_ptr<xcb_generic_event_t, decltype(&std::free)> event{
                xcb_poll_for_event(m_server.get()), std::free}) {
                const auto *notify = reinterpret_cast<xcb_reparent_notify_event_t *>(event.get());
                const TimePoint now = std::chrono::steady_clock::now();
                if ((event->response_type & 0x7f) == XCB_REPARENT_NOTIFY && notify->parent != m_root
                    && isIcon(notify->window))
                    return now;
            }
            pollfd socket{xcb_get_file_descriptor(m_server.get()), POLLIN, 0};
            poll(&socket, 1, 100);
        }
        qFatal("no icon came into the tray");
    }

private:
    bool isIcon(xcb_window_t window) const
    {
        const auto cookie =
            xcb_get_property(m_server.get(), 0, window, m_embedInfo, XCB_ATOM_ANY, 0, 2);
        const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
            xcb_get_property_reply(m_server.get(), cookie, nullptr), std::free);
        return reply && reply->type != XCB_ATOM_NONE;
    }

    ServerConnection m_server;
    xcb_window_t m_root = XCB_WINDOW_NONE;
    xcb_atom_t m_embedInfo = XCB_ATOM_NONE;
};

void add(Results &results, const char *measure, double value)
{
    results.add({QStringLiteral("start"), QStringLiteral("openbox"), 8, QStringLiteral("panorel"),
                 QLatin1String(measure)},
                value);
}

void measureIdle(Results &results, const Desktop::TestProgram &program, int seconds)
{
    std::this_thread::sleep_for(5s); // the last of the start
    const ProcessMemory memory = ProcessMemory::of(program.processID());
    add(results, "resident MB", memory.residentMB);
    add(results, "proportional MB", memory.proportionalMB);
    const ProcessUsage before = ProcessUsage::of(program.processID());
    std::this_thread::sleep_for(std::chrono::seconds(seconds));
    const ProcessUsage after = ProcessUsage::of(program.processID());
    const double minutes = seconds / 60.0;
    add(results, "idle seconds", seconds);
    add(results, "processor ms a minute", (after.processorMs - before.processorMs) / minutes);
    add(results, "wake-ups a minute", (after.wakeUps - before.wakeUps) / minutes);
}

} // namespace

void measureStart(Results &results, const Selection &selection)
{
    std::fprintf(stderr, "start: with a tray under openbox\n");
    const BenchDesk desk(QStringLiteral("openbox"), 8);
    Desktop::ChildProcess tray(
        QStringLiteral("trayer"),
        QStringLiteral("--edge bottom --height 24 --SetPartialStrut false").split(u' '));
    tray.silence();
    tray.start();
    Desktop::require([&] { return desk.session.probe.find(QStringLiteral("panel")).has_value(); },
                     "the tray");
    for (int round = -1; round < selection.rounds; ++round) { // the first one warms up
        TrayWatch watch;
        const TimePoint start = std::chrono::steady_clock::now();
        const Desktop::TestProgram program;
        const TimePoint shown = watch.awaitIcon();
        if (round >= 0)
            add(results, "icon ms", BenchDesk::milliseconds(start, shown));
        if (round + 1 == selection.rounds)
            measureIdle(results, program, selection.idleSeconds);
    }
}

} // namespace Panorel::Bench

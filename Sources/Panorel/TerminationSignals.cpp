#include "Panorel/TerminationSignals.h"

#include <array>
#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

namespace Panorel {

namespace {

constexpr std::array handledSignals{SIGTERM, SIGINT, SIGHUP};

/// Read end and write end of the pipe from the handler to the event loop.
std::array<int, 2> ends{-1, -1};

extern "C" void writeToPipe(int)
{
    const char byte = 0;
    // A full pipe means that a request is waiting already.
    [[maybe_unused]] const auto written = ::write(ends[1], &byte, 1);
}

void handleSignalsWith(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (const int signal : handledSignals)
        ::sigaction(signal, &action, nullptr);
}

} // namespace

TerminationSignals::TerminationSignals(std::function<void()> asked)
{
    if (::pipe(ends.data()) != 0)
        throw std::runtime_error("cannot watch for signals");
    for (const int end : ends) {
        ::fcntl(end, F_SETFL, O_NONBLOCK);
        ::fcntl(end, F_SETFD, FD_CLOEXEC);
    }
    m_notifier = std::make_unique<QSocketNotifier>(ends[0], QSocketNotifier::Read);
    QObject::connect(m_notifier.get(), &QSocketNotifier::activated, m_notifier.get(),
                     [asked = std::move(asked)] {
                         char byte;
                         while (::read(ends[0], &byte, 1) > 0) {
                         }
                         asked();
                     });
    handleSignalsWith(writeToPipe);
}

TerminationSignals::~TerminationSignals()
{
    handleSignalsWith(SIG_DFL);
    m_notifier.reset();
    for (int &end : ends)
        ::close(std::exchange(end, -1));
}

} // namespace Panorel

#include "PanorelMac/Session/MacAlarm.h"

#include <dispatch/dispatch.h>

#include <algorithm>
#include <system_error>
#include <utility>

namespace Panorel::Mac {

namespace {

/// What the timer holds until its cancellation is through. Empty once it ran or was cancelled.
struct Pending {
    std::function<void()> action;
};

void fire(void *context)
{
    const auto action = std::exchange(static_cast<Pending *>(context)->action, {});
    if (action)
        action();
}

void discard(void *context)
{
    delete static_cast<Pending *>(context);
}

dispatch_time_t wallTime(Instant when)
{
    using namespace std::chrono;
    // Before the epoch means never to the system, and so does what its nanoseconds can't count;
    // the last second is in 2096.
    const auto sinceEpoch =
        std::clamp<milliseconds>(when.time_since_epoch(), seconds(1), seconds(4'000'000'000));
    const auto whole = floor<seconds>(sinceEpoch);
    timespec time{};
    time.tv_sec = time_t(whole.count());
    time.tv_nsec = long(nanoseconds(sinceEpoch - whole).count());
    return dispatch_walltime(&time, 0);
}

class Alarm final : public ScheduledTask {
public:
    Alarm(Instant when, std::function<void()> action)
        : m_timer(
            dispatch_source_create(DISPATCH_SOURCE_TYPE_TIMER, 0, 0, dispatch_get_main_queue()))
    {
        if (!m_timer)
            throw std::system_error(ENOMEM, std::generic_category(), "dispatch_source_create");
        m_pending = new Pending{std::move(action)};
        dispatch_set_context(m_timer, m_pending);
        dispatch_source_set_event_handler_f(m_timer, fire);
        dispatch_source_set_cancel_handler_f(m_timer, discard);
        dispatch_source_set_timer(m_timer, wallTime(when), DISPATCH_TIME_FOREVER, 0);
        dispatch_resume(m_timer);
    }
    ~Alarm() override
    {
        m_pending->action = nullptr;
        dispatch_source_cancel(m_timer);
        dispatch_release(m_timer);
    }
    Alarm(const Alarm &) = delete;
    Alarm &operator=(const Alarm &) = delete;

private:
    dispatch_source_t m_timer;
    Pending *m_pending; ///< the timer's, and there until its cancellation is through
};

} // namespace

std::unique_ptr<ScheduledTask> MacAlarm::runAt(Instant when, std::function<void()> action)
{
    return std::make_unique<Alarm>(when, std::move(action));
}

} // namespace Panorel::Mac

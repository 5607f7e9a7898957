#include "MacDoubles/Desktop/MacDesktop.h"

#include <dispatch/dispatch.h>

#include <list>

using namespace Panorel;
using namespace Panorel::MacDoubles;

struct dispatch_source_type_s {};
const dispatch_source_type_s _dispatch_source_type_timer{};

namespace {

struct Source final : dispatch_source_s {
    void *context = nullptr;
    dispatch_function_t event = nullptr;
    dispatch_function_t cancelled = nullptr;
    dispatch_time_t start = DISPATCH_TIME_FOREVER;
    bool isCancelled = false;
    bool isReleased = false;
};

dispatch_queue_s mainQueue;
std::list<Source> sources;

Source &sourceOf(dispatch_object_t object)
{
    return static_cast<Source &>(*object);
}

} // namespace

void Panorel::MacDoubles::runMainQueueUntil(Instant now)
{
    const auto time = std::chrono::nanoseconds(now.time_since_epoch()).count();
    for (Source &source : sources) { // an event may add another to the list's end
        if (source.isCancelled || source.start > dispatch_time_t(time))
            continue;
        source.start = DISPATCH_TIME_FOREVER; // the interval is forever, too
        source.event(source.context);
    }
    std::erase_if(sources, [](const Source &source) {
        if (source.isCancelled)
            source.cancelled(source.context);
        return source.isCancelled && source.isReleased;
    });
}

std::size_t Panorel::MacDoubles::sourcesLeft()
{
    runMainQueueUntil(Instant());
    return sources.size();
}

extern "C" {

dispatch_queue_t dispatch_get_main_queue()
{
    return &mainQueue;
}

dispatch_time_t dispatch_walltime(const struct timespec *when, int64_t delta)
{
    // What its 62 bits of nanoseconds can't count is a time that never comes.
    if (when->tv_sec <= 0 || when->tv_sec >= (std::int64_t(1) << 62) / 1'000'000'000)
        return DISPATCH_TIME_FOREVER;
    return dispatch_time_t(when->tv_sec * 1'000'000'000 + when->tv_nsec + delta);
}

dispatch_source_t dispatch_source_create(dispatch_source_type_t, uintptr_t, uintptr_t,
                                         dispatch_queue_t queue)
{
    return queue == &mainQueue ? &sources.emplace_back() : nullptr;
}

void dispatch_set_context(dispatch_object_t object, void *context)
{
    sourceOf(object).context = context;
}
void dispatch_source_set_event_handler_f(dispatch_source_t source, dispatch_function_t handler)
{
    sourceOf(source).event = handler;
}
void dispatch_source_set_cancel_handler_f(dispatch_source_t source, dispatch_function_t handler)
{
    sourceOf(source).cancelled = handler;
}
void dispatch_source_set_timer(dispatch_source_t source, dispatch_time_t start, uint64_t, uint64_t)
{
    sourceOf(source).start = start;
}
void dispatch_resume(dispatch_object_t) {}
void dispatch_source_cancel(dispatch_source_t source)
{
    sourceOf(source).isCancelled = true;
}
void dispatch_release(dispatch_object_t object)
{
    sourceOf(object).isReleased = true;
}

} // extern "C"

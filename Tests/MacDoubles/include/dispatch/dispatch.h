// The part of the dispatch library's function interface that the port calls, by its documented
// names.
#pragma once

#include <cstdint>
#include <ctime>

struct dispatch_object_s {};
typedef dispatch_object_s *dispatch_object_t;
typedef struct dispatch_queue_s : public dispatch_object_s{} * dispatch_queue_t;
typedef struct dispatch_source_s : public dispatch_object_s{} * dispatch_source_t;
typedef const struct dispatch_source_type_s *dispatch_source_type_t;
typedef void (*dispatch_function_t)(void *context);
typedef uint64_t dispatch_time_t;

#define DISPATCH_TIME_FOREVER (~0ull)
#define DISPATCH_SOURCE_TYPE_TIMER (&_dispatch_source_type_timer)

extern "C" {

extern const struct dispatch_source_type_s _dispatch_source_type_timer;

dispatch_queue_t dispatch_get_main_queue();
dispatch_time_t dispatch_walltime(const struct timespec *when, int64_t delta);
dispatch_source_t dispatch_source_create(dispatch_source_type_t type, uintptr_t handle,
                                         uintptr_t mask, dispatch_queue_t queue);
void dispatch_set_context(dispatch_object_t object, void *context);
void dispatch_source_set_event_handler_f(dispatch_source_t source, dispatch_function_t handler);
void dispatch_source_set_cancel_handler_f(dispatch_source_t source, dispatch_function_t handler);
void dispatch_source_set_timer(dispatch_source_t source, dispatch_time_t start, uint64_t interval,
                               uint64_t leeway);
void dispatch_resume(dispatch_object_t object);
void dispatch_source_cancel(dispatch_source_t source);
void dispatch_release(dispatch_object_t object);

} // extern "C"

#include "Desktop/RequestCount.h"

#include <xcb/xcb.h>
#include <xcb/xcbext.h>

#include <dlfcn.h>

#include <map>

namespace {

Panorel::Bench::RequestCount counted;

struct Connection {
    std::uint64_t sent = 0;   ///< the last request's number
    std::uint64_t waited = 0; ///< what had been sent when an answer was last waited for
};
std::map<xcb_connection_t *, Connection> connections;

/// The library's own function of that name.
template <typename Function> Function *next(const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

void noteWait(xcb_connection_t *connection, std::uint64_t sequence)
{
    Connection &known = connections[connection];
    if (sequence <= known.waited)
        return;
    counted.roundTrips += 1;
    known.waited = known.sent;
}

} // namespace

Panorel::Bench::RequestCount Panorel::Bench::RequestCount::now()
{
    return counted;
}

extern "C" {

// Where all the others end up.
std::uint64_t xcb_send_request64(xcb_connection_t *c, int flags, iovec *vector,
                                 const xcb_protocol_request_t *request)
{
    static const auto real = next<decltype(xcb_send_request64)>("xcb_send_request64");
    counted.requests += 1;
    counted.messages += !request->ext && request->opcode == XCB_SEND_EVENT;
    const std::uint64_t sequence = real(c, flags, vector, request);
    Connection &known = connections[c];
    if (sequence < known.sent) // another connection in the place of one that was closed
        known.waited = 0;
    return known.sent = sequence;
}

void *xcb_wait_for_reply(xcb_connection_t *c, unsigned int request, xcb_generic_error_t **error)
{
    static const auto real = next<decltype(xcb_wait_for_reply)>("xcb_wait_for_reply");
    noteWait(c, request);
    return real(c, request, error);
}

} // extern "C"

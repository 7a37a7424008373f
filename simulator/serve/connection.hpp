// What libwebsockets' C functions need said in C++.
#pragma once

#include <libwebsockets.h>

#include <string>
#include <string_view>

namespace sim::serve {

/** A header of the request that opened a connection; empty when there is none. */
std::string header(lws* connection, lws_token_indexes which);
/** Ends a WebSocket with a reason that the page can read: what its callback is to return. */
int refuse(lws* connection, std::string_view reason);
/** Has the loop let go of a connection soon, whatever state it is in. */
void drop(lws* connection);
/** Seconds of a clock that only goes on. */
double seconds();

}  // namespace sim::serve

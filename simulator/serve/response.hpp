// What the server answers to requests for files.
#pragma once

#include <libwebsockets.h>

#include <string_view>

namespace sim::serve {

/** Sends the head of a response, with what keeps a browser from letting anything foreign in. False when it
 * cannot. */
bool sendHead(lws* connection, unsigned status, std::string_view type, std::size_t length);

}  // namespace sim::serve

// How often methods that libraries have replaced are called, and how long they take.
#pragma once

#include <span>

#include "simulator/app/program.hpp"

namespace sim::serve {

/**
 * Those that have been called within a second, the longest first, each with "class", "method" ("-name:"),
 * "count", "seconds" (of the machine's time, what it calls in turn included) and "libraries" (the files of
 * those that replaced it, in their order). Calls are watched from the first time on that this is asked for,
 * until it has not been asked for three seconds: while nobody asks, nothing stands between a message and its
 * method.
 */
Json callsWithinASecond();

/** Asked for by a page's message "calls". */
std::span<const PageMessage> callMessages();

}  // namespace sim::serve

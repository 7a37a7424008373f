// The end of a process in which an exception is raised and nobody catches it.
#pragma once

#include "platform/foundation/string.hpp"

namespace sim {

// Says the exception's name and reason in a line on standard error and ends the process with status 3.
[[noreturn]] void endUncaught(NSString name, NSString reason);

// Has `tell` say more between the line and the end.
void whenUncaught(void (*tell)());

}  // namespace sim

// The end of a process in which an exception is raised and nobody catches it.
#pragma once

#include "platform/foundation/string.hpp"

namespace sim {

// Says the exception's name and reason in a line on standard error and ends the process with status 3.
[[noreturn]] void endUncaught(NSString name, NSString reason);

// Does that where the exception says that memory is refused: whoever caught it would take what he reads for
// damaged. Of a device's process it is the end, too.
void endIfOutOfMemory(id exception);

// Has `tell` say more between the line and the end.
void whenUncaught(void (*tell)());

}  // namespace sim

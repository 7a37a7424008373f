// A coloured debug line to the system log.
#pragma once

#include <source_location>

#include "platform/foundation/string.hpp"

namespace tilo {

// `source` is the name that the line bears, without folder and extension.
void consoleDebugLog(const char* source, NSString message,
                     std::source_location site = std::source_location::current());

// What `%@` makes of an object: its description, or "(null)" for nil.
NSString described(NSObject object);

}  // namespace tilo

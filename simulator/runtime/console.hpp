// The system log.
#pragma once

#include <cstdarg>
#include <string>
#include <vector>

#include "bridge/runtime.hpp"

namespace sim {

// The lines that were sent to the system log, in order.
const std::vector<std::string>& console();

// The levels that CFLog was called with: 0 is an emergency, 7 is for debugging.
const std::vector<int>& consoleLevels();

// Another line, as CFLog makes it of a format (a string object).
void logFormatted(id format, va_list arguments);

}  // namespace sim

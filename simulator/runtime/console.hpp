// The system log.
#pragma once

#include <cstdarg>
#include <string>
#include <vector>

#include "bridge/runtime.hpp"

namespace sim {

// The lines that were sent to the system log, in order.
const std::vector<std::string>& console();

// Another line, as CFLog makes it of a format (a string object).
void logFormatted(id format, va_list arguments);

}  // namespace sim

// The system log.
#pragma once

#include <string>
#include <vector>

namespace sim {

// The lines that were sent to the system log, in order.
const std::vector<std::string>& console();

}  // namespace sim

// A mistake of whoever started the simulator.
#pragma once

#include <stdexcept>
#include <string_view>

#include "simulator/device/text.hpp"

namespace sim {

/** One line that names the culprit, whatever bytes it is made of; it ends the run with exit status 2. */
struct UsageError : std::runtime_error {
  explicit UsageError(std::string_view message) : std::runtime_error(messageLine(message)) {}
};

}  // namespace sim

// A mistake of whoever started the simulator.
#pragma once

#include <stdexcept>

namespace sim {

/** One line that names the culprit; it ends the run with exit status 2. */
struct UsageError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

}  // namespace sim

// Scripts that pages have saved under names, in the device's own files: they stay with the root.
#pragma once

#include <span>

#include "simulator/app/program.hpp"

namespace sim::serve {

/** "saved-steps": names and texts. "save-steps": a text under a name; one without any takes the name away. */
std::span<const PageMessage> savedStepMessages();

}  // namespace sim::serve

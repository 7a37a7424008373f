// New lines for pages, of whatever grows by lines.
#pragma once

#include <span>

#include "simulator/app/program.hpp"

namespace sim::serve {

/** "console": the lines of the system log after the first `after`, and how many there are in all. */
std::span<const PageMessage> consoleMessages();

}  // namespace sim::serve

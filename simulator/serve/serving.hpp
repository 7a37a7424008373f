// The option to live in a browser.
#pragma once

#include "simulator/app/program.hpp"

namespace sim::serve {

/** Adds `--serve` and what belongs to it. */
void addServing(Program& program);

}  // namespace sim::serve

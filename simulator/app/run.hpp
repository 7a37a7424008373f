// A simulator's run, from the command line to the last report.
#pragma once

#include "simulator/app/program.hpp"

namespace sim {

/** What `main` does: its arguments, and the status that the process ends with. */
int run(int count, const char* const* arguments, const Program& program);

}  // namespace sim

// The screen over time as an animation.
#pragma once

#include <memory>

#include "simulator/app/options.hpp"
#include "simulator/app/program.hpp"

namespace sim::serve {

/** Adds `--record` and `--fps`. */
void addRecording(Program& program);

}  // namespace sim::serve

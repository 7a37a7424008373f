// The steps that a home screen is used by: launching, leaving, folders, editing.
#pragma once

#include "simulator/input/script.hpp"

namespace sim {

// A launch and the opening of a folder take as long as a tap, the others no time. Throws UsageError,
// beginning with the step's place, when the step cannot be done.
void performHome(const Step& step);

}  // namespace sim

// The steps that are made by fingers.
#pragma once

#include "simulator/input/script.hpp"

namespace sim {

// Time passes as long as the step takes. Throws UsageError, beginning with the step's place, when the step
// cannot be done.
void performTouch(const Step& step);

}  // namespace sim

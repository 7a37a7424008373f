// The steps that answer alerts, turn the picker and send the panel messages.
#pragma once

#include "simulator/input/script.hpp"

namespace sim {

// Time passes as long as the step takes. Throws UsageError, beginning with the step's place, when the step
// cannot be done.
void performPanelStep(const Step& step);

}  // namespace sim

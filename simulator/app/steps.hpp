// Doing what a script says.
#pragma once

#include "simulator/app/simulation.hpp"
#include "simulator/input/script.hpp"

namespace sim {

// Every step that there is.
StepTable stepTable();

// Time passes as long as the step takes. Throws UsageError, beginning with the step's place, when the step
// cannot be done.
void perform(Simulation& simulation, const Step& step);

}  // namespace sim

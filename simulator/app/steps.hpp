// The steps of any home screen's script, each group with its table, and doing one.
#pragma once

#include "simulator/input/script.hpp"

namespace sim {

StepTable deviceSteps();
StepTable touchSteps();
StepTable homeSteps();
StepTable alertSteps();

// Time passes as long as the step takes. Throws UsageError, beginning with the step's place, when the step
// cannot be done.
void perform(Simulation& simulation, const Step& step);

}  // namespace sim

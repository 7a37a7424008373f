// The steps of any home screen's script, each group with its table, and doing one.
#pragma once

#include "simulator/input/script.hpp"
#include "simulator/json/json.hpp"

namespace sim {

StepTable deviceSteps();
StepTable touchSteps();
StepTable homeSteps();
StepTable alertSteps();
StepTable keySteps();
StepTable objectSteps();
/** What the messages of scripts answered. */
Json answers();

// Time passes as long as the step takes. Throws UsageError, beginning with the step's place, when the step
// cannot be done.
void perform(Simulation& simulation, const Step& step);

}  // namespace sim

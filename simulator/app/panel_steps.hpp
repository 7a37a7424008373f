// The steps that answer alerts, turn the picker and send the panel messages.
#pragma once

#include "simulator/input/step.hpp"

namespace sim::steps {

void pick(Simulation& simulation, const Step& step);
void choose(Simulation& simulation, const Step& step);
void enter(Simulation& simulation, const Step& step);
void call(Simulation& simulation, const Step& step);

}  // namespace sim::steps

// The steps that use a row of the panel.
#pragma once

#include "simulator/input/step.hpp"

namespace sim::steps {

void increment(Simulation& simulation, const Step& step);
void decrement(Simulation& simulation, const Step& step);
void slide(Simulation& simulation, const Step& step);
void type(Simulation& simulation, const Step& step);
void paste(Simulation& simulation, const Step& step);
void apply(Simulation& simulation, const Step& step);
void cancel(Simulation& simulation, const Step& step);

}  // namespace sim::steps

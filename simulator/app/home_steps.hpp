// Icons are tapped where they are; the home button leaves the nearest thing that can be left.
#pragma once

#include "simulator/input/step.hpp"

namespace sim::steps {

void launch(Simulation& simulation, const Step& step);
void home(Simulation& simulation, const Step& step);
void open(Simulation& simulation, const Step& step);
void edit(Simulation& simulation, const Step& step);

}  // namespace sim::steps

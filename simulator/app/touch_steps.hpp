// The steps that are made by fingers.
#pragma once

#include "simulator/input/step.hpp"

namespace sim::steps {

void swipe(Simulation& simulation, const Step& step);
void tap(Simulation& simulation, const Step& step);
void twoFingerTap(Simulation& simulation, const Step& step);
void press(Simulation& simulation, const Step& step);
void drag(Simulation& simulation, const Step& step);
void finger(Simulation& simulation, const Step& step);
void page(Simulation& simulation, const Step& step);

}  // namespace sim::steps

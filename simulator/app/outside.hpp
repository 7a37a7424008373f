// What other processes do to the home screen: write its preferences and send it messages.
#pragma once

#include "simulator/app/simulation.hpp"
#include "simulator/input/step.hpp"

namespace sim {

// Hands over the messages that have arrived, and does what they make due. Time stands still.
void serve();

// Serves until there is something to read from the descriptor, or nothing more to come.
void serveUntilInput(int descriptor);

// The steps: a value of the preference domain written and nobody told; a message that has been delivered when
// this returns. Throws UsageError when nobody serves the centre.
namespace steps {
void write(Simulation& simulation, const Step& step);
void message(Simulation& simulation, const Step& step);
}  // namespace steps

}  // namespace sim

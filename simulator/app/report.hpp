// The report: what a program can read of the home screen at one moment.
#pragma once

#include "simulator/app/report_values.hpp"

namespace sim {

class Simulation;

// Lists are asked by the messages that SpringBoard itself sends them; frames, alphas and colours are those on
// screen.
Json makeReport(Simulation& simulation);

}  // namespace sim

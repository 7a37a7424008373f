// The report: what a program can read of the home screen at one moment.
#pragma once

#include <span>

#include "simulator/app/program.hpp"

namespace sim {

/** The keys that any home screen has. */
std::span<const ReportRow> homeScreenReport();

/** Lists are asked by the messages that SpringBoard itself sends them; frames, alphas and colours are those
 * on screen. */
Json makeReport(Simulation& simulation);

}  // namespace sim

// What the report says of the home screen's own parts, and of the alert in front.
#pragma once

#include "simulator/app/report_values.hpp"

namespace sim {

class Simulation;

Json reportPages(Simulation&);
Json reportFolder(Simulation&);
Json reportDock(Simulation&);
Json reportPageDots(Simulation&);
/** Null when there is none. */
Json reportAlert(Simulation&);

}  // namespace sim

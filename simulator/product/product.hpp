// What the simulator knows of the library that it is made for, as rows of the tables that its command line,
// scripts and reports follow.
#pragma once

#include "simulator/app/program.hpp"

namespace sim::product {

/** A home screen with the library: tilo-sim. */
const Program& program();

// Of a script: the panel and its rows; the settings pane.
StepTable panelSteps();
StepTable rowSteps();
StepTable settingsSteps();

// Of the report. Null where there is no panel, or no notice box.
Json reportHooks(Simulation& simulation);
Json reportFraming(Simulation& simulation);
Json reportPanel(Simulation& simulation);
Json reportHud(Simulation& simulation);
Json reportPreferences(Simulation& simulation);
Json reportPresets(Simulation& simulation);
Json reportLog(Simulation& simulation);

}  // namespace sim::product

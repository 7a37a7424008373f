// Starting SpringBoard anew, which somebody may ask for.
#pragma once

namespace sim::springboard {

/** How often it was asked for. */
int relaunchesAskedFor();

void defineRelaunch();

}  // namespace sim::springboard
